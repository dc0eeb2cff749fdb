// What is particular to the task types. What all vocabularies hold to stands in vocabularytest.cpp.

#include <reportgenerator/reportbase/tasktype.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <type_traits>

namespace TaskType = REPORTGENERATOR::TaskType;

namespace {

using TaskType::TaskTypeValue;

// The types that callers were compiled with.
static_assert(std::is_same_v<std::underlying_type_t<TaskTypeValue>, int>);
static_assert(std::is_same_v<decltype(&TaskType::GetInvalidTaskType), TaskTypeValue (*)()>);
static_assert(std::is_same_v<decltype(&TaskType::IsValidTaskType), bool (*)(TaskTypeValue)>);
static_assert(std::is_same_v<decltype(&TaskType::TaskTypeToName), QString (*)(TaskTypeValue)>);
static_assert(std::is_same_v<decltype(&TaskType::NameToTaskType), TaskTypeValue (*)(const QString&)>);

} // namespace

TEST(TaskType, ProductSpecificProductionsAreTivorButNoPlainProductions)
{
    EXPECT_FALSE(TaskType::IsProduction(TaskType::NG_Production));
    EXPECT_FALSE(TaskType::IsProduction(TaskType::Tivor));
    EXPECT_TRUE(TaskType::IsTivorProduction(TaskType::NG_Production));
    EXPECT_TRUE(TaskType::IsTivorProduction(TaskType::Tivor));
    EXPECT_FALSE(TaskType::IsTivorProduction(TaskType::Production));
}
