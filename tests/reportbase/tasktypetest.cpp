#include "support/expect.h"

#include <reportgenerator/reportbase/tasktype.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <future>
#include <limits>
#include <set>
#include <type_traits>
#include <vector>

namespace TaskType = REPORTGENERATOR::TaskType;

namespace {

using TaskType::TaskTypeValue;

struct Row
{
    int number;
    TaskTypeValue enumerator;
    const char* name;
};

const Row ROWS[] = {
    {0, TaskType::Production, "Production"}, {1, TaskType::Pool, "Pool"},
    {2, TaskType::Search, "Search"},         {3, TaskType::Surveillance, "Surveillance"},
    {4, TaskType::Tuner, "Tuner"},           {5, TaskType::Other, "Other"},
    {6, TaskType::Exciter, "Exciter"},       {7, TaskType::Antenna, "Antenna"},
    {8, TaskType::DFScan, "DFScan"},         {9, TaskType::NG_Production, "NG_Production"},
    {10, TaskType::Tivor, "Tivor"},
};

struct Group
{
    const char* name;
    bool (*contains)(const TaskTypeValue&);
    std::set<int> members;
};

const Group GROUPS[] = {
    {"IsProduction", TaskType::IsProduction, {0}},
    {"IsPool", TaskType::IsPool, {1}},
    {"IsSearch", TaskType::IsSearch, {2}},
    {"IsSurveillance", TaskType::IsSurveillance, {3}},
    {"IsTuner", TaskType::IsTuner, {4}},
    {"IsOther", TaskType::IsOther, {5}},
    {"IsExciter", TaskType::IsExciter, {6}},
    {"IsAntenna", TaskType::IsAntenna, {7}},
    {"IsDFScan", TaskType::IsDFScan, {8}},
    {"IsTivorProduction", TaskType::IsTivorProduction, {9, 10}},
};

// The types that callers were compiled with.
static_assert(std::is_same_v<std::underlying_type_t<TaskTypeValue>, int>);
static_assert(std::is_same_v<decltype(&TaskType::GetInvalidTaskType), TaskTypeValue (*)()>);
static_assert(std::is_same_v<decltype(&TaskType::IsValidTaskType), bool (*)(TaskTypeValue)>);
static_assert(std::is_same_v<decltype(&TaskType::TaskTypeToName), QString (*)(TaskTypeValue)>);
static_assert(std::is_same_v<decltype(&TaskType::NameToTaskType), TaskTypeValue (*)(const QString&)>);

TaskTypeValue Type(int number)
{
    return static_cast<TaskTypeValue>(number);
}

int Find(const QString& name)
{
    return static_cast<int>(TaskType::NameToTaskType(name));
}

/// The numbers around the list and those that would fall into it if only a part of their bits counted.
std::vector<int> Numbers()
{
    std::vector<int> numbers = {std::numeric_limits<int>::min(),
                                std::numeric_limits<int>::min() + 1,
                                std::numeric_limits<int>::max(),
                                std::numeric_limits<int>::max() - 1,
                                std::numeric_limits<int>::min() + 9,
                                -65536,
                                -256,
                                64,
                                256,
                                65536};
    for (int number = -2; number <= 60; ++number)
        numbers.push_back(number);
    return numbers;
}

QString ExpectedName(int number)
{
    for (const Row& row : ROWS) {
        if (row.number == number)
            return Support::Text(row.name);
    }
    return QStringLiteral("undefined");
}

int ExpectedNumber(const QString& name)
{
    for (const Row& row : ROWS) {
        if (Support::Text(row.name) == name)
            return row.number;
    }
    return -1;
}

/// Texts that differ little from `name`.
std::vector<QString> NearMisses(const QString& name)
{
    const QChar blank = QLatin1Char(' ');
    return {name.toLower(), name.toUpper(),  blank + name,
            name + blank,   name.chopped(1), name + QChar(QChar::Null)};
}

/// What the look-ups answer for the numbers and names of this file.
std::vector<QString> Answers()
{
    std::vector<QString> answers;
    for (const int number : Numbers())
        answers.push_back(TaskType::TaskTypeToName(Type(number)));
    for (const Row& row : ROWS)
        answers.push_back(QString::number(Find(Support::Text(row.name))));
    return answers;
}

} // namespace

