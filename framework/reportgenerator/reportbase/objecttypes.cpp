#include <reportgenerator/reportbase/objecttypes.h>

#include <reportgenerator/reportbase/codec/nametable.h>

namespace REPORTGENERATOR {

namespace {

// The numbers in the gaps stay free.
constexpr NamedNumber<ObjectTypes> OBJECT_TYPES[] = {
    {Tivor_Report, REPORTBASE_NAME("Tivor_Report")},
    {Demodulator_Settings, REPORTBASE_NAME("Demodulator_Settings")},
    {Location, REPORTBASE_NAME("Location")},
    {Results, REPORTBASE_NAME("Results")},
    {COB_Settings, REPORTBASE_NAME("COB_Settings")},
    {Text, REPORTBASE_NAME("Text")},
    {Audio, REPORTBASE_NAME("Audio")},
    {PS_RAD_Result, REPORTBASE_NAME("PS_RAD_Result")},
    {GenericReceiver, REPORTBASE_NAME("GenericReceiver")},
    {Job, REPORTBASE_NAME("Job")},
    {JobHeader, REPORTBASE_NAME("JobHeader")},
    {Task, REPORTBASE_NAME("Task")},
    {TaskHeader, REPORTBASE_NAME("TaskHeader")},
    {TaskTime, REPORTBASE_NAME("TaskTime")},
    {TaskSchedule, REPORTBASE_NAME("TaskSchedule")},
    {TaskTimeClient, REPORTBASE_NAME("TaskTimeClient")},
    {RepeatDefinition, REPORTBASE_NAME("RepeatDefinition")},
    {RepeatDaily, REPORTBASE_NAME("RepeatDaily")},
    {RepeatWeekly, REPORTBASE_NAME("RepeatWeekly")},
    {RepeatMonthlyByDay, REPORTBASE_NAME("RepeatMonthlyByDay")},
    {RepeatMonthlyByDate, REPORTBASE_NAME("RepeatMonthlyByDate")},
    {TaskReport, REPORTBASE_NAME("TaskReport")},
    {TaskSite, REPORTBASE_NAME("TaskSite")},
    {TaskPoolData, REPORTBASE_NAME("TaskPoolData")},
    {TaskActionSearch, REPORTBASE_NAME("TaskActionSearch")},
    {TaskActionSurveillance, REPORTBASE_NAME("TaskActionSurveillance")},
    {TaskActionProduction, REPORTBASE_NAME("TaskActionProduction")},
    {TaskActionTunerMC, REPORTBASE_NAME("TaskActionTunerMC")},
    {TaskActionOther, REPORTBASE_NAME("TaskActionOther")},
    {TaskSearchRange, REPORTBASE_NAME("TaskSearchRange")},
    {TaskPlanner, REPORTBASE_NAME("TaskPlanner")},
    {ReportPlanner, REPORTBASE_NAME("ReportPlanner")},
    {AntennaData, REPORTBASE_NAME("AntennaData")},
    {Exciter_Settings, REPORTBASE_NAME("Exciter_Settings")},
    {EDM_Export_Import_File, REPORTBASE_NAME("EDM_Export_Import_File")},
    {TaskPlanner_Command, REPORTBASE_NAME("TaskPlanner_Command")},
    {EDSettings, REPORTBASE_NAME("EDSettings")},
    {ActivityDetectionSettings, REPORTBASE_NAME("ActivityDetectionSettings")},
    {DataViewer_Command, REPORTBASE_NAME("DataViewer_Command")},
    {AnyType, REPORTBASE_NAME("AnyType")},
};

} // namespace

QString ObjectTypesToName(const ObjectTypes& type)
{
    const auto* row = FindNumber(OBJECT_TYPES, type);
    return row ? row->name.Text() : QString();
}

ObjectTypes NameToObjectTypes(const QString& name)
{
    const auto* row = FindName(OBJECT_TYPES, name);
    return row ? row->number : GetInValidObjectTypes();
}

bool IsValidObjectTypes(const ObjectTypes& type)
{
    return FindNumber(OBJECT_TYPES, type) != nullptr;
}

ObjectTypes GetInValidObjectTypes()
{
    return static_cast<ObjectTypes>(-1);
}

} // namespace REPORTGENERATOR
