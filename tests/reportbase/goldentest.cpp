// Every case of tests/vectors: what is written is compared with the files, what is read with what the tables
// below say.

#include "support/bytes.h"
#include "support/expect.h"
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

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#include <algorithm>
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
using Support::DoubleState;
using Support::FrequencyState;
using Support::ReportState;
using Support::Subject;
using Support::SubjectOf;

constexpr int STREAM_VERSION = 12;

using SubjectMaker = std::function<std::unique_ptr<Subject>()>;

/// What an object holds in the end.
struct Outcome
{
    std::string description;
    SubjectMaker equal; ///< an object that equals it; none when the setters can't make one
};

// --- What differs between the classes ---------------------------------------------------------------------

template <class T>
struct ClassOf;

template <>
struct ClassOf<Frequency>
{
    static constexpr const char* FOLDER = "frequency";
    static FrequencyState Used(const FrequencyState&) { return {1.0, 2.0, 3.0, false}; }
};

template <>
struct ClassOf<IFBandwidth>
{
    static constexpr const char* FOLDER = "ifbandwidth";
    static BandwidthState Used(const BandwidthState&) { return {1.0, 2.0, 3.0}; }
};

template <>
struct ClassOf<Coordinate>
{
    static constexpr const char* FOLDER = "coordinate";
    static CoordinateState Used(const CoordinateState&) { return {10.0, 20.0}; }
};

template <>
struct ClassOf<Area>
{
    static constexpr const char* FOLDER = "area";
    static AreaState Used(const AreaState&)
    {
        return {QStringLiteral("Used"), {{1.0, 2.0}, {3.0, 4.0}}, QStringLiteral("Old")};
    }
};

template <>
struct ClassOf<ReportBase>
{
    static constexpr const char* FOLDER = "reportbase";
    static ReportState Used(const ReportState&)
    {
        return {ClassOf<Frequency>::Used({}), ClassOf<IFBandwidth>::Used({}), ClassOf<Area>::Used({})};
    }
};

template <>
struct ClassOf<Double>
{
    static constexpr const char* FOLDER = "double";
    static DoubleState Used(const DoubleState& state)
    {
        return {state.name, 1.0, 0.5, 2.5, 1.5, QStringLiteral("km")};
    }
};

/// The state after loading: an area then knows the version that it found, which is 1.0 in what the library
/// writes.
template <class State>
State Loaded(const State& state)
{
    return state;
}

AreaState Loaded(const AreaState& state)
{
    AreaState loaded = state;
    if (loaded.initialVersionLoaded.isEmpty())
        loaded.initialVersionLoaded = QStringLiteral("1.0");
    return loaded;
}

ReportState Loaded(const ReportState& state)
{
    ReportState loaded = state;
    if (loaded.area)
        loaded.area = Loaded(*loaded.area);
    return loaded;
}

/// What reading a raw form gives in an object that holds something. The raw readers reset nothing: an area
/// appends.
template <class State>
State RawOver(const State&, const State& read)
{
    return read;
}

AreaState RawOver(const AreaState& used, const AreaState& read)
{
    AreaState both = read;
    both.coordinatesSet = read.AreCoordinatesSet();
    both.coordinates = used.coordinates;
    both.coordinates.insert(both.coordinates.end(), read.coordinates.begin(), read.coordinates.end());
    return both;
}

ReportState RawOver(const ReportState& used, const ReportState& read)
{
    ReportState both = read;
    if (read.area && used.area)
        both.area = RawOver(*used.area, *read.area);
    return both;
}

template <class State>
bool CanBeFilled(const State&)
{
    return true;
}

bool CanBeFilled(const AreaState& state)
{
    return state.AreCoordinatesSet() || state.coordinates.empty();
}

bool CanBeFilled(const ReportState& state)
{
    return !state.area || CanBeFilled(*state.area);
}

template <class T, class State>
SubjectMaker Maker(const State& state, bool validate)
{
    return [state, validate]() -> std::unique_ptr<Subject> {
        return std::make_unique<SubjectOf<T>>(state, validate);
    };
}

template <class T, class State>
Outcome OutcomeOf(const State& state)
{
    return {Describe(state), CanBeFilled(state) ? Maker<T>(state, false) : SubjectMaker()};
}

/// An object without data; a Double has to know its name, by which it finds its element.
template <class T, class State>
State Fresh(const State&)
{
    return {};
}

template <>
DoubleState Fresh<Double, DoubleState>(const DoubleState& state)
{
    return {state.name};
}

// --- Cases that are written and read ----------------------------------------------------------------------

struct GoldenCase
{
    QString folder;
    QString name;
    bool validate = true;

    SubjectMaker written;
    SubjectMaker fresh;
    SubjectMaker used;

    Outcome fromXml;
    Outcome fromTagged;
    Outcome fromRaw;
    Outcome fromRawIntoUsed;

    QStringList xmlWritingWarnings;
    QStringList xmlReadingWarnings;
    QStringList taggedReadingWarnings;
    QStringList rawReadingWarnings;

    bool HasBinaryForms() const { return fresh()->HasBinaryForms(); }
    QString Path(const char* form) const
    {
        return folder + QLatin1Char('/') + name + QLatin1Char('.') + QLatin1String(form);
    }
    std::string TestName() const { return (folder + QLatin1Char('_') + name).toStdString(); }
    QString ClassName() const { return fresh()->Object().GetObjectName(); }
};

void PrintTo(const GoldenCase& goldenCase, std::ostream* stream)
{
    *stream << goldenCase.TestName();
}

/// One line of the tables below: by default what is read is what was written.
template <class T>
class Row
{
public:
    using State = typename SubjectOf<T>::State;

    Row(const char* name, const State& state) : m_written(state)
    {
        m_case.folder = QLatin1String(ClassOf<T>::FOLDER);
        m_case.name = QLatin1String(name);
    }

