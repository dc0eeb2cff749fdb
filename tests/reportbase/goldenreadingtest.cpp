// Every case of tests/vectors that is only read: input that the library would not write itself, and malformed
// input, compared with what the tables below say.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/golden.h"
#include "support/states.h"
#include "support/subject.h"
#include "support/vectors.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ReportBase;
using Support::AreaState;
using Support::BandwidthState;
using Support::CoordinateState;
using Support::ExpectOutcome;
using Support::FrequencyState;
using Support::Fresh;
using Support::GoldenClass;
using Support::InfoLine;
using Support::Joined;
using Support::LAKE_POINT;
using Support::LinesOfReadingBytes;
using Support::Maker;
using Support::Outcome;
using Support::OutcomeOf;
using Support::ReportState;
using Support::STREAM_VERSION;
using Support::Subject;
using Support::SubjectOf;
using Support::Text;

// --- The cases --------------------------------------------------------------------------------------------

struct FileCase
{
    QString folder;
    QString file; ///< within the folder, with its form
    std::function<std::unique_ptr<Subject>(bool isUsed, bool validate)> make;
    Outcome outcome; ///< also of reading that fails

    // Of input that is read:
    QStringList warnings = {};
    bool validates = true;
    bool isAccepted = true;
    bool checkRoot = true;

    // Of malformed input:
    bool needsValidation = false; ///< otherwise it fails whether the object validates or not
    bool isLogged = true;

    FileCase& Warns(const char* line)
    {
        warnings << Support::Text(line);
        return *this;
    }
    FileCase& NotValidating() { return Without(validates); }
    FileCase& Refused() { return Without(isAccepted); }
    FileCase& AnywhereInTheText() { return Without(checkRoot); }
    FileCase& NotLogged() { return Without(isLogged); }
    FileCase& OnlyWhenValidating()
    {
        needsValidation = true;
        return *this;
    }

    QString Path() const { return folder + QLatin1Char('/') + file; }
    QString ErrorPath() const { return Path().section(QLatin1Char('.'), 0, 0) + QLatin1String(".error"); }
    std::string TestName() const
    {
        QString name = folder.section(QLatin1Char('/'), 0, 0) + QLatin1Char('_') + file;
        return name.replace(QLatin1Char('.'), QLatin1Char('_')).toStdString();
    }

private:
    FileCase& Without(bool& property)
    {
        property = false;
        return *this;
    }
};

void PrintTo(const FileCase& fileCase, std::ostream* stream)
{
    *stream << fileCase.Path().toStdString();
}

template <class T>
FileCase CaseOf(const char* subfolder, const char* file, const typename SubjectOf<T>::State& state)
{
    FileCase fileCase;
    fileCase.folder = QLatin1String(GoldenClass<T>::FOLDER) + QLatin1String(subfolder);
    fileCase.file = QLatin1String(file);
    fileCase.make = [state](bool isUsed, bool validate) {
        return Maker<T>(isUsed ? GoldenClass<T>::Used(state) : Fresh<T>(state), validate)();
    };
    fileCase.outcome = OutcomeOf<T>(state);
    return fileCase;
}

template <class T>
FileCase Read(const char* file, const typename SubjectOf<T>::State& state)
{
    return CaseOf<T>("/read", file, state);
}

template <class T>
FileCase Malformed(const char* file, const typename SubjectOf<T>::State& leaves)
{
    return CaseOf<T>("/malformed", file, leaves);
}

constexpr const char* LONGITUDE_OUT_OF_RANGE = "WARNING: OutOfRangeException: Parameters for m_longitude are "
                                               "not set within range (-180, 180) in 'Coordinate'.";
constexpr const char* LATITUDE_OUT_OF_RANGE = "WARNING: OutOfRangeException: Parameters for m_latitude are "
                                              "not set within range (-90, 90) in 'Coordinate'.";

const std::nullopt_t NONE = std::nullopt;

