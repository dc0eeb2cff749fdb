#ifndef REPORTGENERATOR_OBJECTTYPES_H
#define REPORTGENERATOR_OBJECTTYPES_H

#include <reportgenerator/reportbase/reportbase_export.h>

#include <QtCore/QString>

namespace REPORTGENERATOR {

/// The kinds of objects that the system knows, also those whose classes live in its other libraries.
///
/// The name of a kind is the enumerator's spelling; it is the XML element name of an object of the kind. A
/// variable may hold a number outside this list: such a number is no valid kind and has no name.
enum ObjectTypes : int
{
    Tivor_Report = 0,
    Demodulator_Settings = 1,
    Location = 5,
    Results = 6,
    COB_Settings = 8,
    Text = 30,
    Audio = 33,
    PS_RAD_Result = 37,
    GenericReceiver = 38,
    Job = 40,
    JobHeader = 41,
    Task = 42,
    TaskHeader = 43,
    TaskTime = 44,
    TaskSchedule = 45,
    TaskTimeClient = 46,
    RepeatDefinition = 47,
    RepeatDaily = 48,
    RepeatWeekly = 49,
    RepeatMonthlyByDay = 50,
    RepeatMonthlyByDate = 51,
    TaskReport = 52,
    TaskSite = 53,
    TaskPoolData = 54,
    TaskActionSearch = 55,
    TaskActionSurveillance = 56,
    TaskActionProduction = 57,
    TaskActionTunerMC = 58,
    TaskActionOther = 59,
    TaskSearchRange = 60,
    TaskPlanner = 61,
    ReportPlanner = 62,
    AntennaData = 67,
    Exciter_Settings = 69,
    EDM_Export_Import_File = 71,
    TaskPlanner_Command = 73,
    EDSettings = 74,
    ActivityDetectionSettings = 75,
    DataViewer_Command = 76,
    AnyType = 80
};

/// The name of a kind, empty when the number is no valid kind.
REPORTBASE_EXPORT QString ObjectTypesToName(const ObjectTypes& type);

/// The kind with exactly this name, upper and lower case told apart; `GetInValidObjectTypes()` when there is
/// none.
REPORTBASE_EXPORT ObjectTypes NameToObjectTypes(const QString& name);

/// Whether the number is one of the list above.
REPORTBASE_EXPORT bool IsValidObjectTypes(const ObjectTypes& type);

/// The number -1, which stands for no kind.
REPORTBASE_EXPORT ObjectTypes GetInValidObjectTypes();

} // namespace REPORTGENERATOR

#endif
