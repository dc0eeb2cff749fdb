// The vocabularies whose numbers have a name each and stand in groups: what holds for all of their numbers
// and names.

#include "support/expect.h"
#include "support/vocabularies.h"

#include <reportgenerator/reportbase/resourcetype.h>
#include <reportgenerator/reportbase/tasktype.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <limits>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace ResourceType = REPORTGENERATOR::ResourceType;
namespace TaskType = REPORTGENERATOR::TaskType;

namespace {

using ResourceType::ResourceTypeValue;
using Support::Text;
using TaskType::TaskTypeValue;

// The types that callers were compiled with; those of the group tests are fixed by the tables.
static_assert(std::is_same_v<decltype(&TaskType::GetInvalidTaskType), TaskTypeValue (*)()>);
static_assert(std::is_same_v<decltype(&TaskType::IsValidTaskType), bool (*)(TaskTypeValue)>);
static_assert(std::is_same_v<decltype(&TaskType::TaskTypeToName), QString (*)(TaskTypeValue)>);
static_assert(std::is_same_v<decltype(&TaskType::NameToTaskType), TaskTypeValue (*)(const QString&)>);
static_assert(std::is_same_v<decltype(&ResourceType::GetInvalidResourceType), ResourceTypeValue (*)()>);
static_assert(std::is_same_v<decltype(&ResourceType::IsValidResourceType), bool (*)(ResourceTypeValue)>);
static_assert(std::is_same_v<decltype(&ResourceType::ResourceTypeToName), QString (*)(ResourceTypeValue)>);
static_assert(
    std::is_same_v<decltype(&ResourceType::NameToResourceType), ResourceTypeValue (*)(const QString&)>);

template <class Value>
struct Row
{
    int number;
    Value enumerator;
    const char* name;
    const char* shortName = nullptr; ///< is read, but not written
};

template <class Value>
struct Group
{
    const char* name;
    bool (*contains)(const Value&);
    std::set<int> members;
};

template <class Value>
struct Vocabulary;

// --- TaskType ---------------------------------------------------------------------------------------------

template <>
struct Vocabulary<TaskTypeValue>
{
    static constexpr const char* NAME = "TaskType";
    static constexpr int LAST = 10;
    static constexpr int SHORT_NAMES = 0;

    static TaskTypeValue Invalid() { return TaskType::GetInvalidTaskType(); }
    static bool IsValid(TaskTypeValue type) { return TaskType::IsValidTaskType(type); }
    static QString ToName(TaskTypeValue type) { return TaskType::TaskTypeToName(type); }
    static TaskTypeValue Find(const QString& name) { return TaskType::NameToTaskType(name); }

    static std::vector<Row<TaskTypeValue>> Rows()
    {
        return {
            {0, TaskType::Production, "Production"}, {1, TaskType::Pool, "Pool"},
            {2, TaskType::Search, "Search"},         {3, TaskType::Surveillance, "Surveillance"},
            {4, TaskType::Tuner, "Tuner"},           {5, TaskType::Other, "Other"},
            {6, TaskType::Exciter, "Exciter"},       {7, TaskType::Antenna, "Antenna"},
            {8, TaskType::DFScan, "DFScan"},         {9, TaskType::NG_Production, "NG_Production"},
            {10, TaskType::Tivor, "Tivor"},
        };
    }

    static std::vector<Group<TaskTypeValue>> Groups()
    {
        return {
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
    }

    static std::vector<int> Numbers()
    {
        return Support::NumbersAround({std::numeric_limits<int>::min() + 9});
    }

    static std::vector<const char*> OtherLetters()
    {
        return {"production", "POOL", "Dfscan", "ng_Production"};
    }

    /// The last one has Cyrillic letters of the same shape.
    static std::vector<const char*> ForeignTexts()
    {
        return {"", "0", "Production Pool", "P\xd0\xbe\xd0\xbel"};
    }
};

// --- ResourceType -----------------------------------------------------------------------------------------

template <>
struct Vocabulary<ResourceTypeValue>
{
    static constexpr const char* NAME = "ResourceType";
    static constexpr int LAST = 50;
    static constexpr int SHORT_NAMES = 12;

    static ResourceTypeValue Invalid() { return ResourceType::GetInvalidResourceType(); }
    static bool IsValid(ResourceTypeValue type) { return ResourceType::IsValidResourceType(type); }
    static QString ToName(ResourceTypeValue type) { return ResourceType::ResourceTypeToName(type); }
    static ResourceTypeValue Find(const QString& name) { return ResourceType::NameToResourceType(name); }

