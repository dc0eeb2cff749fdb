// What the classes with a record find wrong with an object, and how they tell: what Check() says, with and
// without a logger, and that what it refuses is not written.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/points.h"
#include "support/recordclasses.h"
#include "support/records.h"
#include "support/states.h"

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtCore/QXmlStreamWriter>

#include <cstddef>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ReportBase;
using Support::At;
using Support::Lake;
using Support::Named;
using Support::NOT_SET;
using Support::OnlyLatitude;
using Support::OnlyLongitude;
using Support::OutOfRange;
using Support::RecordClass;
using Support::WithUnflaggedPoint;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INF = std::numeric_limits<double>::infinity();

template <class T>
struct Case
{
    const char* name;
    std::function<T()> make;
    std::vector<const char*> problems; ///< in the order in which they are found
};

template <class T>
using Cases = std::vector<Case<T>>;

/// This is for Frequency and IFBandwidth, the other classes follow.
template <class T>
Cases<T> AllCases()
{
    const auto made = [](const Support::StateOfClass<T>& state) {
        return [state] { return Support::Made<T>(state); };
    };
    const char* const setValue = "@: Please set Value properly.";
    return {
        {"nothing set", made({}), {setValue}},
        {"minimum alone", made({NOT_SET, 1.0}), {setValue}},
        {"bounds alone", made({NOT_SET, 1.0, 2.0}), {setValue}},
        {"value alone", made({1.0}), {}},
        {"everything set", made({1.0, 2.0, 3.0}), {}},
        {"bounds that exclude the value and each other", made({1.0, 3.0, 2.0}), {}},
        {"the number that means unset elsewhere", made({-111111.11, -111111.11}), {}},
        {"no number and no finite ones", made({NOT_A_NUMBER, -INF, INF}), {}},
    };
}

template <>
Cases<Coordinate> AllCases()
{
    const char* const setLongitude = "Coordinate: Please set Longitude properly.";
    const char* const setLatitude = "Coordinate: Please set Latitude properly.";
    return {
        {"nothing set", [] { return Coordinate(); }, {setLongitude, setLatitude}},
        {"latitude alone", [] { return OnlyLatitude(1.0); }, {setLongitude}},
        {"longitude alone", [] { return OnlyLongitude(1.0); }, {setLatitude}},
        {"both set", [] { return At(1.0, 1.0); }, {}},
        {"longitude out of range", [] { return OutOfRange(181.0, 1.0); }, {setLongitude}},
        {"latitude too great", [] { return OutOfRange(1.0, 95.0); }, {setLatitude}},
        {"latitude too small", [] { return OutOfRange(1.0, -91.0); }, {setLatitude}},
        {"both out of range", [] { return OutOfRange(1000.0, -1000.0); }, {setLongitude, setLatitude}},
    };
}

template <>
Cases<Area> AllCases()
{
    const char* const setName = "Area: Please set Name properly.";
    const char* const setCoordinate = "Area: Please set Coordinate properly.";
    const char* const setScriptID = "Area: Please set ScriptID properly.";
    const char* const setLongitude = "Coordinate: Please set Longitude properly.";
    const char* const setLatitude = "Coordinate: Please set Latitude properly.";
    const auto named = [](const QVector<Coordinate>& coordinates) {
        return [coordinates] {
            Area area;
            area.SetName(QStringLiteral(""));
            area.SetCoordinate(coordinates);
            return area;
        };
    };
    const auto changedLake = [](const std::function<void(Area&)>& change) {
        return [change] {
            Area area = Lake();
            area.SetValidate(false);
            change(area);
            return area;
        };
    };
    return {
        {"nothing set", [] { return Area(); }, {setName, setCoordinate}},
        {"empty name alone", changedLake([](Area& a) { a.ResetCoordinate(); }), {setCoordinate}},
        {"coordinates alone", changedLake([](Area& a) { a.ResetName(); }), {setName}},
        {"empty name and one point", named({At(1.0, 2.0)}), {}},
        {"everything set", Lake, {}},
        {"empty script", changedLake([](Area& a) { a.SetScriptID(QStringLiteral("")); }), {}},
        {"no script", changedLake([](Area& a) { a.ResetScriptID(); }), {}},
        {"null script", changedLake([](Area& a) { a.SetScriptID(QString()); }), {setScriptID}},
        {"null name", changedLake([](Area& a) { a.SetName(QString()); }), {setName}},
        {"empty list that is set", named({}), {}},
        {"points that are not marked as set", [] { return WithUnflaggedPoint(1); }, {setCoordinate}},
        {"incomplete points that are not marked as set",
         [] {
             Area area = WithUnflaggedPoint(1);
             area.SetCoordinate({OnlyLatitude(1.0)});
             EXPECT_EQ(ReadRawForm(area, Support::Byte(1) + Support::String(u"1.0") + Support::String(u"N") +
                                             Support::Int32(0)),
                       0);
             return area;
         },
         {setCoordinate, setLongitude}},
        {"incomplete point behind a good one", named({At(1.0, 2.0), OnlyLatitude(3.0)}), {setLongitude}},
        {"out of range behind a good one", named({At(1.0, 2.0), OutOfRange(3.0, 91.0)}), {setLatitude}},
        {"problems of all kinds",
         [] {
             Area area;
             area.SetValidate(false);
             area.SetCoordinate({Coordinate(), At(1.0, 2.0), OutOfRange(181.0, 1.0)});
             area.SetScriptID(QString());
             return area;
         },
         {setName, setLongitude, setLatitude, setLongitude, setScriptID}},
    };
}

