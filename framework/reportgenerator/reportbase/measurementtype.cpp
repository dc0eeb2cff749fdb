#include <reportgenerator/reportbase/measurementtype.h>

#include <reportgenerator/reportbase/codec/nametable.h>

namespace REPORTGENERATOR::MeasurementType {

namespace {

struct MeasurementRow
{
    MeasurementTypeValue number;
    Name name;
    Name nodeName;
};

constexpr MeasurementRow MEASUREMENT_TYPES[] = {
    {Level, REPORTBASE_NAME("Level"), REPORTBASE_NAME("LEVEL")},
    {Offset, REPORTBASE_NAME("Offset"), REPORTBASE_NAME("OFFSET")},
    {FStrength, REPORTBASE_NAME("FStrength"), REPORTBASE_NAME("FSTRENGTH")},
    {AM, REPORTBASE_NAME("AM"), REPORTBASE_NAME("AM")},
    {AMPos, REPORTBASE_NAME("AM Pos"), REPORTBASE_NAME("AMPOS")},
    {AMNeg, REPORTBASE_NAME("AM Neg"), REPORTBASE_NAME("AMNEG")},
    {FM, REPORTBASE_NAME("FM"), REPORTBASE_NAME("FM")},
    {FMPos, REPORTBASE_NAME("FM Pos"), REPORTBASE_NAME("FMPOS")},
    {FMNeg, REPORTBASE_NAME("FM Neg"), REPORTBASE_NAME("FMNEG")},
    {PM, REPORTBASE_NAME("PM"), REPORTBASE_NAME("PM")},
    {Bandwidth, REPORTBASE_NAME("Bandwidth"), REPORTBASE_NAME("BANDWIDTH")},
    {RDS, REPORTBASE_NAME("RDS"), REPORTBASE_NAME("RDS")},
};
static_assert(IsAscending(MEASUREMENT_TYPES));

struct SubSensorRow
{
    SubSensorTypeValue number;
    Name name;
    Name colonName;
};

constexpr SubSensorRow SUB_SENSOR_TYPES[] = {
    {SubSensorAM, REPORTBASE_NAME("AM"), REPORTBASE_NAME("AM")},
    {SubSensorAMPos, REPORTBASE_NAME("AM Pos"), REPORTBASE_NAME("AM:POS")},
    {SubSensorAMNeg, REPORTBASE_NAME("AM Neg"), REPORTBASE_NAME("AM:NEG")},
    {SubSensorFM, REPORTBASE_NAME("FM"), REPORTBASE_NAME("FM")},
    {SubSensorFMPos, REPORTBASE_NAME("FM Pos"), REPORTBASE_NAME("FM:POS")},
    {SubSensorFMNeg, REPORTBASE_NAME("FM Neg"), REPORTBASE_NAME("FM:NEG")},
    {SubSensorPM, REPORTBASE_NAME("PM"), REPORTBASE_NAME("PM")},
    {SubSensorCW, REPORTBASE_NAME("CW"), REPORTBASE_NAME("CW")},
};
static_assert(IsAscending(SUB_SENSOR_TYPES));

// The sensor nodes, by their place.
constexpr NamedNumber<int> SENSOR_NODES[] = {
    {0, REPORTBASE_NAME("LEVEL")}, {1, REPORTBASE_NAME("OFFSET")}, {2, REPORTBASE_NAME("FSTRENGTH")},
    {3, REPORTBASE_NAME("AM")},    {4, REPORTBASE_NAME("AMPOS")},  {5, REPORTBASE_NAME("AMNEG")},
    {6, REPORTBASE_NAME("FM")},    {7, REPORTBASE_NAME("FMPOS")},  {8, REPORTBASE_NAME("FMNEG")},
    {9, REPORTBASE_NAME("PMCW")},
};
static_assert(IsAscending(SENSOR_NODES));

// The first sensor nodes belong to no demodulation; the sub-sensors' own nodes follow them.
constexpr int FIRST_SUB_SENSOR_NODE = 3;

// What `row` holds in the column `spelling`; empty without a row.
template <class Row>
QString TextOf(const Row* row, Name Row::*spelling)
{
    return row ? (row->*spelling).Text() : QString();
}

MeasurementTypeValue NumberOf(const MeasurementRow* row)
{
    return row ? row->number : GetInvalidMeasurementType();
}

SubSensorTypeValue NumberOf(const SubSensorRow* row)
{
    return row ? row->number : GetInvalidSSubSensorType();
}

} // namespace

MeasurementTypeValue GetInvalidMeasurementType()
{
    return static_cast<MeasurementTypeValue>(-1);
}

SubSensorTypeValue GetInvalidSSubSensorType()
{
    return static_cast<SubSensorTypeValue>(-1);
}

bool IsValidMeasurementType(const MeasurementTypeValue& type)
{
    return FindNumber(MEASUREMENT_TYPES, type) != nullptr;
}

bool IsValidSubSensorType(const SubSensorTypeValue& type)
{
    return FindNumber(SUB_SENSOR_TYPES, type) != nullptr;
}

QString MeasurementTypeToName(const MeasurementTypeValue& type)
{
    return TextOf(FindNumber(MEASUREMENT_TYPES, type), &MeasurementRow::name);
}

QString MeasurementTypeToNodeName(const MeasurementTypeValue& type)
{
    return TextOf(FindNumber(MEASUREMENT_TYPES, type), &MeasurementRow::nodeName);
}

MeasurementTypeValue NameToMeasurementType(const QString& name)
{
    return NumberOf(FindName(MEASUREMENT_TYPES, name));
}

MeasurementTypeValue NodeNameToMeasurementType(const QString& nodeName)
{
    return NumberOf(FindName(MEASUREMENT_TYPES, nodeName, &MeasurementRow::nodeName));
}

QString SubSensorTypeToName(const SubSensorTypeValue& type)
{
    return TextOf(FindNumber(SUB_SENSOR_TYPES, type), &SubSensorRow::name);
}

QString SubSensorTypeToSkpiName(const SubSensorTypeValue& type)
{
    return TextOf(FindNumber(SUB_SENSOR_TYPES, type), &SubSensorRow::colonName);
}

SubSensorTypeValue NameToSubSensorType(const QString& name)
{
    return NumberOf(FindName(SUB_SENSOR_TYPES, name));
}

SubSensorTypeValue SkpiNameToSubSensorType(const QString& colonName)
{
    return NumberOf(FindName(SUB_SENSOR_TYPES, colonName, &SubSensorRow::colonName));
}

QString SubSensorTypeToNodeName(const SubSensorTypeValue& type)
{
    if (!IsValidSubSensorType(type))
        return QString();
    // The number is taken as a place without an offset, unlike in SensorNodeNameToMeasurementType.
    return TextOf(FindNumber(SENSOR_NODES, type), &NamedNumber<int>::name);
}

SubSensorTypeValue NodeNameToSubSensorType(const QString& nodeName)
{
    // A place, like the number that SubSensorTypeToNodeName takes; the last two are beyond the sub-sensors.
    const auto* node = FindName(SENSOR_NODES, nodeName);
    return node ? static_cast<SubSensorTypeValue>(node->number) : GetInvalidSSubSensorType();
}

MeasurementTypeValue SensorNodeNameToMeasurementType(const QString& name)
{
    const MeasurementTypeValue type = NodeNameToMeasurementType(name);
    if (IsValidMeasurementType(type))
        return type;

    const SubSensorTypeValue subSensor = SkpiNameToSubSensorType(name);
    if (!IsValidSubSensorType(subSensor))
        return GetInvalidMeasurementType();

    // CW has no node of its own, its place is beyond the last one; an empty node name is nobody's.
    const auto* node = FindNumber(SENSOR_NODES, subSensor + FIRST_SUB_SENSOR_NODE);
    return NodeNameToMeasurementType(TextOf(node, &NamedNumber<int>::name));
}

} // namespace REPORTGENERATOR::MeasurementType
