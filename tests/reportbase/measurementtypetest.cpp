#include "support/expect.h"
#include "support/vocabularies.h"

#include <reportgenerator/reportbase/measurementtype.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <cstddef>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

namespace MeasurementType = REPORTGENERATOR::MeasurementType;

namespace {

using MeasurementType::MeasurementTypeValue;
using MeasurementType::SubSensorTypeValue;

// What each number is called; the place in the list is the number.
using Names = std::vector<const char*>;

const Names MEASUREMENT_NAMES = {"Level", "Offset", "FStrength", "AM", "AM Pos",    "AM Neg",
                                 "FM",    "FM Pos", "FM Neg",    "PM", "Bandwidth", "RDS"};
const Names MEASUREMENT_NODE_NAMES = {"LEVEL", "OFFSET", "FSTRENGTH", "AM", "AMPOS",     "AMNEG",
                                      "FM",    "FMPOS",  "FMNEG",     "PM", "BANDWIDTH", "RDS"};
const Names SUB_SENSOR_NAMES = {"AM", "AM Pos", "AM Neg", "FM", "FM Pos", "FM Neg", "PM", "CW"};
const Names SUB_SENSOR_COLON_NAMES = {"AM", "AM:POS", "AM:NEG", "FM", "FM:POS", "FM:NEG", "PM", "CW"};
const Names SUB_SENSOR_NODE_NAMES = {"LEVEL", "OFFSET", "FSTRENGTH", "AM", "AMPOS", "AMNEG", "FM", "FMPOS"};

// The types that callers were compiled with.
template <class Function, class Result, class Argument>
constexpr bool TAKES = std::is_same_v<Function, Result (*)(Argument)>;
static_assert(std::is_same_v<std::underlying_type_t<MeasurementTypeValue>, int>);
static_assert(std::is_same_v<std::underlying_type_t<SubSensorTypeValue>, int>);
static_assert(
    std::is_same_v<decltype(&MeasurementType::GetInvalidMeasurementType), MeasurementTypeValue (*)()>);
static_assert(std::is_same_v<decltype(&MeasurementType::GetInvalidSSubSensorType), SubSensorTypeValue (*)()>);
static_assert(TAKES<decltype(&MeasurementType::IsValidMeasurementType), bool, const MeasurementTypeValue&>);
static_assert(TAKES<decltype(&MeasurementType::IsValidSubSensorType), bool, const SubSensorTypeValue&>);
static_assert(TAKES<decltype(&MeasurementType::SubSensorTypeToNodeName), QString, const SubSensorTypeValue&>);
static_assert(TAKES<decltype(&MeasurementType::NodeNameToSubSensorType), SubSensorTypeValue, const QString&>);
static_assert(
    TAKES<decltype(&MeasurementType::SensorNodeNameToMeasurementType), MeasurementTypeValue, const QString&>);

template <MeasurementTypeValue (*Lookup)(const QString&)>
int Measurement(const QString& text)
{
    return static_cast<int>(Lookup(text));
}

template <SubSensorTypeValue (*Lookup)(const QString&)>
int SubSensor(const QString& text)
{
    return static_cast<int>(Lookup(text));
}

template <QString (*Spell)(const MeasurementTypeValue&)>
QString OfMeasurement(int number)
{
    return Spell(static_cast<MeasurementTypeValue>(number));
}

template <QString (*Spell)(const SubSensorTypeValue&)>
QString OfSubSensor(int number)
{
    return Spell(static_cast<SubSensorTypeValue>(number));
}

struct Spelling
{
    const char* name;
    QString (*spell)(int);
    Names expected;
};

const Spelling SPELLINGS[] = {
    {"MeasurementTypeToName", OfMeasurement<MeasurementType::MeasurementTypeToName>, MEASUREMENT_NAMES},
    {"MeasurementTypeToNodeName", OfMeasurement<MeasurementType::MeasurementTypeToNodeName>,
     MEASUREMENT_NODE_NAMES},
    {"SubSensorTypeToName", OfSubSensor<MeasurementType::SubSensorTypeToName>, SUB_SENSOR_NAMES},
    {"SubSensorTypeToSkpiName", OfSubSensor<MeasurementType::SubSensorTypeToSkpiName>,
     SUB_SENSOR_COLON_NAMES},
    {"SubSensorTypeToNodeName", OfSubSensor<MeasurementType::SubSensorTypeToNodeName>, SUB_SENSOR_NODE_NAMES},
};

using Known = std::vector<std::pair<const char*, int>>;

/// The names with their places as numbers, and others with theirs.
Known Numbered(const Names& names, const Known& others = {})
{
    Known known;
    for (std::size_t i = 0; i < names.size(); ++i)
        known.emplace_back(names[i], static_cast<int>(i));
    known.insert(known.end(), others.begin(), others.end());
    return known;
}

struct Lookup
{
    const char* name;
    int (*find)(const QString&);
    Known known; ///< every other text gives -1
};

const Lookup LOOKUPS[] = {
    {"NameToMeasurementType", Measurement<MeasurementType::NameToMeasurementType>,
     Numbered(MEASUREMENT_NAMES)},
    {"NodeNameToMeasurementType", Measurement<MeasurementType::NodeNameToMeasurementType>,
     Numbered(MEASUREMENT_NODE_NAMES)},
    {"NameToSubSensorType", SubSensor<MeasurementType::NameToSubSensorType>, Numbered(SUB_SENSOR_NAMES)},
    {"SkpiNameToSubSensorType", SubSensor<MeasurementType::SkpiNameToSubSensorType>,
     Numbered(SUB_SENSOR_COLON_NAMES)},
    {"NodeNameToSubSensorType", SubSensor<MeasurementType::NodeNameToSubSensorType>,
     Numbered(SUB_SENSOR_NODE_NAMES, {{"FMNEG", 8}, {"PMCW", 9}})},
    {"SensorNodeNameToMeasurementType", Measurement<MeasurementType::SensorNodeNameToMeasurementType>,
     Numbered(MEASUREMENT_NODE_NAMES, {{"AM:POS", 4}, {"AM:NEG", 5}, {"FM:POS", 7}, {"FM:NEG", 8}})},
};

int Expected(const Lookup& lookup, const QString& text)
{
    for (const auto& [known, number] : lookup.known) {
        if (Support::Text(known) == text)
            return number;
    }
    return -1;
}

std::vector<int> Numbers()
{
    return Support::NumbersAround({std::numeric_limits<int>::min() + 7});
}

/// Every spelling that any of the lists holds, and texts that differ little from one.
std::vector<QString> Texts()
{
    const Names lastSensorNodes = {"FMNEG", "PMCW"};
    std::vector<QString> texts;
    for (const Names& names : {MEASUREMENT_NAMES, MEASUREMENT_NODE_NAMES, SUB_SENSOR_NAMES,
                               SUB_SENSOR_COLON_NAMES, SUB_SENSOR_NODE_NAMES, lastSensorNodes}) {
        for (const char* utf8 : names) {
            const QString name = Support::Text(utf8);
            texts.push_back(name);
            const std::vector<QString> nearMisses = Support::NearMisses(name);
            texts.insert(texts.end(), nearMisses.begin(), nearMisses.end());
        }
    }
    return texts;
}

/// What all functions answer for the numbers and texts of this file.
std::vector<QString> Answers()
{
    std::vector<QString> answers;
    for (const Spelling& spelling : SPELLINGS) {
        for (const int number : Numbers())
            answers.push_back(spelling.spell(number));
    }
    for (const Lookup& lookup : LOOKUPS) {
        for (const QString& text : Texts())
            answers.push_back(QString::number(lookup.find(text)));
    }
    return answers;
}

int FromDeviceData(const char* text)
{
    return static_cast<int>(MeasurementType::SensorNodeNameToMeasurementType(Support::Text(text)));
}

} // namespace