template <>
Cases<ReportBase> AllCases()
{
    const char* const setFrequency = "Frequency: Please set Value properly.";
    const char* const setBandwidth = "IFBandwidth: Please set Value properly.";
    const char* const setName = "Area: Please set Name properly.";
    const char* const setCoordinate = "Area: Please set Coordinate properly.";
    const char* const setLongitude = "Coordinate: Please set Longitude properly.";
    const auto carrying = [](const std::function<void(ReportBase&)>& carry) {
        return [carry] {
            ReportBase report;
            carry(report);
            return report;
        };
    };
    return {
        {"nothing carried", [] { return ReportBase(); }, {}},
        {"everything set", Support::Used<ReportBase>, {}},
        {"data in members that are not carried",
         [] {
             ReportBase report = Support::Used<ReportBase>();
             EXPECT_EQ(ReadRawForm(report, Support::Byte(0)), 0);
             return report;
         },
         {}},
        {"empty frequency", carrying([](ReportBase& r) { r.GetFrequency(); }), {setFrequency}},
        {"empty area", carrying([](ReportBase& r) { r.GetArea(); }), {setName, setCoordinate}},
        {"empty area and IF bandwidth",
         carrying([](ReportBase& r) {
             r.GetArea();
             r.GetIFBandwidth();
         }),
         {setBandwidth, setName, setCoordinate}},
        {"empty area and frequency",
         carrying([](ReportBase& r) {
             r.GetFrequency();
             r.GetArea();
         }),
         {setFrequency, setName, setCoordinate}},
        {"all members empty",
         carrying([](ReportBase& r) {
             r.GetArea();
             r.GetIFBandwidth();
             r.GetFrequency();
         }),
         {setFrequency, setBandwidth, setName, setCoordinate}},
        {"incomplete point in an area without name",
         carrying([](ReportBase& r) {
             r.GetArea().SetCoordinate({OnlyLatitude(2.0)});
             r.GetFrequency();
             r.GetIFBandwidth();
         }),
         {setFrequency, setBandwidth, setName, setLongitude}},
        {"area without name among complete members",
         [] {
             ReportBase report = Support::Used<ReportBase>();
             report.GetArea().ResetName();
             return report;
         },
         {setName}},
    };
}

template <class T>
class RecordCheck : public ::testing::Test
{
protected:
    /// Runs `examine` for an object of each case, validating and not.
    static void ForEachCase(const std::function<void(const Case<T>&, T&)>& examine)
    {
        for (const Case<T>& row : AllCases<T>()) {
            for (const bool validate : {true, false}) {
                SCOPED_TRACE(std::string(row.name) + (validate ? ", validating" : ""));
                T object = row.make();
                object.SetValidate(validate);
                examine(row, object);
            }
        }
    }

    static QString Problem(const Case<T>& row, std::size_t index = 0)
    {
        return Named<T>(row.problems.at(index));
    }
};

TYPED_TEST_SUITE(RecordCheck, Support::RecordClasses, Support::RecordClassNames);

} // namespace

