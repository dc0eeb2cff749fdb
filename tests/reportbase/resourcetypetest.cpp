#include "support/expect.h"

#include <reportgenerator/reportbase/resourcetype.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <future>
#include <limits>
#include <set>
#include <type_traits>
#include <vector>

namespace ResourceType = REPORTGENERATOR::ResourceType;

namespace {

using ResourceType::ResourceTypeValue;

struct Row
{
    int number;
    ResourceTypeValue enumerator;
    const char* name;
    const char* shortName; ///< null when there is none
};

const Row ROWS[] = {
    {0, ResourceType::BaseIPCVoiceHF, "Base IPC Voice HF", nullptr},
    {1, ResourceType::BaseIPCDataTransmissionHF, "Base IPC Data Transmission HF", "Base IPC Data HF"},
    {2, ResourceType::BaseIPCClassifierHF, "Base IPC Classifier HF", "Base IPC Class HF"},
    {3, ResourceType::BaseIPCTunerHF, "Base IPC Tuner HF", nullptr},
    {4, ResourceType::BaseIPCTunerHFWB, "Base IPC Tuner HF WB", nullptr},
    {5, ResourceType::BaseIPCVoiceVUHF, "Base IPC Voice VUHF", nullptr},
    {6, ResourceType::BaseIPCDataTransmissionVUHF, "Base IPC Data Transmission VUHF", "Base IPC Data VUHF"},
    {7, ResourceType::BaseIPCClassifierVUHF, "Base IPC Classifier VUHF", "Base IPC Class VUHF"},
    {8, ResourceType::BaseIPCTunerVUHF, "Base IPC Tuner VUHF", nullptr},
    {9, ResourceType::BaseIPCTunerVUHFWB, "Base IPC Tuner VUHF WB", nullptr},
    {10, ResourceType::DDCIPCDetectionConventionalHF, "DDC IPC Detection Conventional HF",
     "DDC IPC Det Conv HF"},
    {11, ResourceType::DDCIPCDetectionConventionalVUHF, "DDC IPC Detection Conventional VUHF",
     "DDC IPC Det Conv VUHF"},
    {12, ResourceType::DDCIPCDetectionShortHF, "DDC IPC Detection Short HF", "DDC IPC Det Short HF"},
    {13, ResourceType::DDCIPCDetectionShortVUHF, "DDC IPC Detection Short VUHF", "DDC IPC Det Short VUHF"},
    {14, ResourceType::DDCIPCVoiceHF, "DDC IPC Voice HF", nullptr},
    {15, ResourceType::DDCIPCVoiceVUHF, "DDC IPC Voice VUHF", nullptr},
    {16, ResourceType::DDCIPCDataTransmissionHF, "DDC IPC Data Transmission HF", "DDC IPC Data HF"},
    {17, ResourceType::DDCIPCDataTransmissionVUHF, "DDC IPC Data Transmission VUHF", "DDC IPC Data VUHF"},
    {18, ResourceType::DDCIPCClassifierHF, "DDC IPC Classifier HF", "DDC IPC Class HF"},
    {19, ResourceType::DDCIPCClassifierVUHF, "DDC IPC Classifier VUHF", "DDC IPC Class VUHF"},
    {20, ResourceType::DDCIPCWBClassifierVUHF, "DDC IPC WB Classifier VUHF", nullptr},
    {21, ResourceType::DirectionFinder, "Direction Finder", nullptr},
    {22, ResourceType::SpectralZoomHF, "Spectral Zoom HF", nullptr},
    {23, ResourceType::SpectralZoomVUHF, "Spectral Zoom VUHF", nullptr},
    {24, ResourceType::BaseMemoryScanDataHF, "Base Memory Scan Data HF", nullptr},
    {25, ResourceType::BaseMemoryScanDataVUHF, "Base Memory Scan Data VUHF", nullptr},
    {26, ResourceType::BaseMemoryScanHF, "Base Memory Scan HF", nullptr},
    {27, ResourceType::BaseMemoryScanVUHF, "Base Memory Scan VUHF", nullptr},
    {28, ResourceType::Receiver, "Receiver", nullptr},
    {29, ResourceType::Sonvia, "Sonvia", nullptr},
    {30, ResourceType::DFLocate, "DF Locate", nullptr},
    {31, ResourceType::SurveillancePostprocessing, "Surveillance Postprocessing", nullptr},
    {32, ResourceType::SignalTracking, "Signal Tracking", nullptr},
    {33, ResourceType::KTx60, "KTx60", nullptr},
    {34, ResourceType::HV210, "HV210", nullptr},
    {35, ResourceType::KT120, "KT120", nullptr},
    {36, ResourceType::LW300, "LW300", nullptr},
    {37, ResourceType::NRQ2, "NRQ2", nullptr},
    {38, ResourceType::NRQ3, "NRQ3", nullptr},
    {39, ResourceType::NRQ4, "NRQ4", nullptr},
    {40, ResourceType::GPX270, "GPX270", nullptr},
    {41, ResourceType::LW600, "LW600", nullptr},
    {42, ResourceType::NRQ6, "NRQ6", nullptr},
    {43, ResourceType::GPX580, "GPX580", nullptr},
    {44, ResourceType::Raywatch, "Raywatch", nullptr},
    {45, ResourceType::ExciterHF, "Exciter HF", nullptr},
    {46, ResourceType::ExciterVUHF, "Exciter VUHF", nullptr},
    {47, ResourceType::KT530, "KT530", nullptr},
    {48, ResourceType::KT560, "KT560", nullptr},
    {49, ResourceType::Antenna, "Antenna", nullptr},
    {50, ResourceType::TZ418, "TZ418", nullptr},
};

struct Group
{
    const char* name;
    bool (*contains)(const ResourceTypeValue&);
    std::set<int> members;
};

const Group GROUPS[] = {
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
    {"IsHFResource", ResourceType::IsHFResource, {0, 1, 2, 3, 4, 10, 12, 14, 16, 18, 22, 24, 26, 28, 45, 47}},
    {"IsVUHFResource", ResourceType::IsVUHFResource, {5,  6,  7,  8,  9,  11, 13, 15, 17, 19, 20, 23,
                                                      25, 27, 34, 35, 37, 39, 40, 41, 42, 43, 46, 48}},
    {"IsProductionSC", ResourceType::IsProductionSC, {0, 1, 2, 3, 5, 6, 7, 8, 28, 35, 37, 39, 40, 47, 48}},
};

// The types that callers were compiled with; those of the group tests are fixed by the table above.
static_assert(std::is_same_v<std::underlying_type_t<ResourceTypeValue>, int>);
static_assert(std::is_same_v<decltype(&ResourceType::GetInvalidResourceType), ResourceTypeValue (*)()>);
static_assert(std::is_same_v<decltype(&ResourceType::IsValidResourceType), bool (*)(ResourceTypeValue)>);
static_assert(std::is_same_v<decltype(&ResourceType::ResourceTypeToName), QString (*)(ResourceTypeValue)>);
static_assert(
    std::is_same_v<decltype(&ResourceType::NameToResourceType), ResourceTypeValue (*)(const QString&)>);

ResourceTypeValue Type(int number)
{
    return static_cast<ResourceTypeValue>(number);
}

int Find(const QString& name)
{
    return static_cast<int>(ResourceType::NameToResourceType(name));
}

/// The numbers around the list and those that would fall into it if only a part of their bits counted.
std::vector<int> Numbers()
{
    std::vector<int> numbers = {std::numeric_limits<int>::min(),
                                std::numeric_limits<int>::min() + 1,
                                std::numeric_limits<int>::min() + 47,
                                std::numeric_limits<int>::max(),
                                std::numeric_limits<int>::max() - 1,
                                -65536,
                                -256,
                                -64,
                                256,
                                65536};
    for (int number = -2; number <= 60; ++number)
        numbers.push_back(number);
    for (int number = 61; number <= 64 + 60; ++number)
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
        if (Support::Text(row.name) == name || (row.shortName && Support::Text(row.shortName) == name))
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
        answers.push_back(ResourceType::ResourceTypeToName(Type(number)));
    for (const Row& row : ROWS)
        answers.push_back(QString::number(Find(Support::Text(row.name))));
    for (const Group& group : GROUPS) {
        for (const int number : Numbers())
            answers.push_back(QString::number(group.contains(Type(number)) ? 1 : 0));
    }
    return answers;
}

} // namespace

