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

// A sub-sensor stands at its place among the sensor nodes, which go on behind the sub-sensors; device data may also
// use names with a colon, and their PM is no PMCW.
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

/// Every spelling that any of the lists holds, texts that differ little from one, and others that are none.
std::vector<QString> Texts()
{
    const Names lastSensorNodes = {"FMNEG", "PMCW"};
    std::vector<QString> texts = {QString(), QStringLiteral("")};
    for (const char* none : {"0", "undefined", "Am", "FM pos", "lEVEL", "Cw", "Rds", "AM POS", "AMPos",
                             "AM::POS", "AM:", ":", "\xce\x91M"})
        texts.push_back(Support::Text(none));
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

TEST(MeasurementType, AnswersTheSameOnSeveralThreadsAtOnce)
{
    Support::ExpectTheSameOnSeveralThreadsAtOnce(Answers);
}