    Row& NotValidating()
    {
        m_case.validate = false;
        return *this;
    }
    Row& FromXml(const State& state)
    {
        m_fromXml = state;
        return *this;
    }
    Row& FromTagged(const State& state)
    {
        m_fromTagged = state;
        return *this;
    }
    Row& FromXmlAndTagged(const State& state) { return FromXml(state).FromTagged(state); }
    Row& XmlWritingWarns(const char* line)
    {
        m_case.xmlWritingWarnings << Support::Text(line);
        return *this;
    }
    Row& TaggedReadingWarns(const char* line)
    {
        m_case.taggedReadingWarnings << Support::Text(line);
        return *this;
    }
    Row& XmlAndTaggedReadingWarn(const char* line)
    {
        m_case.xmlReadingWarnings << Support::Text(line);
        return TaggedReadingWarns(line);
    }
    Row& RawReadingWarns(const char* line)
    {
        m_case.rawReadingWarnings << Support::Text(line);
        return *this;
    }

    operator GoldenCase() const
    {
        const State used = ClassOf<T>::Used(m_written);
        GoldenCase goldenCase = m_case;
        goldenCase.written = Maker<T>(m_written, m_case.validate);
        goldenCase.fresh = Maker<T>(Fresh<T>(m_written), m_case.validate);
        goldenCase.used = Maker<T>(used, m_case.validate);
        goldenCase.fromXml = OutcomeOf<T>(Loaded(m_fromXml.value_or(m_written)));
        goldenCase.fromTagged = OutcomeOf<T>(Loaded(m_fromTagged.value_or(m_written)));
        goldenCase.fromRaw = OutcomeOf<T>(Loaded(m_written));
        goldenCase.fromRawIntoUsed = OutcomeOf<T>(RawOver(used, Loaded(m_written)));
        return goldenCase;
    }

private:
    GoldenCase m_case;
    State m_written;
    std::optional<State> m_fromXml;
    std::optional<State> m_fromTagged;
};

constexpr const char* NULL_NAME =
    "WARNING: OutOfRangeException: Area: Please set Name properly (origin: Setter).";
constexpr const char* NULL_SCRIPT =
    "WARNING: OutOfRangeException: Area: Please set ScriptID properly (origin: Setter).";
constexpr const char* WRITES_INCOMPLETE =
    "WARNING: IncompleteDefinitionException: Parameters for Coordinate are not set properly in 'Area'.";
constexpr const char* APPENDS_INCOMPLETE =
    "WARNING: IncompleteDefinitionException: Area: Tried to append not completely "
    "defined or invalid item Coordinate.";
constexpr const char* LONGITUDE_OUT_OF_RANGE = "WARNING: OutOfRangeException: Parameters for m_longitude are "
                                               "not set within range (-180, 180) in 'Coordinate'.";
constexpr const char* LATITUDE_OUT_OF_RANGE = "WARNING: OutOfRangeException: Parameters for m_latitude are "
                                              "not set within range (-90, 90) in 'Coordinate'.";

const std::nullopt_t NONE = std::nullopt;

QString Text(const char* utf8)
{
    return Support::Text(utf8);
}

std::vector<GoldenCase> FrequencyCases()
{
    using F = Row<Frequency>;
    // value, min, max, use
    return {
        F("value_only", {433920000.0}),
        F("min_and_value", {433920000.0, 433000000.0}),
        F("min_max_use_value", {121500000.0, 117975000.0, 137000000.0, true}),
        F("use_false", {2182000.0, NONE, NONE, false}),
        F("unset_value", {NONE, NONE, 108000000.0})
            .NotValidating()
            .FromXmlAndTagged({0.0, NONE, 108000000.0}),
        F("nothing_set", {}).NotValidating().FromXmlAndTagged({0.0}),
        F("negative", {-1234.56, -5000.0, -0.5}),
        F("large", {1e9, NONE, 1e15}),
        F("rounding", {99.999, 1.005, 0.125}).FromXmlAndTagged({100.0, 1.0, 0.13}),
        F("rounds_to_negative_zero", {-0.001}).FromXmlAndTagged({-0.0}),
    };
}

std::vector<GoldenCase> BandwidthCases()
{
    using B = Row<IFBandwidth>;
    // value, min, max
    return {
        B("value_only", {120000.0}),
        B("min_max_value", {8333.33, 6250.0, 25000.0}),
        B("unset_value", {NONE, 1000.0}).NotValidating().FromXmlAndTagged({0.0, 1000.0}),
        B("nothing_set", {}).NotValidating().FromXmlAndTagged({0.0}),
        B("negative_and_large", {1e9, -0.004, 1e12}).FromXmlAndTagged({1e9, -0.0, 1e12}),
        B("rounding", {3.125, -2.375, 0.625}).FromXmlAndTagged({3.13, -2.38, 0.63}),
    };
}

std::vector<GoldenCase> CoordinateCases()
{
    using C = Row<Coordinate>;
    // longitude, latitude
    return {
        C("east_south", {8.5, -45.25}),
        C("west_north_extremes", {-180.0, 90.0}),
        C("east_south_extremes", {180.0, -90.0}),
        C("origin", {0.0, 0.0}),
        C("rounding", {8.12345678, -0.0078125}).FromXmlAndTagged({8.123457, -0.007813}),
        C("unset_latitude", {8.5}).NotValidating().FromXmlAndTagged({8.5, 0.0}),
        C("nothing_set", {}).NotValidating().FromXmlAndTagged({0.0, 0.0}),
        C("out_of_range", {200.0, -95.0})
            .NotValidating()
            .XmlAndTaggedReadingWarn(LONGITUDE_OUT_OF_RANGE)
            .XmlAndTaggedReadingWarn(LATITUDE_OUT_OF_RANGE),
    };
}

const CoordinateState LAKE_POINT = {8.5, 47.25};