TEST(ResourceType, EnumeratorsHaveTheNumbersOfReportsAndPrograms)
{
    for (const Row& row : ROWS)
        EXPECT_EQ(static_cast<int>(row.enumerator), row.number) << row.name;
}

TEST(ResourceType, InvalidTypeIsMinusOne)
{
    EXPECT_EQ(static_cast<int>(ResourceType::GetInvalidResourceType()), -1);
}

TEST(ResourceType, OnlyZeroToFiftyAreValid)
{
    for (const int number : Numbers())
        EXPECT_EQ(ResourceType::IsValidResourceType(Type(number)), number >= 0 && number <= 50) << number;
}

TEST(ResourceType, EveryNumberGivesItsFullNameAndAllOthersUndefined)
{
    for (const int number : Numbers())
        EXPECT_TEXT(ResourceType::ResourceTypeToName(Type(number)), ExpectedName(number)) << number;
}

TEST(ResourceType, NumbersNextToTheListAreNamedUndefined)
{
    EXPECT_TEXT(ResourceType::ResourceTypeToName(Type(51)), "undefined");
    EXPECT_TEXT(ResourceType::ResourceTypeToName(Type(-1)), "undefined");
    EXPECT_TEXT(ResourceType::ResourceTypeToName(ResourceType::GetInvalidResourceType()), "undefined");
}