TEST(MeasurementType, MeasurementEnumeratorsHaveTheirNumbers)
{
    const MeasurementTypeValue enumerators[] = {
        MeasurementType::Level, MeasurementType::Offset, MeasurementType::FStrength, MeasurementType::AM,
        MeasurementType::AMPos, MeasurementType::AMNeg,  MeasurementType::FM,        MeasurementType::FMPos,
        MeasurementType::FMNeg, MeasurementType::PM,     MeasurementType::Bandwidth, MeasurementType::RDS};
    int number = 0;
    for (const MeasurementTypeValue enumerator : enumerators)
        EXPECT_EQ(static_cast<int>(enumerator), number++);
    EXPECT_EQ(number, 12);
}

TEST(MeasurementType, SubSensorEnumeratorsHaveTheirNumbers)
{
    const SubSensorTypeValue enumerators[] = {
        MeasurementType::SubSensorAM, MeasurementType::SubSensorAMPos, MeasurementType::SubSensorAMNeg,
        MeasurementType::SubSensorFM, MeasurementType::SubSensorFMPos, MeasurementType::SubSensorFMNeg,
        MeasurementType::SubSensorPM, MeasurementType::SubSensorCW};
    int number = 0;
    for (const SubSensorTypeValue enumerator : enumerators)
        EXPECT_EQ(static_cast<int>(enumerator), number++);
    EXPECT_EQ(number, 8);
}