AreaState AreaOf(const std::optional<QString>& name, const std::vector<CoordinateState>& coordinates,
                 const std::optional<QString>& scriptID, const char* initialVersionLoaded)
{
    return {name, coordinates, scriptID, Text(initialVersionLoaded)};
}

std::vector<FileCase> FrequencyReads()
{
    const auto F = Read<Frequency>;
    // value, min, max, use
    return {
        F("unknown_tag_in_the_middle.hex", {2.0, 1.0}),
        F("other_order.hex", {2.0, 1.0, 3.0, false}),
        F("repeated_elements.hex", {20.5, NONE, NONE, false}),
        F("no_elements.hex", {}),
        F("no_value.hex", {NONE, 1.0}),
        F("name_of_another_class.hex", {2.0}),
        F("other_root_tag.hex", {2.0}),
        F("bytes_after_the_end.hex", {2.0}),
        F("texts_that_are_not_numbers.hex", {0.0, 0.0, 0.0}),
        F("numbers_in_other_notations.hex", {17.0, 1000.0, 2500.125}),
        F("use_neither_0_nor_1.hex", {2.0, NONE, NONE, true}),
        F("lengths_wrong_but_sum_right.hex", {2.0, 1.0}),
        F("unknown_marker.hex", {}).Refused(),
        F("two_stored_blocks.zhex", {2.0, 1.0}),
        F("prefix_too_small.zhex", {2.0, 1.0}),
        F("damaged_data.zhex", {}),
        F("upper_flag_bits.raw.hex", {2.5}),
        F("comment_in_text.xml", {34.0}),
        F("cdata_in_text.xml", {56.0}),
        F("child_in_text.xml", {7.0, 1.0}),
        F("empty_element.xml", {0.0}),
        F("other_attribute_order.xml", {2.0, 1.0, 3.0, true}),
        F("use_false_in_capitals.xml", {2.0, NONE, NONE, false}),
        F("use_zero.xml", {2.0, NONE, NONE, false}),
        F("use_no_means_true.xml", {2.0, NONE, NONE, true}),
        F("use_empty_means_true.xml", {2.0, NONE, NONE, true}),
        F("texts_that_are_not_numbers.xml", {0.0, 0.0, 0.0}),
        F("blanks_around_the_number.xml", {12.5}),
        F("number_with_exponent.xml", {121850000.0}),
        F("inside_a_document.xml", {2.0, NONE, 3.0}).AnywhereInTheText(),
    };
}

std::vector<FileCase> BandwidthReads()
{
    const auto B = Read<IFBandwidth>;
    // value, min, max
    return {
        B("block_of_a_frequency.hex", {121500000.0, 117975000.0, 137000000.0}),
        B("other_order.hex", {2.0, 1.0, 3.0}),
        B("unknown_tag_in_the_middle.hex", {2.0, 1.0}),
        B("repeated_elements.hex", {2.0, 1.5}),
        B("flag_bit_3.raw.hex", {2.5, 1.5, 3.5}),
        B("use_is_not_looked_at.xml", {2.0, 1.0}),
        B("comment_in_text.xml", {34.0}),
        B("texts_that_are_not_numbers.xml", {0.0, NONE, 0.0}),
    };
}

std::vector<FileCase> CoordinateReads()
{
    const auto C = Read<Coordinate>;
    // longitude, latitude
    return {
        C("other_order.hex", {8.5, 47.25}),
        C("unknown_tag_in_the_middle.hex", {8.5, 47.25}),
        C("repeated_elements.hex", {9.5, 47.25}),
        C("no_elements.hex", {}),
        C("longitude_only.hex", {8.5}),
        C("texts_that_are_not_numbers.hex", {0.0, 0.0}),
        C("out_of_range.raw.hex", {200.0, -95.0}),
        C("other_order.xml", {8.5, 47.25}),
        C("unknown_child.xml", {8.5, 47.25}),
        C("repeated_child.xml", {8.5, 47.25}),
        C("comment_and_cdata_in_text.xml", {8.5, 47.25}),
        C("texts_that_are_not_numbers.xml", {0.0, 0.0}),
        C("out_of_range.xml", {180.000001, -90.000001})
            .NotValidating()
            .Warns(LONGITUDE_OUT_OF_RANGE)
            .Warns(LATITUDE_OUT_OF_RANGE),
    };
}