std::vector<GoldenCase> AreaCases()
{
    using A = Row<Area>;
    const QString null;
    const QString empty = QStringLiteral("");
    // name, coordinates, script identifier
    return {
        A("name_one_point", {Text("Lake"), {LAKE_POINT}}),
        A("utf8_name_three_points_script", {Text("Zürichsee & <Ost> \"€\" 𝄞"),
                                            {{8.54, 47.36}, {8.685, 47.258}, {-0.25, -12.0}},
                                            Text("HF-2182/é")}),
        A("empty_name_empty_script", {empty, {LAKE_POINT}, empty}),
        A("same_point_twice", {Text("Loop"), {LAKE_POINT, {9.0, 47.25}, LAKE_POINT}}),
        A("nothing_set", {})
            .NotValidating()
            .FromXml({empty})
            .FromTagged({null})
            .TaggedReadingWarns(NULL_NAME),
        A("flagged_but_empty", {Text("A"), {}, NONE, {}, true}).NotValidating().FromXmlAndTagged({Text("A")}),
        A("null_name_null_script", {null, {LAKE_POINT}, null})
            .NotValidating()
            .FromXml({empty, {LAKE_POINT}, empty})
            .TaggedReadingWarns(NULL_NAME)
            .TaggedReadingWarns(NULL_SCRIPT),
        A("incomplete_coordinate", {Text("B"), {{8.5}, LAKE_POINT}})
            .NotValidating()
            .FromXmlAndTagged({Text("B"), {{8.5, 0.0}, LAKE_POINT}})
            .XmlWritingWarns(WRITES_INCOMPLETE)
            .RawReadingWarns(APPENDS_INCOMPLETE),
    };
}

std::vector<GoldenCase> ReportCases()
{
    using R = Row<ReportBase>;
    const QString empty = QStringLiteral("");
    // frequency, IF bandwidth, area
    return {
        R("empty", {}),
        R("frequency_only", {FrequencyState{433920000.0}}),
        R("bandwidth_and_area",
          {NONE, BandwidthState{8333.33, NONE, 25000.0}, AreaState{Text("Lake"), {LAKE_POINT}}}),
        R("frequency_bandwidth_area",
          {FrequencyState{121500000.0, 117975000.0, 137000000.0, true}, BandwidthState{8333.33},
           AreaState{Text("Zürichsee"), {{8.54, 47.36}, {8.685, 47.258}}, Text("VHF-1215")}}),
        R("children_without_data", {FrequencyState{}, BandwidthState{}, AreaState{}})
            .NotValidating()
            .FromXml({FrequencyState{0.0}, BandwidthState{0.0}, AreaState{empty}})
            .FromTagged({FrequencyState{0.0}, BandwidthState{0.0}, AreaState{QString()}})
            .TaggedReadingWarns(NULL_NAME),
    };
}

std::vector<GoldenCase> DoubleCases()
{
    using D = Row<Double>;
    // name, value, minimum, maximum, default, unit
    return {
        D("value_only", {Text("AnyType"), 3.0}),
        D("all_attributes", {Text("Threshold"), 42.25, -20.5, 120.0, 30.0, Text("dBµV/m")}),
        D("unit_that_xml_escapes", {Text("Ratio"), 0.5, NONE, NONE, NONE, Text("\"a\" < b & c > d")}),
        D("rounding", {Text("Offset"), -0.0078125, -1e9, 0.0})
            .FromXml({Text("Offset"), -0.007813, -1e9, 0.0}),
    };
}

template <class Case>
std::vector<Case> Joined(std::initializer_list<std::vector<Case>> lists)
{
    std::vector<Case> joined;
    for (const std::vector<Case>& list : lists)
        joined.insert(joined.end(), list.begin(), list.end());
    return joined;
}

std::vector<GoldenCase> AllCases()
{
    return Joined(
        {FrequencyCases(), BandwidthCases(), CoordinateCases(), AreaCases(), ReportCases(), DoubleCases()});
}

std::vector<GoldenCase> BinaryCases()
{
    std::vector<GoldenCase> cases = AllCases();
    cases.erase(std::remove_if(cases.begin(), cases.end(),
                               [](const GoldenCase& goldenCase) { return !goldenCase.HasBinaryForms(); }),
                cases.end());
    return cases;
}

// --- Cases that are only read -----------------------------------------------------------------------------

struct ReadCase
{
    QString folder;
    QString file; ///< within the folder, with its form
    SubjectMaker fresh;
    SubjectMaker used;
    Outcome outcome;
    QStringList warnings;
    bool isAccepted = true;
    bool checkRoot = true;

    QString Path() const { return folder + QLatin1String("/read/") + file; }
};

struct MalformedCase
{
    QString folder;
    QString file;
    SubjectMaker fresh;
    SubjectMaker freshNotValidating;
    SubjectMaker used;
    std::string leaves;           ///< what the object holds after the failure
    bool needsValidation = false; ///< otherwise it fails whether the object validates or not
    bool isLogged = true;

    QString Path() const { return folder + QLatin1String("/malformed/") + file; }
    QString ErrorPath() const
    {
        return folder + QLatin1String("/malformed/") + file.left(file.indexOf(QLatin1Char('.'))) +
               QLatin1String(".error");
    }
};

template <class Case>
std::string FileTestName(const Case& fileCase)
{
    QString name = fileCase.folder + QLatin1Char('_') + fileCase.file;
    return name.replace(QLatin1Char('.'), QLatin1Char('_')).toStdString();
}

void PrintTo(const ReadCase& readCase, std::ostream* stream)
{
    *stream << readCase.Path().toStdString();
}

void PrintTo(const MalformedCase& malformedCase, std::ostream* stream)
{
    *stream << malformedCase.Path().toStdString();
}

template <class T>
class Read
{
public:
    using State = typename SubjectOf<T>::State;