TEST(MeasurementType, InvalidNumbersAreMinusOneAndTheSubSensorsKeepsItsDoubleS)
{
    EXPECT_EQ(static_cast<int>(MeasurementType::GetInvalidMeasurementType()), -1);
    EXPECT_EQ(static_cast<int>(MeasurementType::GetInvalidSSubSensorType()), -1);
}

TEST(MeasurementType, OnlyZeroToElevenAreValidMeasurementTypes)
{
    for (const int number : Numbers())
        EXPECT_EQ(MeasurementType::IsValidMeasurementType(static_cast<MeasurementTypeValue>(number)),
                  number >= 0 && number <= 11)
            << number;
}

TEST(MeasurementType, OnlyZeroToSevenAreValidSubSensorTypes)
{
    for (const int number : Numbers())
        EXPECT_EQ(MeasurementType::IsValidSubSensorType(static_cast<SubSensorTypeValue>(number)),
                  number >= 0 && number <= 7)
            << number;
}

TEST(MeasurementType, EveryNumberGivesItsSpellingsAndAllOthersAnEmptyText)
{
    for (const Spelling& spelling : SPELLINGS) {
        const int count = static_cast<int>(spelling.expected.size());
        for (const int number : Numbers()) {
            const bool valid = number >= 0 && number < count;
            const char* expected = valid ? spelling.expected[static_cast<std::size_t>(number)] : "";
            EXPECT_TEXT(spelling.spell(number), expected) << spelling.name << " of " << number;
        }
    }
}

TEST(MeasurementType, NumbersNextToTheListsHaveNoName)
{
    EXPECT_TRUE(OfMeasurement<MeasurementType::MeasurementTypeToName>(12).isEmpty());
    EXPECT_TRUE(OfMeasurement<MeasurementType::MeasurementTypeToNodeName>(12).isEmpty());
    EXPECT_TRUE(OfMeasurement<MeasurementType::MeasurementTypeToName>(-1).isEmpty());
    EXPECT_TRUE(OfSubSensor<MeasurementType::SubSensorTypeToName>(-1).isEmpty());
    EXPECT_TRUE(OfSubSensor<MeasurementType::SubSensorTypeToName>(8).isEmpty());
    EXPECT_TRUE(OfSubSensor<MeasurementType::SubSensorTypeToSkpiName>(8).isEmpty());
}

TEST(MeasurementType, EveryLookupFindsItsTextsAndNoOthers)
{
    for (const Lookup& lookup : LOOKUPS) {
        for (const auto& [text, number] : lookup.known)
            EXPECT_EQ(lookup.find(Support::Text(text)), number) << lookup.name << " of " << text;
        for (const QString& text : Texts())
            EXPECT_EQ(lookup.find(text), Expected(lookup, text))
                << lookup.name << " of " << ::testing::PrintToString(text);
    }
}

TEST(MeasurementType, TextsInOtherLettersFindNothing)
{
    for (const Lookup& lookup : LOOKUPS) {
        for (const char* text :
             {"am", "Am", "fm pos", "FM pos", "level", "lEVEL", "am:pos", "Cw", "Rds", "pmcw"})
            EXPECT_EQ(lookup.find(Support::Text(text)), -1) << lookup.name << " of " << text;
    }
}

