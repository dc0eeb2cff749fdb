#ifndef TESTS_SUPPORT_GOLDEN_H
#define TESTS_SUPPORT_GOLDEN_H

// What the tests over tests/vectors share: objects with and without something in them, and what an object
// holds in the end.
//
//     Outcome outcome = OutcomeOf<Frequency>(FrequencyState{433920000.0});
//     for (const SubjectMaker& make : {Maker<Frequency>(FrequencyState(), true),
//                                      Maker<Frequency>(GoldenClass<Frequency>::Used({}), true)}) {
//         const std::unique_ptr<Subject> subject = make();
//         subject->Object().SetXmlString(xml, true);
//         ExpectOutcome(*subject, outcome);
//     }

#include "support/states.h"
#include "support/subject.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <initializer_list>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Support {

/// The version of all streams, as a number.
constexpr int STREAM_VERSION = 12;

using SubjectMaker = std::function<std::unique_ptr<Subject>()>;

/// What an object holds in the end.
struct Outcome
{
    std::string description;
    SubjectMaker equal; ///< an object that equals it; none when the setters can't make one
};

// --- Objects ----------------------------------------------------------------------------------------------

/// The folder of a class, and what an object of it holds before something else is read into it.
template <class T>
struct GoldenClass;

template <>
struct GoldenClass<REPORTGENERATOR::Frequency>
{
    static constexpr const char* FOLDER = "frequency";
    static FrequencyState Used(const FrequencyState&) { return {1.0, 2.0, 3.0, false}; }
};

template <>
struct GoldenClass<REPORTGENERATOR::IFBandwidth>
{
    static constexpr const char* FOLDER = "ifbandwidth";
    static BandwidthState Used(const BandwidthState&) { return {1.0, 2.0, 3.0}; }
};

template <>
struct GoldenClass<REPORTGENERATOR::Coordinate>
{
    static constexpr const char* FOLDER = "coordinate";
    static CoordinateState Used(const CoordinateState&) { return {10.0, 20.0}; }
};

template <>
struct GoldenClass<REPORTGENERATOR::Area>
{
    static constexpr const char* FOLDER = "area";
    static AreaState Used(const AreaState&)
    {
        return {QStringLiteral("Used"), {{1.0, 2.0}, {3.0, 4.0}}, QStringLiteral("Old")};
    }
};

template <>
struct GoldenClass<REPORTGENERATOR::ReportBase>
{
    static constexpr const char* FOLDER = "reportbase";
    static ReportState Used(const ReportState&)
    {
        return {GoldenClass<REPORTGENERATOR::Frequency>::Used({}),
                GoldenClass<REPORTGENERATOR::IFBandwidth>::Used({}),
                GoldenClass<REPORTGENERATOR::Area>::Used({})};
    }
};

template <>
struct GoldenClass<REPORTGENERATOR::Double>
{
    static constexpr const char* FOLDER = "double";
    static DoubleState Used(const DoubleState& state)
    {
        return {state.name, 1.0, 0.5, 2.5, 1.5, QStringLiteral("km")};
    }
};

const CoordinateState LAKE_POINT = {8.5, 47.25};

/// Whether the setters can make an object with these fields.
template <class State>
bool CanBeFilled(const State&)
{
    return true;
}
bool CanBeFilled(const AreaState& state);
bool CanBeFilled(const ReportState& state);

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
inline DoubleState Fresh<REPORTGENERATOR::Double, DoubleState>(const DoubleState& state)
{
    return {state.name};
}

template <class Case>
std::vector<Case> Joined(std::initializer_list<std::vector<Case>> lists)
{
    std::vector<Case> joined;
    for (const std::vector<Case>& list : lists)
        joined.insert(joined.end(), list.begin(), list.end());
    return joined;
}

// --- Steps of the tests -----------------------------------------------------------------------------------

void ExpectOutcome(const Subject& subject, const Outcome& outcome);

QByteArray WriteRaw(const Subject& subject);

/// Expects the bytes to be the whole raw form.
void ReadRaw(Subject& subject, const QByteArray& bytes);

/// A line of a logger.
QString InfoLine(const QString& className, const char* text);
QStringList LinesOfReadingBytes(const QString& className);

/// Expects the files of tests/vectors that `isMeant` holds for to be these and no others.
void ExpectVectorFiles(const std::set<QString>& named, const std::function<bool(const QString&)>& isMeant);

} // namespace Support

#endif