TEST(ResourceType, EveryFullNameGivesItsNumber)
{
    for (const Row& row : ROWS)
        EXPECT_EQ(Find(Support::Text(row.name)), row.number) << row.name;
}

TEST(ResourceType, EveryShortNameGivesItsNumber)
{
    int count = 0;
    for (const Row& row : ROWS) {
        if (row.shortName == nullptr)
            continue;
        EXPECT_EQ(Find(Support::Text(row.shortName)), row.number) << row.shortName;
        ++count;
    }
    EXPECT_EQ(count, 12);
}

TEST(ResourceType, ShortNamesAreReadButNotWritten)
{
    EXPECT_EQ(Find(QStringLiteral("DDC IPC Det Conv HF")), 10);
    EXPECT_TEXT(ResourceType::ResourceTypeToName(Type(10)), "DDC IPC Detection Conventional HF");
}

TEST(ResourceType, NamesThatCouldBeShortenedAlikeHaveNoShortName)
{
    // There is no short name with "Mem", with a shortened "Classifier" of the wideband kind, or of a mixed
    // form.
    for (const char* text : {"DDC IPC WB Class VUHF", "Base Mem Scan HF", "DDC IPC Det Conventional HF",
                             "DDC IPC Detection Conv HF", "DDC IPC Detection HF", "Base IPC Class"})
        EXPECT_EQ(Find(Support::Text(text)), -1) << text;
}

TEST(ResourceType, UndefinedIsWrittenButNotRead)
{
    EXPECT_EQ(Find(QStringLiteral("undefined")), -1);
}

TEST(ResourceType, NamesInOtherLettersFindNothing)
{
    EXPECT_EQ(Find(QStringLiteral("base ipc voice hf")), -1);
    EXPECT_EQ(Find(QStringLiteral("DDC IPC DET CONV HF")), -1);
    EXPECT_EQ(Find(QStringLiteral("KTX60")), -1);
    EXPECT_EQ(Find(QStringLiteral("nrq2")), -1);
}

TEST(ResourceType, TextsThatDifferLittleFromANameFindNothing)
{
    for (const Row& row : ROWS) {
        for (const char* name : {row.name, row.shortName}) {
            if (name == nullptr)
                continue;
            for (const QString& text : NearMisses(Support::Text(name)))
                EXPECT_EQ(Find(text), ExpectedNumber(text)) << ::testing::PrintToString(text);
        }
    }
}

TEST(ResourceType, EmptyNullAndForeignTextsFindNothing)
{
    EXPECT_EQ(Find(QString()), -1);
    EXPECT_EQ(Find(QStringLiteral("")), -1);
    EXPECT_EQ(Find(QStringLiteral(" ")), -1);
    EXPECT_EQ(Find(QStringLiteral("0")), -1);
    EXPECT_EQ(Find(QStringLiteral("Base  IPC Voice HF")), -1);
    EXPECT_EQ(Find(Support::Text("NRQ\xef\xbc\x92")), -1); // a full-width digit
}