    Read(const char* file, const State& state) : m_state(state)
    {
        m_case.folder = QLatin1String(ClassOf<T>::FOLDER);
        m_case.file = QLatin1String(file);
    }

    Read& NotValidating()
    {
        m_validate = false;
        return *this;
    }
    Read& Warns(const char* line)
    {
        m_case.warnings << Support::Text(line);
        return *this;
    }
    Read& Refused()
    {
        m_case.isAccepted = false;
        return *this;
    }
    Read& AnywhereInTheText()
    {
        m_case.checkRoot = false;
        return *this;
    }

    operator ReadCase() const
    {
        ReadCase readCase = m_case;
        readCase.fresh = Maker<T>(Fresh<T>(m_state), m_validate);
        readCase.used = Maker<T>(ClassOf<T>::Used(m_state), m_validate);
        readCase.outcome = OutcomeOf<T>(m_state);
        return readCase;
    }

private:
    ReadCase m_case;
    State m_state;
    bool m_validate = true;
};

template <class T>
class Malformed
{
public:
    using State = typename SubjectOf<T>::State;

    Malformed(const char* file, const State& leaves) : m_state(leaves)
    {
        m_case.folder = QLatin1String(ClassOf<T>::FOLDER);
        m_case.file = QLatin1String(file);
    }

    Malformed& OnlyWhenValidating()
    {
        m_case.needsValidation = true;
        return *this;
    }
    Malformed& NotLogged()
    {
        m_case.isLogged = false;
        return *this;
    }

    operator MalformedCase() const
    {
        MalformedCase malformedCase = m_case;
        malformedCase.fresh = Maker<T>(Fresh<T>(m_state), true);
        malformedCase.freshNotValidating = Maker<T>(Fresh<T>(m_state), false);
        malformedCase.used = Maker<T>(ClassOf<T>::Used(m_state), true);
        malformedCase.leaves = Describe(m_state);
        return malformedCase;
    }

private:
    MalformedCase m_case;
    State m_state;
};

AreaState AreaOf(const std::optional<QString>& name, const std::vector<CoordinateState>& coordinates,
                 const std::optional<QString>& scriptID, const char* initialVersionLoaded)
{
    return {name, coordinates, scriptID, Text(initialVersionLoaded)};
}

