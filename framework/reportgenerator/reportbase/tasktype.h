#ifndef REPORTGENERATOR_TASKTYPE_H
#define REPORTGENERATOR_TASKTYPE_H

#include <reportgenerator/reportbase/reportbase_export.h>

#include <QtCore/QString>

/// The kinds of tasks that a monitoring station performs, and the names that reports carry for them.
///
///     const auto type = TaskType::NameToTaskType(QStringLiteral("Pool"));
///     if (TaskType::IsValidTaskType(type) && !TaskType::IsPool(type))
///         Plan(TaskType::TaskTypeToName(type));
///
/// The functions keep no state and may be called from any thread.
namespace REPORTGENERATOR::TaskType {

/// The kind of a task; its name is the enumerator's spelling.
///
/// A variable may hold a number outside this list: such a number is no valid kind and belongs to no group.
enum TaskTypeValue : int
{
    Production = 0,
    Pool = 1,
    Search = 2,
    Surveillance = 3,
    Tuner = 4,
    Other = 5,
    Exciter = 6,
    Antenna = 7,
    DFScan = 8,
    NG_Production = 9,
    Tivor = 10
};

/// The number -1, which stands for no kind.
REPORTBASE_EXPORT TaskTypeValue GetInvalidTaskType();

/// Whether the number is one of the list above.
REPORTBASE_EXPORT bool IsValidTaskType(TaskTypeValue type);

/// The name of a kind, "undefined" when the number is no valid kind.
REPORTBASE_EXPORT QString TaskTypeToName(TaskTypeValue type);

/// The kind with exactly this name, upper and lower case told apart; `GetInvalidTaskType()` when there is
/// none, as for "undefined".
REPORTBASE_EXPORT TaskTypeValue NameToTaskType(const QString& name);

/// Whether the kind is `Production`. The productions of a product's own kind are told by `IsTivorProduction`.
REPORTBASE_EXPORT bool IsProduction(const TaskTypeValue& type);

/// Whether the kind is `Pool`.
REPORTBASE_EXPORT bool IsPool(const TaskTypeValue& type);

/// Whether the kind is `Search`.
REPORTBASE_EXPORT bool IsSearch(const TaskTypeValue& type);

/// Whether the kind is `Surveillance`.
REPORTBASE_EXPORT bool IsSurveillance(const TaskTypeValue& type);

/// Whether the kind is `Tuner`.
REPORTBASE_EXPORT bool IsTuner(const TaskTypeValue& type);

/// Whether the kind is `Other`.
REPORTBASE_EXPORT bool IsOther(const TaskTypeValue& type);

/// Whether the kind is `Exciter`.
REPORTBASE_EXPORT bool IsExciter(const TaskTypeValue& type);

/// Whether the kind is `Antenna`.
REPORTBASE_EXPORT bool IsAntenna(const TaskTypeValue& type);

/// Whether the kind is `DFScan`.
REPORTBASE_EXPORT bool IsDFScan(const TaskTypeValue& type);

/// Whether the kind is a production of a product's own kind: `NG_Production` or `Tivor`.
REPORTBASE_EXPORT bool IsTivorProduction(const TaskTypeValue& type);

} // namespace REPORTGENERATOR::TaskType

#endif
