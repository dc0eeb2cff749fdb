#include "support/expect.h"

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/objecttypes.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <iterator>
#include <limits>
#include <type_traits>

namespace {

using REPORTGENERATOR::GetInValidObjectTypes;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::IsValidObjectTypes;
using REPORTGENERATOR::NameToObjectTypes;
using REPORTGENERATOR::ObjectTypes;
using REPORTGENERATOR::ObjectTypesToName;
using Support::Text;

constexpr int COUNT = 40;
constexpr int FIRST_NUMBER = -2;
constexpr int LAST_NUMBER = 100;

struct Row
{
    int number;
    const char* name;
};

constexpr Row CATALOGUE[] = {
    {0, "Tivor_Report"},
    {1, "Demodulator_Settings"},
    {5, "Location"},
    {6, "Results"},
    {8, "COB_Settings"},
    {30, "Text"},
    {33, "Audio"},
    {37, "PS_RAD_Result"},
    {38, "GenericReceiver"},
    {40, "Job"},
    {41, "JobHeader"},
    {42, "Task"},
    {43, "TaskHeader"},
    {44, "TaskTime"},
    {45, "TaskSchedule"},
    {46, "TaskTimeClient"},
    {47, "RepeatDefinition"},
    {48, "RepeatDaily"},
    {49, "RepeatWeekly"},
    {50, "RepeatMonthlyByDay"},
    {51, "RepeatMonthlyByDate"},
    {52, "TaskReport"},
    {53, "TaskSite"},
    {54, "TaskPoolData"},
    {55, "TaskActionSearch"},
    {56, "TaskActionSurveillance"},
    {57, "TaskActionProduction"},
    {58, "TaskActionTunerMC"},
    {59, "TaskActionOther"},
    {60, "TaskSearchRange"},
    {61, "TaskPlanner"},
    {62, "ReportPlanner"},
    {67, "AntennaData"},
    {69, "Exciter_Settings"},
    {71, "EDM_Export_Import_File"},
    {73, "TaskPlanner_Command"},
    {74, "EDSettings"},
    {75, "ActivityDetectionSettings"},
    {76, "DataViewer_Command"},
    {80, "AnyType"},
};
static_assert(std::size(CATALOGUE) == COUNT);

ObjectTypes Kind(int number)
{
    return static_cast<ObjectTypes>(number);
}

/// The name that the catalogue gives a number; null for a gap.
const char* NameInCatalogue(int number)
{
    for (const Row& row : CATALOGUE) {
        if (row.number == number)
            return row.name;
    }
    return nullptr;
}

} // namespace

TEST(ObjectTypes, IsAnUnscopedEnumerationOf32Bits)
{
    static_assert(std::is_enum_v<ObjectTypes>);
    static_assert(std::is_same_v<std::underlying_type_t<ObjectTypes>, int>);
    static_assert(sizeof(ObjectTypes) == 4);
    static_assert(std::is_convertible_v<ObjectTypes, int>);
}

TEST(ObjectTypes, EveryNumberHasTheNameOfTheCatalogueOrNone)
{
    for (int number = FIRST_NUMBER; number <= LAST_NUMBER; ++number) {
        SCOPED_TRACE(number);
        const char* name = NameInCatalogue(number);
        EXPECT_TEXT(ObjectTypesToName(Kind(number)), name == nullptr ? "" : name);
        EXPECT_EQ(IsValidObjectTypes(Kind(number)), name != nullptr);
        EXPECT_TEXT(IRGObject::GetXmlTagName(Kind(number)), name == nullptr ? "" : name);
    }
}

TEST(ObjectTypes, EveryNameGivesItsNumber)
{
    for (const Row& row : CATALOGUE) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(static_cast<int>(NameToObjectTypes(Text(row.name))), row.number);
    }
}

TEST(ObjectTypes, NumbersFarOutsideTheCatalogueHaveNoName)
{
    for (const int number : {-1, -80, 101, 256, 256 + 80, 65536 + 42, -111111,
                             std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        SCOPED_TRACE(number);
        EXPECT_TEXT(ObjectTypesToName(Kind(number)), "");
        EXPECT_FALSE(IsValidObjectTypes(Kind(number)));
    }
}

TEST(ObjectTypes, NamesMustMatchExactly)
{
    for (const char* name :
         {"anytype", "ANYTYPE", "anyType", "AnyType ", " AnyType", "AnyTyp", "AnyTypes", "", " ", "80",
          "tivor_report", "Tivor Report", "Frequency", "ReportBase", "Ta%sk"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(static_cast<int>(NameToObjectTypes(Text(name))), -1);
    }
    EXPECT_EQ(static_cast<int>(NameToObjectTypes(QString())), -1);
    EXPECT_EQ(static_cast<int>(NameToObjectTypes(Text("Task") + QChar(0))), -1);
}

TEST(ObjectTypes, EveryNameInOtherCaseIsUnknown)
{
    for (const Row& row : CATALOGUE) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(static_cast<int>(NameToObjectTypes(Text(row.name).toUpper())), -1);
        EXPECT_EQ(static_cast<int>(NameToObjectTypes(Text(row.name).toLower())), -1);
    }
}

TEST(ObjectTypes, InvalidKindIsMinusOneAndHasNoName)
{
    EXPECT_EQ(static_cast<int>(GetInValidObjectTypes()), -1);
    EXPECT_TEXT(ObjectTypesToName(GetInValidObjectTypes()), "");
    EXPECT_FALSE(IsValidObjectTypes(GetInValidObjectTypes()));
}

TEST(ObjectTypes, FunctionsTakeTheKindByReferenceAndReturnByValue)
{
    static_assert(std::is_same_v<decltype(&ObjectTypesToName), QString (*)(const ObjectTypes&)>);
    static_assert(std::is_same_v<decltype(&NameToObjectTypes), ObjectTypes (*)(const QString&)>);
    static_assert(std::is_same_v<decltype(&IsValidObjectTypes), bool (*)(const ObjectTypes&)>);
    static_assert(std::is_same_v<decltype(&GetInValidObjectTypes), ObjectTypes (*)()>);
    static_assert(std::is_same_v<decltype(&IRGObject::GetXmlTagName), QString (*)(ObjectTypes)>);
}