TYPED_TEST(RecordCheck, WithoutLoggerTheFirstProblemIsThrownInAllSettings)
{
    this->ForEachCase([](const Case<TypeParam>& row, const TypeParam& object) {
        if (row.problems.empty()) {
            EXPECT_NO_RG_THROW(object.Check());
            EXPECT_NO_RG_THROW(object.Check(true));
            EXPECT_NO_RG_THROW(object.Check(false));
            return;
        }
        const QString problem = TestFixture::Problem(row);
        EXPECT_RG_THROW(object.Check(), "OutOfRangeException", problem);
        EXPECT_RG_THROW(object.Check(true), "OutOfRangeException", problem);
        EXPECT_RG_THROW(object.Check(false), "OutOfRangeException", problem);
    });
}

TYPED_TEST(RecordCheck, WithLoggerTheFirstProblemIsLoggedAsFatalAndThrown)
{
    this->ForEachCase([](const Case<TypeParam>& row, const TypeParam& object) {
        const auto logger = Support::NewLogger();
        object.SetLogger(logger);
        if (row.problems.empty()) {
            EXPECT_NO_RG_THROW(object.Check());
            EXPECT_NO_RG_THROW(object.Check(false));
            EXPECT_LOG(logger, {});
            return;
        }
        const QString problem = TestFixture::Problem(row);
        EXPECT_RG_THROW(object.Check(), "OutOfRangeException", problem);
        EXPECT_RG_THROW(object.Check(false), "OutOfRangeException", problem);
        const QString line = QStringLiteral("FATAL ERROR: OutOfRangeException: ") + problem;
        EXPECT_LOG(logger, QStringList({line, line}));
    });
}

TYPED_TEST(RecordCheck, OfTrueWithLoggerAllProblemsAreLoggedAndItReturns)
{
    this->ForEachCase([](const Case<TypeParam>& row, const TypeParam& object) {
        const auto logger = Support::NewLogger();
        object.SetLogger(logger);
        EXPECT_NO_RG_THROW(object.Check(true));
        QStringList lines;
        for (std::size_t i = 0; i < row.problems.size(); ++i)
            lines << QStringLiteral("ERROR: OutOfRangeException: ") + TestFixture::Problem(row, i);
        EXPECT_LOG(logger, lines);
        EXPECT_EQ(logger->HasErrors(), !row.problems.empty());
    });
}

TYPED_TEST(RecordCheck, WhatIsRefusedIsNotWrittenWhenValidating)
{
    this->ForEachCase([](const Case<TypeParam>& row, const TypeParam& object) {
        if (row.problems.empty() || !object.GetValidate())
            return;
        const QString problem = TestFixture::Problem(row);
        EXPECT_RG_THROW(object.GetXmlString(), "OutOfRangeException", problem);
        QString xml;
        QXmlStreamWriter writer(&xml);
        EXPECT_RG_THROW(object.GetXml(writer), "OutOfRangeException", problem);
        EXPECT_TEXT(xml, "");
        const QByteArray bytes = Support::Written([&](QDataStream& stream) {
            EXPECT_RG_THROW(object.GetBinary(stream, 1, true), "OutOfRangeException", problem);
        });
        EXPECT_EQ(bytes.size(), 0);
    });
}

TYPED_TEST(RecordCheck, MergingWhatIsRefusedThrowsWhileItValidatesAndChangesNothing)
{
    this->ForEachCase([](const Case<TypeParam>& row, const TypeParam& object) {
        if (row.problems.empty() || !object.GetValidate())
            return;
        TypeParam target = Support::Used<TypeParam>();
        EXPECT_RG_THROW(target.MergeRGObject(object), "OutOfRangeException", TestFixture::Problem(row));
        EXPECT_STATE(target, RecordClass<TypeParam>::Used());
    });
}

TYPED_TEST(RecordCheck, ItMakesNoDifferenceToTheFields)
{
    this->ForEachCase([](const Case<TypeParam>&, const TypeParam& object) {
        const auto before = Support::StateOf(object);
        object.SetLogger(Support::NewLogger());
        EXPECT_NO_RG_THROW(object.Check(true));
        EXPECT_STATE(object, before);
    });
}

TYPED_TEST(RecordCheck, MessagesBeginWithTheCurrentName)
{
    const Support::Renamed<TypeParam> object("Renamed %1");
    if (RecordClass<TypeParam>::PROBLEM_OF_NEW == nullptr) {
        EXPECT_NO_RG_THROW(object.Check());
        return;
    }
    const QString problem = Support::Text(RecordClass<TypeParam>::PROBLEM_OF_NEW);
    EXPECT_RG_THROW(object.Check(), "OutOfRangeException",
                    QString(problem).replace(QLatin1Char('@'), QStringLiteral("Renamed %1")));
}