TEST(ResourceType, EveryGroupHoldsItsNumbersAndNoOthers)
{
    for (const Group& group : GROUPS) {
        for (const int number : Numbers())
            EXPECT_EQ(group.contains(Type(number)), group.members.count(number) == 1)
                << group.name << " of " << number;
    }
}

TEST(ResourceType, SpectralZoomCountsAsDownConverter)
{
    EXPECT_TRUE(ResourceType::IsDDCResourceHF(ResourceType::SpectralZoomHF));
    EXPECT_TRUE(ResourceType::IsDDCResourceVUHF(ResourceType::SpectralZoomVUHF));
    EXPECT_FALSE(ResourceType::IsConnectableResource(ResourceType::SpectralZoomHF));
    EXPECT_FALSE(ResourceType::IsConnectableResource(ResourceType::SpectralZoomVUHF));
}

TEST(ResourceType, ResourcesWithoutARangeBelongToNeither)
{
    for (const int number : {21, 29, 30, 31, 32, 33, 36, 38, 44, 49, 50}) {
        EXPECT_FALSE(ResourceType::IsHFResource(Type(number))) << number;
        EXPECT_FALSE(ResourceType::IsVUHFResource(Type(number))) << number;
    }
}

TEST(ResourceType, NoResourceBelongsToBothRanges)
{
    for (const Row& row : ROWS)
        EXPECT_FALSE(ResourceType::IsHFResource(row.enumerator) &&
                     ResourceType::IsVUHFResource(row.enumerator))
            << row.name;
}

TEST(ResourceType, ReceiverOfNoParticularKindCountsAsHF)
{
    EXPECT_TRUE(ResourceType::IsHFResource(ResourceType::Receiver));
    EXPECT_FALSE(ResourceType::IsVUHFResource(ResourceType::Receiver));
    EXPECT_FALSE(ResourceType::IsBoxReceiver(ResourceType::Receiver));
}

TEST(ResourceType, SomeModelsAreNoBoxReceivers)
{
    for (const ResourceTypeValue type :
         {ResourceType::KTx60, ResourceType::LW300, ResourceType::NRQ3, ResourceType::Raywatch})
        EXPECT_FALSE(ResourceType::IsBoxReceiver(type)) << static_cast<int>(type);
}

TEST(ResourceType, WidebandTunersAreNoBaseResources)
{
    EXPECT_FALSE(ResourceType::IsBaseResourceHF(ResourceType::BaseIPCTunerHFWB));
    EXPECT_FALSE(ResourceType::IsBaseResourceVUHF(ResourceType::BaseIPCTunerVUHFWB));
    EXPECT_FALSE(ResourceType::IsProductionSC(ResourceType::BaseIPCTunerHFWB));
}

TEST(ResourceType, WidebandClassifierIsADownConverterButNotConnectable)
{
    EXPECT_TRUE(ResourceType::IsDDCResourceVUHF(ResourceType::DDCIPCWBClassifierVUHF));
    EXPECT_FALSE(ResourceType::IsConnectableResource(ResourceType::DDCIPCWBClassifierVUHF));
    EXPECT_FALSE(ResourceType::IsWBResourceVUHF(ResourceType::DDCIPCWBClassifierVUHF));
}

TEST(ResourceType, MemoryScanIsABaseResourceButNoProduction)
{
    EXPECT_TRUE(ResourceType::IsBaseResourceHF(ResourceType::BaseMemoryScanHF));
    EXPECT_TRUE(ResourceType::IsBaseResourceVUHF(ResourceType::BaseMemoryScanDataVUHF));
    EXPECT_FALSE(ResourceType::IsProductionSC(ResourceType::BaseMemoryScanHF));
    EXPECT_FALSE(ResourceType::IsProductionSC(ResourceType::BaseMemoryScanDataVUHF));
}

TEST(ResourceType, AnswersTheSameOnSeveralThreadsAtOnce)
{
    const std::vector<QString> expected = Answers();
    std::vector<std::future<std::vector<QString>>> threads;
    for (int i = 0; i < 4; ++i)
        threads.push_back(std::async(std::launch::async, Answers));
    for (auto& thread : threads)
        EXPECT_EQ(thread.get(), expected);
}