    static std::vector<Row<ResourceTypeValue>> Rows()
    {
        return {
            {0, ResourceType::BaseIPCVoiceHF, "Base IPC Voice HF"},
            {1, ResourceType::BaseIPCDataTransmissionHF, "Base IPC Data Transmission HF", "Base IPC Data HF"},
            {2, ResourceType::BaseIPCClassifierHF, "Base IPC Classifier HF", "Base IPC Class HF"},
            {3, ResourceType::BaseIPCTunerHF, "Base IPC Tuner HF"},
            {4, ResourceType::BaseIPCTunerHFWB, "Base IPC Tuner HF WB"},
            {5, ResourceType::BaseIPCVoiceVUHF, "Base IPC Voice VUHF"},
            {6, ResourceType::BaseIPCDataTransmissionVUHF, "Base IPC Data Transmission VUHF",
             "Base IPC Data VUHF"},
            {7, ResourceType::BaseIPCClassifierVUHF, "Base IPC Classifier VUHF", "Base IPC Class VUHF"},
            {8, ResourceType::BaseIPCTunerVUHF, "Base IPC Tuner VUHF"},
            {9, ResourceType::BaseIPCTunerVUHFWB, "Base IPC Tuner VUHF WB"},
            {10, ResourceType::DDCIPCDetectionConventionalHF, "DDC IPC Detection Conventional HF",
             "DDC IPC Det Conv HF"},
            {11, ResourceType::DDCIPCDetectionConventionalVUHF, "DDC IPC Detection Conventional VUHF",
             "DDC IPC Det Conv VUHF"},
            {12, ResourceType::DDCIPCDetectionShortHF, "DDC IPC Detection Short HF", "DDC IPC Det Short HF"},
            {13, ResourceType::DDCIPCDetectionShortVUHF, "DDC IPC Detection Short VUHF",
             "DDC IPC Det Short VUHF"},
            {14, ResourceType::DDCIPCVoiceHF, "DDC IPC Voice HF"},
            {15, ResourceType::DDCIPCVoiceVUHF, "DDC IPC Voice VUHF"},
            {16, ResourceType::DDCIPCDataTransmissionHF, "DDC IPC Data Transmission HF", "DDC IPC Data HF"},
            {17, ResourceType::DDCIPCDataTransmissionVUHF, "DDC IPC Data Transmission VUHF",
             "DDC IPC Data VUHF"},
            {18, ResourceType::DDCIPCClassifierHF, "DDC IPC Classifier HF", "DDC IPC Class HF"},
            {19, ResourceType::DDCIPCClassifierVUHF, "DDC IPC Classifier VUHF", "DDC IPC Class VUHF"},
            {20, ResourceType::DDCIPCWBClassifierVUHF, "DDC IPC WB Classifier VUHF"},
            {21, ResourceType::DirectionFinder, "Direction Finder"},
            {22, ResourceType::SpectralZoomHF, "Spectral Zoom HF"},
            {23, ResourceType::SpectralZoomVUHF, "Spectral Zoom VUHF"},
            {24, ResourceType::BaseMemoryScanDataHF, "Base Memory Scan Data HF"},
            {25, ResourceType::BaseMemoryScanDataVUHF, "Base Memory Scan Data VUHF"},
            {26, ResourceType::BaseMemoryScanHF, "Base Memory Scan HF"},
            {27, ResourceType::BaseMemoryScanVUHF, "Base Memory Scan VUHF"},
            {28, ResourceType::Receiver, "Receiver"},
            {29, ResourceType::Sonvia, "Sonvia"},
            {30, ResourceType::DFLocate, "DF Locate"},
            {31, ResourceType::SurveillancePostprocessing, "Surveillance Postprocessing"},
            {32, ResourceType::SignalTracking, "Signal Tracking"},
            {33, ResourceType::KTx60, "KTx60"},
            {34, ResourceType::HV210, "HV210"},
            {35, ResourceType::KT120, "KT120"},
            {36, ResourceType::LW300, "LW300"},
            {37, ResourceType::NRQ2, "NRQ2"},
            {38, ResourceType::NRQ3, "NRQ3"},
            {39, ResourceType::NRQ4, "NRQ4"},
            {40, ResourceType::GPX270, "GPX270"},
            {41, ResourceType::LW600, "LW600"},
            {42, ResourceType::NRQ6, "NRQ6"},
            {43, ResourceType::GPX580, "GPX580"},
            {44, ResourceType::Raywatch, "Raywatch"},
            {45, ResourceType::ExciterHF, "Exciter HF"},
            {46, ResourceType::ExciterVUHF, "Exciter VUHF"},
            {47, ResourceType::KT530, "KT530"},
            {48, ResourceType::KT560, "KT560"},
            {49, ResourceType::Antenna, "Antenna"},
            {50, ResourceType::TZ418, "TZ418"},
        };
    }

