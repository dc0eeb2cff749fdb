#include <reportgenerator/reportbase/tasktype.h>

#include <reportgenerator/reportbase/codec/nametable.h>

namespace REPORTGENERATOR::TaskType {

namespace {

constexpr NamedNumber<TaskTypeValue> TASK_TYPES[] = {
    {Production, REPORTBASE_NAME("Production")}, {Pool, REPORTBASE_NAME("Pool")},
    {Search, REPORTBASE_NAME("Search")},         {Surveillance, REPORTBASE_NAME("Surveillance")},
    {Tuner, REPORTBASE_NAME("Tuner")},           {Other, REPORTBASE_NAME("Other")},
    {Exciter, REPORTBASE_NAME("Exciter")},       {Antenna, REPORTBASE_NAME("Antenna")},
    {DFScan, REPORTBASE_NAME("DFScan")},         {NG_Production, REPORTBASE_NAME("NG_Production")},
    {Tivor, REPORTBASE_NAME("Tivor")},
};
static_assert(IsAscending(TASK_TYPES));

} // namespace

TaskTypeValue GetInvalidTaskType()
{
    return static_cast<TaskTypeValue>(-1);
}

bool IsValidTaskType(TaskTypeValue type)
{
    return FindNumber(TASK_TYPES, type) != nullptr;
}

QString TaskTypeToName(TaskTypeValue type)
{
    const auto* row = FindNumber(TASK_TYPES, type);
    return row ? row->name.Text() : UNDEFINED.Text();
}

TaskTypeValue NameToTaskType(const QString& name)
{
    const auto* row = FindName(TASK_TYPES, name);
    return row ? row->number : GetInvalidTaskType();
}

bool IsProduction(const TaskTypeValue& type)
{
    return type == Production;
}

bool IsPool(const TaskTypeValue& type)
{
    return type == Pool;
}

bool IsSearch(const TaskTypeValue& type)
{
    return type == Search;
}

bool IsSurveillance(const TaskTypeValue& type)
{
    return type == Surveillance;
}

bool IsTuner(const TaskTypeValue& type)
{
    return type == Tuner;
}

bool IsOther(const TaskTypeValue& type)
{
    return type == Other;
}

bool IsExciter(const TaskTypeValue& type)
{
    return type == Exciter;
}

bool IsAntenna(const TaskTypeValue& type)
{
    return type == Antenna;
}

bool IsDFScan(const TaskTypeValue& type)
{
    return type == DFScan;
}

// IsProduction is false for the product-specific kinds.
bool IsTivorProduction(const TaskTypeValue& type)
{
    return type == NG_Production || type == Tivor;
}

} // namespace REPORTGENERATOR::TaskType