TEST(MeasurementType, EmptyNullAndForeignTextsFindNothing)
{
    for (const Lookup& lookup : LOOKUPS) {
        EXPECT_EQ(lookup.find(QString()), -1) << lookup.name;
        EXPECT_EQ(lookup.find(QStringLiteral("")), -1) << lookup.name;
        for (const char* text : {"0", "undefined", "AM POS", "AMPos", "AM::POS", "AM:", ":", "\xce\x91M"})
            EXPECT_EQ(lookup.find(Support::Text(text)), -1) << lookup.name << " of " << text;
    }
}

TEST(MeasurementType, SubSensorNodeNamesAreTakenWithoutOffset)
{
    EXPECT_TEXT(MeasurementType::SubSensorTypeToNodeName(MeasurementType::SubSensorAM), "LEVEL");
    EXPECT_TEXT(MeasurementType::SubSensorTypeToNodeName(MeasurementType::SubSensorFM), "AM");
    EXPECT_TEXT(MeasurementType::SubSensorTypeToNodeName(MeasurementType::SubSensorPM), "FM");
    EXPECT_TEXT(MeasurementType::SubSensorTypeToNodeName(MeasurementType::SubSensorCW), "FMPOS");
}

TEST(MeasurementType, SensorNodesBeyondTheSubSensorsAreFoundButNotGiven)
{
    EXPECT_TEXT(MeasurementType::SubSensorTypeToNodeName(static_cast<SubSensorTypeValue>(8)), "");
    EXPECT_TEXT(MeasurementType::SubSensorTypeToNodeName(static_cast<SubSensorTypeValue>(9)), "");
    const SubSensorTypeValue fmNegative = MeasurementType::NodeNameToSubSensorType(QStringLiteral("FMNEG"));
    const SubSensorTypeValue pmOrCw = MeasurementType::NodeNameToSubSensorType(QStringLiteral("PMCW"));
    EXPECT_EQ(static_cast<int>(fmNegative), 8);
    EXPECT_EQ(static_cast<int>(pmOrCw), 9);
    EXPECT_FALSE(MeasurementType::IsValidSubSensorType(fmNegative));
    EXPECT_FALSE(MeasurementType::IsValidSubSensorType(pmOrCw));
}

TEST(MeasurementType, NodeNamesThatAreNoSensorNodesAreNoSubSensors)
{
    for (const char* text : {"PM", "CW", "BANDWIDTH", "RDS", "AM:POS", "AM Pos"})
        EXPECT_EQ(SubSensor<MeasurementType::NodeNameToSubSensorType>(Support::Text(text)), -1) << text;
}

TEST(MeasurementType, DeviceDataMayUseNodeNamesOrColonNames)
{
    EXPECT_EQ(FromDeviceData("AMPOS"), 4);
    EXPECT_EQ(FromDeviceData("AM:POS"), 4);
    EXPECT_EQ(FromDeviceData("AM:NEG"), 5);
    EXPECT_EQ(FromDeviceData("FM:POS"), 7);
    EXPECT_EQ(FromDeviceData("FM:NEG"), 8);
}

TEST(MeasurementType, NodeNamesOfDeviceDataGoBeforeColonNames)
{
    // As sub-sensors AM and FM are 0 and 3, PM stands at PMCW, which is not measured.
    EXPECT_EQ(FromDeviceData("AM"), 3);
    EXPECT_EQ(FromDeviceData("FM"), 6);
    EXPECT_EQ(FromDeviceData("PM"), 9);
}

TEST(MeasurementType, CwOfDeviceDataIsNoMeasurement)
{
    EXPECT_EQ(FromDeviceData("CW"), -1);
    EXPECT_EQ(FromDeviceData("PMCW"), -1);
}

TEST(MeasurementType, DeviceDataNeverUseDisplayNames)
{
    for (const char* text : {"Level", "FStrength", "AM Pos", "FM Neg", "Bandwidth"})
        EXPECT_EQ(FromDeviceData(text), -1) << text;
}

TEST(MeasurementType, AnswersTheSameOnSeveralThreadsAtOnce)
{
    Support::ExpectTheSameOnSeveralThreadsAtOnce(Answers);
}