std::vector<FileCase> AreaReads()
{
    const auto A = Read<Area>;
    const QString lake = Text("Lake");
    const QString script = Text("S");
    const CoordinateState other = {9.0, 47.0};
    return {
        A("older_version_first.hex", AreaOf(lake, {LAKE_POINT}, script, "0.9")),
        A("older_version_in_the_middle.hex", AreaOf(NONE, {}, script, "0.9")),
        A("newer_version_in_the_middle.hex", AreaOf(lake, {LAKE_POINT}, script, "2.5")),
        A("version_that_is_not_a_number.hex", AreaOf(NONE, {}, NONE, "draft")),
        A("version_spelled_otherwise.hex", AreaOf(lake, {LAKE_POINT}, NONE, "1")),
        A("no_version.hex", AreaOf(lake, {LAKE_POINT}, NONE, "")),
        A("other_order.hex", AreaOf(lake, {LAKE_POINT}, script, "1.0")),
        A("unknown_tag_in_the_middle.hex", AreaOf(lake, {LAKE_POINT}, NONE, "1.0")),
        A("unknown_tag_in_a_coordinate.hex", AreaOf(lake, {LAKE_POINT, other}, NONE, "1.0")),
        A("repeated_elements.hex", AreaOf(Text("Second"), {LAKE_POINT, other}, NONE, "1.0")),
        A("no_elements.hex", {}),
        A("older_version.raw.hex", AreaOf(NONE, {LAKE_POINT}, NONE, "0.9")),
        A("flags_without_coordinates.raw.hex", AreaOf(lake, {LAKE_POINT}, NONE, "1.0")),
        A("no_version.xml", AreaOf(lake, {LAKE_POINT}, NONE, "")),
        A("older_version_unknown_child.xml", AreaOf(lake, {LAKE_POINT}, NONE, "0.9")),
        A("newer_version.xml", AreaOf(lake, {LAKE_POINT}, NONE, "1.5")),
        A("unknown_child_ends_the_area.xml", AreaOf(Text("Inner"), {LAKE_POINT}, NONE, "1.0"))
            .NotValidating()
            .Warns("WARNING: InvalidXmlException: Unknown Tag 'Extra' in 'Area'."),
        A("other_order.xml", AreaOf(lake, {LAKE_POINT}, script, "1.0")),
        A("repeated_children.xml", AreaOf(Text("Second"), {LAKE_POINT, LAKE_POINT}, NONE, "1.0")),
        A("empty_texts.xml", AreaOf(QStringLiteral(""), {LAKE_POINT}, QStringLiteral(""), "1.0")),
        A("references_and_cdata.xml",
          AreaOf(Text("Lake & Zürich"), {LAKE_POINT}, Text("<kept> & whole"), "1.0")),
    };
}

std::vector<FileCase> ReportReads()
{
    const auto R = Read<ReportBase>;
    const AreaState lake = AreaOf(Text("Lake"), {LAKE_POINT}, NONE, "1.0");
    return {
        R("other_order.hex", {FrequencyState{2.0}, BandwidthState{3.0}, lake}),
        R("unknown_child.hex", {FrequencyState{2.0}, BandwidthState{3.0}}),
        R("repeated_children.hex", {FrequencyState{4.0}}),
        R("empty_children.hex", {FrequencyState{}, BandwidthState{}, AreaState{}}),
        R("area_of_older_version.hex", {FrequencyState{2.0}, NONE, AreaOf(NONE, {}, NONE, "0.9")}),
        R("unknown_child.xml", {FrequencyState{2.0}, BandwidthState{3.0}}),
        R("other_order.xml", {FrequencyState{2.0}, BandwidthState{3.0}, lake}),
        R("comment_in_text.xml", {FrequencyState{34.0}}),
        // A frequency in XML doesn't start anew, as one in a binary form does: min is left from the first
        // one.
        R("repeated_children.xml", {FrequencyState{4.0, 1.0}}),
    };
}