std::vector<ReadCase> FrequencyReads()
{
    using F = Read<Frequency>;
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

std::vector<ReadCase> BandwidthReads()
{
    using B = Read<IFBandwidth>;
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

std::vector<ReadCase> CoordinateReads()
{
    using C = Read<Coordinate>;
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

std::vector<ReadCase> AreaReads()
{
    using A = Read<Area>;
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

std::vector<ReadCase> ReportReads()
{
    using R = Read<ReportBase>;
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

std::vector<ReadCase> DoubleReads()
{
    using D = Read<Double>;
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

std::vector<ReadCase> AllReads()
{
    return Joined(
        {FrequencyReads(), BandwidthReads(), CoordinateReads(), AreaReads(), ReportReads(), DoubleReads()});
}

std::vector<MalformedCase> FrequencyMalformed()
{
    using F = Malformed<Frequency>;
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

std::vector<MalformedCase> BandwidthMalformed()
{
    using B = Malformed<IFBandwidth>;
    // value, min, max
    return {
        B("root_length_4_too_long.hex", {2.0}),
        B("root_length_1_too_short.hex", {2.0}),
        B("root_length_negative.hex", {}),
    };
}

std::vector<MalformedCase> CoordinateMalformed()
{
    using C = Malformed<Coordinate>;
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

std::vector<MalformedCase> AreaMalformed()
{
    using A = Malformed<Area>;
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

std::vector<MalformedCase> ReportMalformed()
{
    using R = Malformed<ReportBase>;
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

std::vector<MalformedCase> DoubleMalformed()
{
    using D = Malformed<Double>;
    const QString name = Text("Threshold");
    // name, value, minimum, maximum, default, unit
    return {
        D("no_value.xml", {name, NONE, 1.0, 2.0, NONE, Text("dB")}).OnlyWhenValidating().NotLogged(),
        D("unknown_child_before_the_value.xml", {name, NONE, 1.0}).OnlyWhenValidating().NotLogged(),
        D("end_tag_missing.xml", {name, 6.0}),
    };
}

std::vector<MalformedCase> AllMalformed()
{
    return Joined({FrequencyMalformed(), BandwidthMalformed(), CoordinateMalformed(), AreaMalformed(),
                   ReportMalformed(), DoubleMalformed()});
}

// --- Steps of the tests -----------------------------------------------------------------------------------

void ExpectOutcome(const Subject& subject, const Outcome& outcome)
{
    EXPECT_EQ(subject.Description(), outcome.description);
    if (!outcome.equal)
        return;
    const std::unique_ptr<Subject> equal = outcome.equal();
    EXPECT_TRUE(subject.Equals(*equal));
    EXPECT_TRUE(equal->Equals(subject));
}

/// A stream's device that holds something around the place where the test writes or reads.
class Surroundings
{
public:
    Surroundings()
    {
        m_bytes = BEFORE() + QByteArray(2000, '\x55');
        m_buffer.setBuffer(&m_bytes);
        m_buffer.open(QIODevice::ReadWrite);
        m_stream.setDevice(&m_buffer);
        m_stream.setVersion(STREAM_VERSION);
        m_buffer.seek(BEFORE().size());
    }

    QDataStream& Stream() { return m_stream; }

    void ExpectWritten(const QByteArray& written)
    {
        EXPECT_EQ(m_buffer.pos(), BEFORE().size() + written.size());
        m_stream << static_cast<qint32>(0x01020304);
        QByteArray expected = BEFORE() + written + QByteArray("\x01\x02\x03\x04");
        expected += QByteArray(BEFORE().size() + 2000 - expected.size(), '\x55');
        EXPECT_BYTES(m_bytes, expected);
    }

private:
    static QByteArray BEFORE() { return QByteArray("\xee\xee\xee\xee\xee\xee\xee"); }

    QByteArray m_bytes;
    QBuffer m_buffer;
    QDataStream m_stream;
};

/// Runs `read` on a stream that stands on `bytes` in the middle of others, and expects it to stand behind
/// them then.
void ReadAmidOthers(const QByteArray& bytes, const std::function<void(QDataStream&)>& read)
{
    QByteArray all = QByteArray(11, '\x55') + bytes + QByteArray(300, '\x55');
    QBuffer buffer(&all);
    buffer.open(QIODevice::ReadOnly);
    buffer.seek(11);
    QDataStream stream(&buffer);
    stream.setVersion(STREAM_VERSION);
    read(stream);
    EXPECT_EQ(buffer.pos(), 11 + bytes.size());
    EXPECT_EQ(stream.status(), QDataStream::Ok);
}

QByteArray WriteRaw(const Subject& subject)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(STREAM_VERSION);
    subject.WriteRaw(stream);
    return bytes;
}

void ReadRaw(Subject& subject, const QByteArray& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(STREAM_VERSION);
    subject.ReadRaw(stream);
    EXPECT_EQ(stream.status(), QDataStream::Ok);
    EXPECT_TRUE(stream.atEnd());
}

QString Line(const QString& className, const char* text)
{
    return QLatin1String("INFO: ") + className + QLatin1String(text);
}

QStringList LinesOfReadingBytes(const QString& className)
{
    return {Line(className, ": Loading binary representation (source: byte array)."),
            Line(className, ": Loading binary representation (source: data stream).")};
}

/// The bytes of a plain representation from the root tag on.
QByteArray BodyOf(const Support::Vector& plain)
{
    return plain.Data().mid(plain.fields.at(4).offset);
}

/// Writes a file as LoadBinary expects it and opens it for reading.
void OpenBinaryFile(QFile& file, const QByteArray& representation)
{
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(Support::BinaryFile(Support::Raw(representation.toStdString())).Data());
    file.close();
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
}

class Golden : public ::testing::TestWithParam<GoldenCase>
{
protected:
    std::unique_ptr<Subject> WrittenWithLogger()
    {
        std::unique_ptr<Subject> subject = GetParam().written();
        subject->Object().SetLogger(m_logger);
        return subject;
    }

    /// Runs a reader on a new object and on one that holds something already; both have to end the same way.
    void ReadIntoBoth(const std::function<void(Subject&)>& read, const Outcome& outcome,
                      const QStringList& log)
    {
        for (const bool isUsed : {false, true}) {
            SCOPED_TRACE(isUsed ? "into a used object" : "into a new object");
            ReadInto(isUsed ? GetParam().used() : GetParam().fresh(), read, outcome, log);
        }
    }

    void ReadInto(const std::unique_ptr<Subject>& subject, const std::function<void(Subject&)>& read,
                  const Outcome& outcome, const QStringList& log)
    {
        subject->Object().SetLogger(m_logger);
        m_logger->Reset(true);
        EXPECT_NO_RG_THROW(read(*subject));
        ExpectOutcome(*subject, outcome);
        EXPECT_LOG(m_logger, log);
    }

    QString ClassName() const { return GetParam().ClassName(); }

    const std::shared_ptr<REPORTGENERATOR::ListLogger> m_logger = Support::NewLogger();
};

class GoldenBinary : public Golden
{
};

class GoldenReading : public ::testing::TestWithParam<ReadCase>
{
};

class GoldenMalformed : public ::testing::TestWithParam<MalformedCase>
{
};

} // namespace

// --- XML --------------------------------------------------------------------------------------------------

TEST_P(Golden, WritesTheXmlText)
{
    const std::unique_ptr<Subject> subject = WrittenWithLogger();
    EXPECT_XML(subject->Object(), Support::LoadXmlVector(GetParam().Path("xml")));
    EXPECT_LOG(m_logger,
               QStringList(Line(ClassName(), ": Generating xml string.")) + GetParam().xmlWritingWarnings);
}

TEST_P(Golden, WritesTheSameXmlTextASecondTime)
{
    const std::unique_ptr<Subject> subject = GetParam().written();
    EXPECT_NO_RG_THROW(subject->Object().GetXmlString());
    EXPECT_XML(subject->Object(), Support::LoadXmlVector(GetParam().Path("xml")));
}

TEST_P(Golden, ReadsTheXmlText)
{
    const QString xml = Support::LoadXmlVector(GetParam().Path("xml"));
    QStringList log(Line(ClassName(), ": Loading xml string."));
    log += GetParam().xmlReadingWarnings;
    for (const bool checkRoot : {false, true}) {
        SCOPED_TRACE(checkRoot ? "checking the root" : "anywhere in the text");
        ReadIntoBoth([&](Subject& subject) { EXPECT_TRUE(subject.Object().SetXmlString(xml, checkRoot)); },
                     GetParam().fromXml, log);
    }
}

TEST_P(Golden, SavesAndLoadsTheXmlFile)
{
    const QString xml = Support::LoadXmlVector(GetParam().Path("xml"));
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("case.xml"));
    const std::unique_ptr<Subject> subject = GetParam().written();
    EXPECT_TRUE(subject->Object().SaveXml(path));

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text));
    EXPECT_BYTES(file.readAll(), xml.toUtf8());

    for (const SubjectMaker& make : {GetParam().fresh, GetParam().used}) {
        const std::unique_ptr<Subject> loaded = make();
        EXPECT_NO_RG_THROW(EXPECT_TRUE(loaded->Object().LoadXml(path)));
        ExpectOutcome(*loaded, GetParam().fromXml);
    }
}

// --- Plain representation ---------------------------------------------------------------------------------

TEST_P(GoldenBinary, WritesThePlainRepresentation)
{
    const Support::Vector expected = Support::LoadVector(GetParam().Path("hex"));
    const std::unique_ptr<Subject> subject = WrittenWithLogger();
    EXPECT_BYTES(subject->Object().GetBinaryRepresentationAsQByteArray(), expected.ToBytes());
    EXPECT_LOG(m_logger,
               QStringList({Line(ClassName(), ": Generating binary representation (target: byte array)."),
                            Line(ClassName(), ": Generating binary representation (target: data stream).")}));
}

TEST_P(GoldenBinary, WritesThePlainRepresentationAmidAStream)
{
    Surroundings surroundings;
    const std::unique_ptr<Subject> subject = WrittenWithLogger();
    subject->Object().GetBinaryRepresentation(surroundings.Stream());
    surroundings.ExpectWritten(Support::LoadVector(GetParam().Path("hex")).Data());
    EXPECT_LOG(m_logger,
               QStringList(Line(ClassName(), ": Generating binary representation (target: data stream).")));
}

TEST_P(GoldenBinary, WritesThePlainRepresentationAmidAFile)
{
    const QByteArray expected = Support::LoadVector(GetParam().Path("hex")).Data();
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("case.bin")));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write("before");
    QDataStream stream(&file);
    GetParam().written()->Object().GetBinaryRepresentation(stream);
    file.write("after");
    ASSERT_TRUE(file.seek(0));
    EXPECT_BYTES(file.readAll(), QByteArray("before") + expected + QByteArray("after"));
}

TEST_P(GoldenBinary, WritesTheBodyWithTheTagThatIsAskedForOrWithout)
{
    const QByteArray body = BodyOf(Support::LoadVector(GetParam().Path("hex")));
    const std::unique_ptr<Subject> subject = GetParam().written();

    Surroundings tagged;
    EXPECT_TRUE(subject->Object().GetBinary(tagged.Stream(), -2, true));
    tagged.ExpectWritten(QByteArray("\xff\xff\xff\xfe") + body.mid(4));

    Surroundings untagged;
    EXPECT_TRUE(subject->Object().GetBinary(untagged.Stream(), -2, false));
    untagged.ExpectWritten(body.mid(4));
}

TEST_P(GoldenBinary, ReadsThePlainRepresentation)
{
    const QByteArray bytes = Support::LoadVector(GetParam().Path("hex")).Data();
    ReadIntoBoth(
        [&](Subject& subject) {
            QByteArray input = bytes;
            EXPECT_TRUE(subject.Object().SetBinaryRepresentation(input));
            EXPECT_BYTES(input, bytes);
        },
        GetParam().fromTagged, LinesOfReadingBytes(ClassName()) + GetParam().taggedReadingWarnings);
}

TEST_P(GoldenBinary, ReadsThePlainRepresentationAmidAStream)
{
    const QByteArray bytes = Support::LoadVector(GetParam().Path("hex")).Data();
    ReadIntoBoth(
        [&](Subject& subject) {
            ReadAmidOthers(bytes, [&](QDataStream& stream) {
                EXPECT_TRUE(subject.Object().SetBinaryRepresentation(stream));
            });
        },
        GetParam().fromTagged, LinesOfReadingBytes(ClassName()).mid(1) + GetParam().taggedReadingWarnings);
}

TEST_P(GoldenBinary, ReadsTheBody)
{
    const QByteArray elements = BodyOf(Support::LoadVector(GetParam().Path("hex"))).mid(8);
    ReadIntoBoth(
        [&](Subject& subject) {
            ReadAmidOthers(elements, [&](QDataStream& stream) {
                subject.Object().SetBinary(stream, static_cast<int>(elements.size()));
            });
        },
        GetParam().fromTagged, GetParam().taggedReadingWarnings);
}

// --- Compressed representation ----------------------------------------------------------------------------

TEST_P(GoldenBinary, WritesTheFrameAndTheBodyOfTheCompressedRepresentation)
{
    const Support::Vector expected = Support::LoadVector(GetParam().Path("zhex"));
    const QByteArray body = BodyOf(Support::LoadVector(GetParam().Path("hex")));
    const int frameSize = expected.fields.at(4).offset;
    const std::unique_ptr<Subject> subject = WrittenWithLogger();

    for (const int level : {-1, 0, 1, 6, 9}) {
        SCOPED_TRACE("level " + std::to_string(level));
        m_logger->Reset(true);
        const QByteArray written = subject->Object().GetCompressedBinaryRepresentationAsQByteArray(level);
        EXPECT_LOG(
            m_logger,
            QStringList(
                {Line(ClassName(), ": Generating compressed binary representation (target: byte array)."),
                 Line(ClassName(), ": Generating compressed binary representation (target: data stream).")}));

        const QByteArray data = written.mid(frameSize + 4);
        EXPECT_BYTES(written.left(frameSize), expected.Data().left(frameSize));
        EXPECT_BYTES(written.mid(frameSize, 4), Support::Int32(data.size()));
        EXPECT_BYTES(data.left(4), Support::Int32(body.size()));
        EXPECT_BYTES(qUncompress(data), body);
    }
}

TEST_P(GoldenBinary, WritesTheCompressedRepresentationAmidAStream)
{
    const std::unique_ptr<Subject> subject = GetParam().written();
    Surroundings surroundings;
    subject->Object().GetCompressedBinaryRepresentation(surroundings.Stream(), 6);
    surroundings.ExpectWritten(subject->Object().GetCompressedBinaryRepresentationAsQByteArray(6));
}

TEST_P(GoldenBinary, ReadsTheCompressedRepresentation)
{
    const QByteArray stored = Support::LoadVector(GetParam().Path("zhex")).Data();
    const QByteArray packed = GetParam().written()->Object().GetCompressedBinaryRepresentationAsQByteArray(9);
    for (const QByteArray& bytes : {stored, packed}) {
        SCOPED_TRACE(bytes == stored ? "stored block" : "packed by the library");
        ReadIntoBoth(
            [&](Subject& subject) {
                QByteArray input = bytes;
                EXPECT_TRUE(subject.Object().SetBinaryRepresentation(input));
                EXPECT_BYTES(input, bytes);
            },
            GetParam().fromTagged, LinesOfReadingBytes(ClassName()) + GetParam().taggedReadingWarnings);
    }
}

TEST_P(GoldenBinary, ReadsTheCompressedRepresentationAmidAStream)
{
    const QByteArray bytes = Support::LoadVector(GetParam().Path("zhex")).Data();
    ReadIntoBoth(
        [&](Subject& subject) {
            ReadAmidOthers(bytes, [&](QDataStream& stream) {
                EXPECT_TRUE(subject.Object().SetBinaryRepresentation(stream));
            });
        },
        GetParam().fromTagged, LinesOfReadingBytes(ClassName()).mid(1) + GetParam().taggedReadingWarnings);
}

// --- Binary file ------------------------------------------------------------------------------------------

TEST_P(GoldenBinary, LoadsTheBinaryFileOfEitherRepresentation)
{
    const QTemporaryDir folder;
    for (const char* form : {"hex", "zhex"}) {
        SCOPED_TRACE(form);
        QFile file(folder.filePath(QLatin1String(form)));
        ASSERT_NO_FATAL_FAILURE(OpenBinaryFile(file, Support::LoadVector(GetParam().Path(form)).Data()));
        const QString line =
            Line(ClassName(), ": Loading binary file \"") + file.fileName() + QLatin1String("\".");
        ReadIntoBoth(
            [&](Subject& subject) {
                file.seek(0);
                EXPECT_TRUE(subject.Object().LoadBinary(&file));
            },
            GetParam().fromTagged,
            QStringList(line) + LinesOfReadingBytes(ClassName()) + GetParam().taggedReadingWarnings);
    }
}

// --- Raw form ---------------------------------------------------------------------------------------------

TEST_P(GoldenBinary, WritesTheRawForm)
{
    const std::unique_ptr<Subject> subject = WrittenWithLogger();
    EXPECT_BYTES(WriteRaw(*subject), Support::LoadVector(GetParam().Path("raw.hex")).ToBytes());
    EXPECT_LOG(m_logger, {});
}

TEST_P(GoldenBinary, WritesTheRawFormAmidAStream)
{
    Surroundings surroundings;
    GetParam().written()->WriteRaw(surroundings.Stream());
    surroundings.ExpectWritten(Support::LoadVector(GetParam().Path("raw.hex")).Data());
}

TEST_P(GoldenBinary, ReadsTheRawFormIntoANewObject)
{
    const QByteArray bytes = Support::LoadVector(GetParam().Path("raw.hex")).Data();
    ReadInto(
        GetParam().fresh(), [&](Subject& subject) { ReadRaw(subject, bytes); }, GetParam().fromRaw,
        GetParam().rawReadingWarnings);
}

TEST_P(GoldenBinary, ReadsTheRawFormOverAUsedObject)
{
    const QByteArray bytes = Support::LoadVector(GetParam().Path("raw.hex")).Data();
    ReadInto(
        GetParam().used(), [&](Subject& subject) { ReadRaw(subject, bytes); }, GetParam().fromRawIntoUsed,
        GetParam().rawReadingWarnings);
}

TEST_P(GoldenBinary, ReadsTheRawFormAmidAStream)
{
    const QByteArray bytes = Support::LoadVector(GetParam().Path("raw.hex")).Data();
    const std::unique_ptr<Subject> subject = GetParam().fresh();
    ReadAmidOthers(bytes, [&](QDataStream& stream) { EXPECT_NO_RG_THROW(subject->ReadRaw(stream)); });
    ExpectOutcome(*subject, GetParam().fromRaw);
}

TEST_P(GoldenBinary, WritesTheRawFormAgainAfterReadingIt)
{
    const QByteArray bytes = Support::LoadVector(GetParam().Path("raw.hex")).Data();
    const std::unique_ptr<Subject> subject = GetParam().fresh();
    EXPECT_NO_RG_THROW(ReadRaw(*subject, bytes));
    EXPECT_BYTES(WriteRaw(*subject), bytes);
}

// --- Input that the library would not write ---------------------------------------------------------------

namespace {

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
        return QStringList(Line(className, ": Loading xml string."));
    if (path.endsWith(QLatin1String(".raw.hex")))
        return {};
    return LinesOfReadingBytes(className);
}

} // namespace

TEST_P(GoldenReading, IntoANewObject)
{
    const ReadCase& readCase = GetParam();
    const std::shared_ptr<REPORTGENERATOR::ListLogger> logger = Support::NewLogger();
    const std::unique_ptr<Subject> subject = readCase.fresh();
    subject->Object().SetLogger(logger);
    EXPECT_NO_RG_THROW(
        EXPECT_EQ(ReadVector(*subject, readCase.Path(), readCase.checkRoot), readCase.isAccepted));
    ExpectOutcome(*subject, readCase.outcome);
    EXPECT_LOG(logger,
               LinesOfReading(subject->Object().GetObjectName(), readCase.Path()) + readCase.warnings);
}

TEST_P(GoldenReading, IntoAUsedObject)
{
    const ReadCase& readCase = GetParam();
    if (readCase.file.endsWith(QLatin1String(".raw.hex")) && readCase.folder == QLatin1String("area")) {
        // The raw reader of an area appends to what is there.
        const std::unique_ptr<Subject> subject = readCase.used();
        subject->Object().Reset();
        EXPECT_NO_RG_THROW(ReadVector(*subject, readCase.Path(), readCase.checkRoot));
        ExpectOutcome(*subject, readCase.outcome);
        return;
    }
    const std::unique_ptr<Subject> subject = readCase.used();
    const std::string before = subject->Description();
    EXPECT_NO_RG_THROW(
        EXPECT_EQ(ReadVector(*subject, readCase.Path(), readCase.checkRoot), readCase.isAccepted));
    if (readCase.isAccepted)
        ExpectOutcome(*subject, readCase.outcome);
    else
        EXPECT_EQ(subject->Description(), before);
}

TEST_P(GoldenMalformed, IsReportedAndLeavesWhatWasRead)
{
    const MalformedCase& malformed = GetParam();
    const Support::ExpectedError error = Support::LoadError(malformed.ErrorPath());
    for (const SubjectMaker& make : {malformed.fresh, malformed.used}) {
        const std::unique_ptr<Subject> subject = make();
        EXPECT_RG_THROW(ReadVector(*subject, malformed.Path(), true), error.name, error.text);
        EXPECT_EQ(subject->Description(), malformed.leaves);
    }
}

TEST_P(GoldenMalformed, IsLoggedAsFatal)
{
    const MalformedCase& malformed = GetParam();
    const Support::ExpectedError error = Support::LoadError(malformed.ErrorPath());
    const std::shared_ptr<REPORTGENERATOR::ListLogger> logger = Support::NewLogger();
    const std::unique_ptr<Subject> subject = malformed.fresh();
    subject->Object().SetLogger(logger);
    EXPECT_RG_THROW(ReadVector(*subject, malformed.Path(), true), error.name, error.text);

    QStringList lines = LinesOfReading(subject->Object().GetObjectName(), malformed.Path());
    if (malformed.isLogged)
        lines << QLatin1String("FATAL ERROR: ") + error.name + QLatin1String(": ") + error.text;
    EXPECT_LOG(logger, lines);
    EXPECT_EQ(logger->HasErrors(), malformed.isLogged);
}

TEST_P(GoldenMalformed, IsReportedWithoutValidationUnlessOnlyACheckFoundIt)
{
    const MalformedCase& malformed = GetParam();
    const Support::ExpectedError error = Support::LoadError(malformed.ErrorPath());
    const std::unique_ptr<Subject> subject = malformed.freshNotValidating();
    if (malformed.needsValidation) {
        EXPECT_NO_RG_THROW(EXPECT_TRUE(ReadVector(*subject, malformed.Path(), true)));
        return;
    }
    EXPECT_RG_THROW(ReadVector(*subject, malformed.Path(), true), error.name, error.text);
    EXPECT_EQ(subject->Description(), malformed.leaves);
}

// --- What no table says -----------------------------------------------------------------------------------

TEST(GoldenRawForm, KeepsFlagBitsThatMeanNothing)
{
    for (const char* path :
         {"frequency/read/upper_flag_bits.raw.hex", "ifbandwidth/read/flag_bit_3.raw.hex"}) {
        SCOPED_TRACE(path);
        const Support::Vector vector = Support::LoadVector(QLatin1String(path));
        const std::unique_ptr<Subject> subject =
            Support::NewSubject(QString(QLatin1String(path)).section(QLatin1Char('/'), 0, 0));
        ReadRaw(*subject, vector.Data());
        EXPECT_BYTES(WriteRaw(*subject), vector.ToBytes());
    }
}

TEST(GoldenRawForm, StoresTheNameOfAnOlderAreaWithoutMarkingItAsSet)
{
    const QByteArray bytes = Support::LoadVector(QStringLiteral("area/read/older_version.raw.hex")).Data();
    QDataStream stream(bytes);
    stream.setVersion(STREAM_VERSION);
    Area area;
    area.SetVersionSpecificBinaryWithoutValidation(stream);
    EXPECT_FALSE(area.IsNameSet());
    EXPECT_TEXT(area.GetName(), "Lake");

    // The script identifier, a text of one character, stays in the stream.
    EXPECT_EQ(stream.device()->bytesAvailable(), 6);
}

TEST(GoldenVectors, EachFileBelongsToACaseAndEachCaseHasItsFiles)
{
    std::set<QString> named;
    for (const GoldenCase& goldenCase : AllCases()) {
        named.insert(goldenCase.Path("xml"));
        if (!goldenCase.HasBinaryForms())
            continue;
        for (const char* form : {"hex", "zhex", "raw.hex"})
            named.insert(goldenCase.Path(form));
    }
    for (const ReadCase& readCase : AllReads())
        named.insert(readCase.Path());
    for (const MalformedCase& malformedCase : AllMalformed()) {
        named.insert(malformedCase.Path());
        named.insert(malformedCase.ErrorPath());
    }

    const QStringList files = Support::VectorFiles();
    const std::set<QString> present(files.begin(), files.end());
    for (const QString& path : named)
        EXPECT_EQ(present.count(path), 1u) << "missing: " << path.toStdString();
    for (const QString& path : present)
        EXPECT_EQ(named.count(path), 1u) << "unused: " << path.toStdString();
}

namespace {

const auto NAME_OF_GOLDEN = [](const auto& info) { return info.param.TestName(); };
const auto NAME_OF_FILE = [](const auto& info) { return FileTestName(info.param); };

INSTANTIATE_TEST_SUITE_P(Vectors, Golden, ::testing::ValuesIn(AllCases()), NAME_OF_GOLDEN);
INSTANTIATE_TEST_SUITE_P(Vectors, GoldenBinary, ::testing::ValuesIn(BinaryCases()), NAME_OF_GOLDEN);
INSTANTIATE_TEST_SUITE_P(Vectors, GoldenReading, ::testing::ValuesIn(AllReads()), NAME_OF_FILE);
INSTANTIATE_TEST_SUITE_P(Vectors, GoldenMalformed, ::testing::ValuesIn(AllMalformed()), NAME_OF_FILE);

} // namespace