    static std::vector<Group<ResourceTypeValue>> Groups()
    {
        return {
            {"IsBaseResourceHF", ResourceType::IsBaseResourceHF, {0, 1, 2, 3, 24, 26}},
            {"IsBaseResourceVUHF", ResourceType::IsBaseResourceVUHF, {5, 6, 7, 8, 25, 27}},
            {"IsWBResourceHF", ResourceType::IsWBResourceHF, {4}},
            {"IsWBResourceVUHF", ResourceType::IsWBResourceVUHF, {9}},
            {"IsDDCResourceHF", ResourceType::IsDDCResourceHF, {10, 12, 14, 16, 18, 22}},
            {"IsDDCResourceVUHF", ResourceType::IsDDCResourceVUHF, {11, 13, 15, 17, 19, 20, 23}},
            {"IsDetectionConventionalResource", ResourceType::IsDetectionConventionalResource, {10, 11}},
            {"IsDetectionShorttime", ResourceType::IsDetectionShorttime, {12, 13}},
            {"IsConnectableResource", ResourceType::IsConnectableResource, {14, 15, 16, 17, 18, 19}},
            {"IsBoxReceiver", ResourceType::IsBoxReceiver, {34, 35, 37, 39, 40, 41, 42, 43, 47, 48}},
            {"IsBoxReceiverHF", ResourceType::IsBoxReceiverHF, {47}},
            {"IsBoxReceiverVUHF", ResourceType::IsBoxReceiverVUHF, {34, 35, 37, 39, 40, 41, 42, 43, 48}},
            {"IsHFResource",
             ResourceType::IsHFResource,
             {0, 1, 2, 3, 4, 10, 12, 14, 16, 18, 22, 24, 26, 28, 45, 47}},
            {"IsVUHFResource",
             ResourceType::IsVUHFResource,
             {5, 6, 7, 8, 9, 11, 13, 15, 17, 19, 20, 23, 25, 27, 34, 35, 37, 39, 40, 41, 42, 43, 46, 48}},
            {"IsProductionSC",
             ResourceType::IsProductionSC,
             {0, 1, 2, 3, 5, 6, 7, 8, 28, 35, 37, 39, 40, 47, 48}},
        };
    }

    static std::vector<int> Numbers()
    {
        std::vector<int> numbers = {std::numeric_limits<int>::min() + 47, -64};
        for (int number = 61; number <= 64 + 60; ++number)
            numbers.push_back(number);
        return Support::NumbersAround(numbers);
    }

    static std::vector<const char*> OtherLetters()
    {
        return {"base ipc voice hf", "DDC IPC DET CONV HF", "KTX60", "nrq2"};
    }

    /// No short name has "Mem", a shortened "Classifier" of the wideband kind, or is of a mixed form. The last one has a
    /// full-width digit.
    static std::vector<const char*> ForeignTexts()
    {
        return {"",
                " ",
                "0",
                "Base  IPC Voice HF",
                "DDC IPC WB Class VUHF",
                "Base Mem Scan HF",
                "DDC IPC Det Conventional HF",
                "DDC IPC Detection Conv HF",
                "DDC IPC Detection HF",
                "Base IPC Class",
                "NRQ\xef\xbc\x92"};
    }
};

// --- What holds for both ----------------------------------------------------------------------------------

struct ClassNames
{
    template <class Value>
    static std::string GetName(int)
    {
        return Vocabulary<Value>::NAME;
    }
};

template <class Value>
class NamedNumbers : public ::testing::Test
{
protected:
    using Words = Vocabulary<Value>;

    static Value Type(int number) { return static_cast<Value>(number); }
    static int Find(const QString& name) { return static_cast<int>(Words::Find(name)); }

    static QString ExpectedName(int number)
    {
        for (const Row<Value>& row : Words::Rows()) {
            if (row.number == number)
                return Text(row.name);
        }
        return QStringLiteral("undefined");
    }

    static int ExpectedNumber(const QString& name)
    {
        for (const Row<Value>& row : Words::Rows()) {
            if (Text(row.name) == name || (row.shortName && Text(row.shortName) == name))
                return row.number;
        }
        return -1;
    }