std::vector<FileCase> DoubleReads()
{
    const auto D = Read<Double>;
    const QString name = Text("Threshold");
    // name, value, minimum, maximum, default, unit
    return {
        D("default_gives_the_value.xml", {name, 5.0, NONE, NONE, 5.0}),
        D("value_overrides_default.xml", {name, 6.0, NONE, NONE, 5.0, Text("dB")}),
        D("comment_in_text.xml", {name, 34.0}),
        D("texts_that_are_not_numbers.xml", {name, 0.0, 0.0, 0.0}),
        D("unknown_child_ends_the_reading.xml", {name, 6.0}),
        D("repeated_child.xml", {name, 7.0}),
    };
}

std::vector<FileCase> AllReads()
{
    return Joined(
        {FrequencyReads(), BandwidthReads(), CoordinateReads(), AreaReads(), ReportReads(), DoubleReads()});
}

std::vector<FileCase> FrequencyMalformed()
{
    const auto F = Malformed<Frequency>;
    // value, min, max, use
    return {
        F("root_length_4_too_long.hex", {2.0, 1.0}),
        F("root_length_1_too_short.hex", {2.0, 1.0}),
        F("root_length_negative.hex", {}),
        F("element_length_too_long.hex", {NONE, 1.0}),
        F("element_length_negative.hex", {2.0, 1.0}),
        F("unknown_element_length_negative.hex", {NONE, 1.0}),
        F("unknown_element_overruns.hex", {2.0}),
        F("end_tag_missing.xml", {}),
        F("wrong_end_tag.xml", {}),
    };
}

std::vector<FileCase> BandwidthMalformed()
{
    const auto B = Malformed<IFBandwidth>;
    // value, min, max
    return {
        B("root_length_4_too_long.hex", {2.0}),
        B("root_length_1_too_short.hex", {2.0}),
        B("root_length_negative.hex", {}),
    };
}

std::vector<FileCase> CoordinateMalformed()
{
    const auto C = Malformed<Coordinate>;
    // longitude, latitude
    return {
        C("root_length_4_too_long.hex", {8.5, 47.25}),
        C("root_length_1_too_short.hex", {8.5, 47.25}),
        C("root_length_negative.hex", {}),
        C("element_length_too_short.hex", {8.5, 47.25}),
        C("longitude_out_of_range.hex", {}).OnlyWhenValidating(),
        C("latitude_out_of_range.hex", {8.5}).OnlyWhenValidating(),
        C("latitude_not_a_number.hex", {8.5}).OnlyWhenValidating(),
        C("longitude_missing.xml", {NONE, 47.25}).OnlyWhenValidating(),
        C("latitude_missing.xml", {8.5}).OnlyWhenValidating(),
        C("end_tag_missing.xml", {8.5}),
    };
}

std::vector<FileCase> AreaMalformed()
{
    const auto A = Malformed<Area>;
    const QString lake = Text("Lake");
    const AreaState nameOnly = AreaOf(lake, {}, NONE, "1.0");
    const AreaState nameAndPoint = AreaOf(lake, {LAKE_POINT}, NONE, "1.0");
    return {
        A("root_length_4_too_long.hex", nameAndPoint),
        A("root_length_1_too_short.hex", nameAndPoint),
        A("root_length_negative.hex", {}),
        A("count_1_too_large.hex", nameAndPoint),
        A("count_huge.hex", nameAndPoint),
        A("coordinate_length_too_long.hex", nameOnly),
        A("coordinates_length_too_long.hex", nameAndPoint),
        A("null_name.hex", AreaOf(NONE, {}, NONE, "1.0")).OnlyWhenValidating(),
        A("null_script.hex", nameAndPoint).OnlyWhenValidating(),
        A("coordinate_without_latitude.hex", nameOnly).OnlyWhenValidating(),
        A("no_coordinates.xml", nameOnly).OnlyWhenValidating(),
        A("no_name.xml", AreaOf(NONE, {LAKE_POINT}, NONE, "1.0")).OnlyWhenValidating(),
        A("unknown_child.xml", nameOnly).OnlyWhenValidating(),
        A("incomplete_coordinate.xml", nameOnly).OnlyWhenValidating(),
        A("coordinate_out_of_range.xml", nameOnly).OnlyWhenValidating(),
        A("end_tag_missing.xml", nameAndPoint),
    };
}

