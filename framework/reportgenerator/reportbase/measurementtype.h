#ifndef REPORTGENERATOR_MEASUREMENTTYPE_H
#define REPORTGENERATOR_MEASUREMENTTYPE_H

#include <reportgenerator/reportbase/reportbase_export.h>

#include <QtCore/QString>

/// The quantities that a receiver measures and its demodulation sub-sensors, each with its spellings.
///
/// A display name ("AM Pos") is for people, a node name ("AMPOS") stands in XML and device data, and a
/// sub-sensor's colon name ("AM:POS") stands in device commands. All are compared exactly, upper and lower
/// case told apart.
///
///     const auto type = MeasurementType::SensorNodeNameToMeasurementType(QStringLiteral("AM:POS"));
///     if (MeasurementType::IsValidMeasurementType(type))
///         Show(MeasurementType::MeasurementTypeToName(type)); // "AM Pos"
///
/// The functions keep no state and may be called from any thread.
namespace REPORTGENERATOR::MeasurementType {

/// What is measured. A variable may hold a number outside this list: such a number is invalid and has no
/// name.
enum MeasurementTypeValue : int
{
    Level = 0,
    Offset = 1,
    FStrength = 2,
    AM = 3,
    AMPos = 4,
    AMNeg = 5,
    FM = 6,
    FMPos = 7,
    FMNeg = 8,
    PM = 9,
    Bandwidth = 10,
    RDS = 11
};

/// The demodulation sub-sensor. A variable may hold a number outside this list: such a number is invalid and
/// has no name.
enum SubSensorTypeValue : int
{
    SubSensorAM = 0,
    SubSensorAMPos = 1,
    SubSensorAMNeg = 2,
    SubSensorFM = 3,
    SubSensorFMPos = 4,
    SubSensorFMNeg = 5,
    SubSensorPM = 6,
    SubSensorCW = 7
};

/// The number -1, which stands for no measurement type.
REPORTBASE_EXPORT MeasurementTypeValue GetInvalidMeasurementType();

/// The number -1, which stands for no sub-sensor. The double "S" is part of the interface.
REPORTBASE_EXPORT SubSensorTypeValue GetInvalidSSubSensorType();

/// Whether the number is one of the list above, [0, 11].
REPORTBASE_EXPORT bool IsValidMeasurementType(const MeasurementTypeValue& type);

/// Whether the number is one of the list above, [0, 7].
REPORTBASE_EXPORT bool IsValidSubSensorType(const SubSensorTypeValue& type);

/// The display name, empty for an invalid number.
REPORTBASE_EXPORT QString MeasurementTypeToName(const MeasurementTypeValue& type);

/// The node name, empty for an invalid number.
REPORTBASE_EXPORT QString MeasurementTypeToNodeName(const MeasurementTypeValue& type);

/// The measurement type with this display name; `GetInvalidMeasurementType()` when there is none.
REPORTBASE_EXPORT MeasurementTypeValue NameToMeasurementType(const QString& name);

/// The measurement type with this node name; `GetInvalidMeasurementType()` when there is none.
REPORTBASE_EXPORT MeasurementTypeValue NodeNameToMeasurementType(const QString& nodeName);

/// The display name, empty for an invalid number.
REPORTBASE_EXPORT QString SubSensorTypeToName(const SubSensorTypeValue& type);

/// The colon name, empty for an invalid number.
REPORTBASE_EXPORT QString SubSensorTypeToSkpiName(const SubSensorTypeValue& type);

/// The sub-sensor with this display name; `GetInvalidSSubSensorType()` when there is none.
REPORTBASE_EXPORT SubSensorTypeValue NameToSubSensorType(const QString& name);

/// The sub-sensor with this colon name; `GetInvalidSSubSensorType()` when there is none.
REPORTBASE_EXPORT SubSensorTypeValue SkpiNameToSubSensorType(const QString& colonName);

/// The entry of the sensor nodes at the sub-sensor's number, empty for an invalid number.
///
/// The sensor nodes are, from 0 to 9: LEVEL, OFFSET, FSTRENGTH, AM, AMPOS, AMNEG, FM, FMPOS, FMNEG, PMCW. The
/// number is taken as it is: `SubSensorAM` gives "LEVEL" and `SubSensorPM` gives "FM". It is
/// `SensorNodeNameToMeasurementType` that sets sub-sensors against the nodes of the same demodulation.
REPORTBASE_EXPORT QString SubSensorTypeToNodeName(const SubSensorTypeValue& type);

/// The place of the text in the sensor nodes (see `SubSensorTypeToNodeName`), `GetInvalidSSubSensorType()`
/// when it is none of them. "AM" gives 3; "FMNEG" and "PMCW" give 8 and 9, which are no valid sub-sensors.
REPORTBASE_EXPORT SubSensorTypeValue NodeNameToSubSensorType(const QString& nodeName);

/// The measurement type that device data mean by a node name or a colon name: both "AMPOS" and "AM:POS" give
/// `AMPos`. `GetInvalidMeasurementType()` for any other text, "PMCW" and "CW" among them.
REPORTBASE_EXPORT MeasurementTypeValue SensorNodeNameToMeasurementType(const QString& name);

} // namespace REPORTGENERATOR::MeasurementType

#endif