    /// What the look-ups answer for the numbers and names of this file.
    static std::vector<QString> Answers()
    {
        std::vector<QString> answers;
        for (const int number : Words::Numbers())
            answers.push_back(Words::ToName(Type(number)));
        for (const Row<Value>& row : Words::Rows())
            answers.push_back(QString::number(Find(Text(row.name))));
        for (const Group<Value>& group : Words::Groups()) {
            for (const int number : Words::Numbers())
                answers.push_back(QString::number(group.contains(Type(number)) ? 1 : 0));
        }
        return answers;
    }
};

using Vocabularies = ::testing::Types<TaskTypeValue, ResourceTypeValue>;
TYPED_TEST_SUITE(NamedNumbers, Vocabularies, ClassNames);

} // namespace

TYPED_TEST(NamedNumbers, EnumeratorsHaveTheNumbersOfReportsAndPrograms)
{
    static_assert(std::is_same_v<std::underlying_type_t<TypeParam>, int>);
    for (const Row<TypeParam>& row : Vocabulary<TypeParam>::Rows())
        EXPECT_EQ(static_cast<int>(row.enumerator), row.number) << row.name;
    EXPECT_EQ(static_cast<int>(Vocabulary<TypeParam>::Rows().size()), Vocabulary<TypeParam>::LAST + 1);
}

TYPED_TEST(NamedNumbers, InvalidTypeIsMinusOneAndHasNoName)
{
    EXPECT_EQ(static_cast<int>(Vocabulary<TypeParam>::Invalid()), -1);
    EXPECT_TEXT(Vocabulary<TypeParam>::ToName(Vocabulary<TypeParam>::Invalid()), "undefined");
}

TYPED_TEST(NamedNumbers, OnlyTheNumbersOfTheListAreValid)
{
    for (const int number : Vocabulary<TypeParam>::Numbers())
        EXPECT_EQ(Vocabulary<TypeParam>::IsValid(this->Type(number)),
                  number >= 0 && number <= Vocabulary<TypeParam>::LAST)
            << number;
}

TYPED_TEST(NamedNumbers, EveryNumberGivesItsNameAndAllOthersUndefined)
{
    for (const int number : Vocabulary<TypeParam>::Numbers())
        EXPECT_TEXT(Vocabulary<TypeParam>::ToName(this->Type(number)), this->ExpectedName(number)) << number;
}

TYPED_TEST(NamedNumbers, NumbersNextToTheListAreNamedUndefined)
{
    EXPECT_TEXT(Vocabulary<TypeParam>::ToName(this->Type(Vocabulary<TypeParam>::LAST + 1)), "undefined");
    EXPECT_TEXT(Vocabulary<TypeParam>::ToName(this->Type(-1)), "undefined");
}

TYPED_TEST(NamedNumbers, EveryNameGivesItsNumber)
{
    int shortNames = 0;
    for (const Row<TypeParam>& row : Vocabulary<TypeParam>::Rows()) {
        EXPECT_EQ(this->Find(Text(row.name)), row.number) << row.name;
        if (row.shortName == nullptr)
            continue;
        EXPECT_EQ(this->Find(Text(row.shortName)), row.number) << row.shortName;
        ++shortNames;
    }
    EXPECT_EQ(shortNames, Vocabulary<TypeParam>::SHORT_NAMES);
}

TYPED_TEST(NamedNumbers, UndefinedIsWrittenButNotRead)
{
    EXPECT_EQ(this->Find(QStringLiteral("undefined")), -1);
}

TYPED_TEST(NamedNumbers, NamesInOtherLettersFindNothing)
{
    for (const char* name : Vocabulary<TypeParam>::OtherLetters())
        EXPECT_EQ(this->Find(Text(name)), -1) << name;
}

TYPED_TEST(NamedNumbers, TextsThatDifferLittleFromANameFindNothing)
{
    for (const Row<TypeParam>& row : Vocabulary<TypeParam>::Rows()) {
        for (const char* name : {row.name, row.shortName}) {
            if (name == nullptr)
                continue;
            for (const QString& text : Support::NearMisses(Text(name)))
                EXPECT_EQ(this->Find(text), this->ExpectedNumber(text)) << ::testing::PrintToString(text);
        }
    }
}

TYPED_TEST(NamedNumbers, EmptyNullAndForeignTextsFindNothing)
{
    EXPECT_EQ(this->Find(QString()), -1);
    for (const char* text : Vocabulary<TypeParam>::ForeignTexts())
        EXPECT_EQ(this->Find(Text(text)), -1) << text;
}

TYPED_TEST(NamedNumbers, EveryGroupHoldsItsNumbersAndNoOthers)
{
    for (const Group<TypeParam>& group : Vocabulary<TypeParam>::Groups()) {
        for (const int number : Vocabulary<TypeParam>::Numbers())
            EXPECT_EQ(group.contains(this->Type(number)), group.members.count(number) == 1)
                << group.name << " of " << number;
    }
}

TYPED_TEST(NamedNumbers, AnswerTheSameOnSeveralThreadsAtOnce)
{
    Support::ExpectTheSameOnSeveralThreadsAtOnce(this->Answers);
}