std::vector<FileCase> ReportMalformed()
{
    const auto R = Malformed<ReportBase>;
    const ReportState frequencyOnly = {FrequencyState{2.0}};
    return {
        R("root_length_4_too_long.hex", frequencyOnly),
        R("root_length_1_too_short.hex", frequencyOnly),
        R("root_length_negative.hex", {}),
        R("unknown_child_overruns.hex", frequencyOnly),
        // A child counts as present once it has been read, which it has not.
        R("child_length_4_too_long.hex", {}),
        R("area_without_coordinates.xml", {FrequencyState{2.0}, NONE, AreaOf(Text("Lake"), {}, NONE, "1.0")})
            .OnlyWhenValidating(),
        R("unknown_child_of_area.xml", frequencyOnly).OnlyWhenValidating(),
    };
}

std::vector<FileCase> DoubleMalformed()
{
    const auto D = Malformed<Double>;
    const QString name = Text("Threshold");
    // name, value, minimum, maximum, default, unit
    return {
        D("no_value.xml", {name, NONE, 1.0, 2.0, NONE, Text("dB")}).OnlyWhenValidating().NotLogged(),
        D("unknown_child_before_the_value.xml", {name, NONE, 1.0}).OnlyWhenValidating().NotLogged(),
        D("end_tag_missing.xml", {name, 6.0}),
    };
}

std::vector<FileCase> AllMalformed()
{
    return Joined({FrequencyMalformed(), BandwidthMalformed(), CoordinateMalformed(), AreaMalformed(),
                   ReportMalformed(), DoubleMalformed()});
}

// --- Steps of the tests -----------------------------------------------------------------------------------

/// Reads the file of a case in its form, and returns what the reader returned.
bool ReadVector(Subject& subject, const QString& path, bool checkRoot)
{
    if (path.endsWith(QLatin1String(".xml")))
        return subject.Object().SetXmlString(Support::LoadXmlVector(path), checkRoot);
    QByteArray bytes = Support::LoadVector(path).Data();
    if (!path.endsWith(QLatin1String(".raw.hex")))
        return subject.Object().SetBinaryRepresentation(bytes);
    QDataStream stream(bytes);
    stream.setVersion(STREAM_VERSION);
    subject.ReadRaw(stream);
    return true;
}

QStringList LinesOfReading(const QString& className, const QString& path)
{
    if (path.endsWith(QLatin1String(".xml")))
        return QStringList(InfoLine(className, ": Loading xml string."));
    if (path.endsWith(QLatin1String(".raw.hex")))
        return {};
    return LinesOfReadingBytes(className);
}

class GoldenReading : public ::testing::TestWithParam<FileCase>
{
};

class GoldenMalformed : public ::testing::TestWithParam<FileCase>
{
};

} // namespace

// --- Input that the library would not write ---------------------------------------------------------------

TEST_P(GoldenReading, IntoANewObject)
{
    const FileCase& readCase = GetParam();
    const std::shared_ptr<REPORTGENERATOR::ListLogger> logger = Support::NewLogger();
    const std::unique_ptr<Subject> subject = readCase.make(false, readCase.validates);
    subject->Object().SetLogger(logger);
    EXPECT_NO_RG_THROW(
        EXPECT_EQ(ReadVector(*subject, readCase.Path(), readCase.checkRoot), readCase.isAccepted));
    ExpectOutcome(*subject, readCase.outcome);
    EXPECT_LOG(logger,
               LinesOfReading(subject->Object().GetObjectName(), readCase.Path()) + readCase.warnings);
}