TEST(TaskType, EnumeratorsHaveTheNumbersOfReportsAndPrograms)
{
    for (const Row& row : ROWS)
        EXPECT_EQ(static_cast<int>(row.enumerator), row.number) << row.name;
}

TEST(TaskType, InvalidTypeIsMinusOne)
{
    EXPECT_EQ(static_cast<int>(TaskType::GetInvalidTaskType()), -1);
}

TEST(TaskType, OnlyZeroToTenAreValid)
{
    for (const int number : Numbers())
        EXPECT_EQ(TaskType::IsValidTaskType(Type(number)), number >= 0 && number <= 10) << number;
}

TEST(TaskType, EveryNumberGivesItsNameAndAllOthersUndefined)
{
    for (const int number : Numbers())
        EXPECT_TEXT(TaskType::TaskTypeToName(Type(number)), ExpectedName(number)) << number;
}

TEST(TaskType, NumbersNextToTheListAreNamedUndefined)
{
    EXPECT_TEXT(TaskType::TaskTypeToName(Type(11)), "undefined");
    EXPECT_TEXT(TaskType::TaskTypeToName(Type(-1)), "undefined");
    EXPECT_TEXT(TaskType::TaskTypeToName(TaskType::GetInvalidTaskType()), "undefined");
}

TEST(TaskType, EveryNameGivesItsNumber)
{
    for (const Row& row : ROWS)
        EXPECT_EQ(Find(Support::Text(row.name)), row.number) << row.name;
}

TEST(TaskType, UndefinedIsWrittenButNotRead)
{
    EXPECT_EQ(Find(QStringLiteral("undefined")), -1);
}

TEST(TaskType, NamesInOtherLettersFindNothing)
{
    EXPECT_EQ(Find(QStringLiteral("production")), -1);
    EXPECT_EQ(Find(QStringLiteral("POOL")), -1);
    EXPECT_EQ(Find(QStringLiteral("Dfscan")), -1);
    EXPECT_EQ(Find(QStringLiteral("ng_Production")), -1);
}

TEST(TaskType, TextsThatDifferLittleFromANameFindNothing)
{
    for (const Row& row : ROWS) {
        for (const QString& text : NearMisses(Support::Text(row.name)))
            EXPECT_EQ(Find(text), ExpectedNumber(text)) << ::testing::PrintToString(text);
    }
}

TEST(TaskType, EmptyNullAndForeignTextsFindNothing)
{
    EXPECT_EQ(Find(QString()), -1);
    EXPECT_EQ(Find(QStringLiteral("")), -1);
    EXPECT_EQ(Find(QStringLiteral("0")), -1);
    EXPECT_EQ(Find(QStringLiteral("Production Pool")), -1);
    EXPECT_EQ(Find(Support::Text("P\xd0\xbe\xd0\xbel")), -1); // Cyrillic letters of the same shape
}

TEST(TaskType, EveryGroupHoldsItsNumbersAndNoOthers)
{
    for (const Group& group : GROUPS) {
        for (const int number : Numbers())
            EXPECT_EQ(group.contains(Type(number)), group.members.count(number) == 1)
                << group.name << " of " << number;
    }
}

TEST(TaskType, ProductSpecificProductionsAreTivorButNoPlainProductions)
{
    EXPECT_FALSE(TaskType::IsProduction(TaskType::NG_Production));
    EXPECT_FALSE(TaskType::IsProduction(TaskType::Tivor));
    EXPECT_TRUE(TaskType::IsTivorProduction(TaskType::NG_Production));
    EXPECT_TRUE(TaskType::IsTivorProduction(TaskType::Tivor));
    EXPECT_FALSE(TaskType::IsTivorProduction(TaskType::Production));
}

TEST(TaskType, AnswersTheSameOnSeveralThreadsAtOnce)
{
    const std::vector<QString> expected = Answers();
    std::vector<std::future<std::vector<QString>>> threads;
    for (int i = 0; i < 4; ++i)
        threads.push_back(std::async(std::launch::async, Answers));
    for (auto& thread : threads)
        EXPECT_EQ(thread.get(), expected);
}