TEST_P(GoldenReading, IntoAUsedObject)
{
    const FileCase& readCase = GetParam();
    const std::unique_ptr<Subject> subject = readCase.make(true, readCase.validates);
    // The raw reader of an area appends to what is there.
    if (readCase.Path().startsWith(QLatin1String("area/")) &&
        readCase.Path().endsWith(QLatin1String(".raw.hex")))
        subject->Object().Reset();
    const std::string before = subject->Description();
    EXPECT_NO_RG_THROW(
        EXPECT_EQ(ReadVector(*subject, readCase.Path(), readCase.checkRoot), readCase.isAccepted));
    if (readCase.isAccepted)
        ExpectOutcome(*subject, readCase.outcome);
    else
        EXPECT_EQ(subject->Description(), before);
}

TEST_P(GoldenMalformed, IsReportedAndLoggedAsFatalAndLeavesWhatWasRead)
{
    const FileCase& malformed = GetParam();
    const Support::ExpectedError error = Support::LoadError(malformed.ErrorPath());
    for (const bool isUsed : {false, true}) {
        for (const bool hasLogger : {false, true}) {
            const std::shared_ptr<REPORTGENERATOR::ListLogger> logger = Support::NewLogger();
            const std::unique_ptr<Subject> subject = malformed.make(isUsed, true);
            if (hasLogger)
                subject->Object().SetLogger(logger);
            EXPECT_RG_THROW(ReadVector(*subject, malformed.Path(), true), error.name, error.text);
            EXPECT_EQ(subject->Description(), malformed.outcome.description);
            if (!hasLogger)
                continue;
            QStringList lines = LinesOfReading(subject->Object().GetObjectName(), malformed.Path());
            if (malformed.isLogged)
                lines << QLatin1String("FATAL ERROR: ") + error.name + QLatin1String(": ") + error.text;
            EXPECT_LOG(logger, lines);
            EXPECT_EQ(logger->HasErrors(), malformed.isLogged);
        }
    }
}

TEST_P(GoldenMalformed, IsReportedWithoutValidationUnlessOnlyACheckFoundIt)
{
    const FileCase& malformed = GetParam();
    const Support::ExpectedError error = Support::LoadError(malformed.ErrorPath());
    const std::unique_ptr<Subject> subject = malformed.make(false, false);
    if (malformed.needsValidation) {
        EXPECT_NO_RG_THROW(EXPECT_TRUE(ReadVector(*subject, malformed.Path(), true)));
        return;
    }
    EXPECT_RG_THROW(ReadVector(*subject, malformed.Path(), true), error.name, error.text);
    EXPECT_EQ(subject->Description(), malformed.outcome.description);
}

TEST(GoldenVectors, EachFileThatIsOnlyReadBelongsToACaseAndEachCaseHasItsFiles)
{
    std::set<QString> named;
    for (const FileCase& readCase : AllReads())
        named.insert(readCase.Path());
    for (const FileCase& malformedCase : AllMalformed()) {
        named.insert(malformedCase.Path());
        named.insert(malformedCase.ErrorPath());
    }
    Support::ExpectVectorFiles(named, [](const QString& path) { return path.count(QLatin1Char('/')) != 1; });
}

namespace {

const auto NAME_OF_FILE = [](const auto& info) { return info.param.TestName(); };

INSTANTIATE_TEST_SUITE_P(Vectors, GoldenReading, ::testing::ValuesIn(AllReads()), NAME_OF_FILE);
INSTANTIATE_TEST_SUITE_P(Vectors, GoldenMalformed, ::testing::ValuesIn(AllMalformed()), NAME_OF_FILE);

} // namespace
