// Objects are values: whatever two of them share inside, nobody sees it.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/points.h"
#include "support/recordclasses.h"
#include "support/records.h"
#include "support/states.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ReportBase;
using Support::AreaState;
using Support::At;
using Support::Bytes;
using Support::CoordinateState;
using Support::OnlyLatitude;
using Support::ReadElement;
using Support::ReadElements;
using Support::ReadRawForm;

Area SomeArea()
{
    Area area;
    area.SetName(QStringLiteral("Lake"));
    area.SetScriptID(QStringLiteral("S7"));
    area.AppendCoordinate(At(1.0, 2.0));
    area.AppendCoordinate(At(3.0, 4.0));
    return area;
}

ReportBase SomeReport()
{
    ReportBase report;
    report.SetFrequency(Support::Used<Frequency>());
    report.SetIFBandwidth(Support::Used<IFBandwidth>());
    report.SetArea(SomeArea());
    return report;
}

template <class T>
using Changes = std::vector<std::pair<const char*, std::function<void(T&)>>>;

/// What all classes can do.
template <class T>
Changes<T> CommonChanges()
{
    return {
        {"Reset", [](T& object) { object.Reset(); }},
        {"ResetToDefault", [](T& object) { object.ResetToDefault(); }},
        {"SetXmlString",
         [](T& object) { object.SetXmlString(Support::Filled<T>(9.0).GetXmlString(), true); }},
        {"ProcessXml", [](T& object) { ReadElement(object, Support::XmlOfOne<T>()); }},
        {"SetBinary", [](T& object) { ReadElements(object, Bytes()); }},
        {"raw reading", [](T& object) { ReadRawForm(object, Support::RawFormOf(Support::Filled<T>(9.0))); }},
        {"MergeRGObject", [](T& object) { object.MergeRGObject(Support::Filled<T>(9.0)); }},
        {"assignment", [](T& object) { object = T(); }},
    };
}

/// This is for Frequency and IFBandwidth.
template <class T>
Changes<T> OwnChanges()
{
    Changes<T> changes = {
        {"SetValue", [](T& object) { object.SetValue(1.0); }},
        {"SetMin", [](T& object) { object.SetMin(1.0); }},
        {"SetMax", [](T& object) { object.SetMax(1.0); }},
        {"ResetValue", [](T& object) { object.ResetValue(); }},
        {"ResetMin", [](T& object) { object.ResetMin(); }},
        {"ResetMax", [](T& object) { object.ResetMax(); }},
    };
    if constexpr (std::is_same_v<T, Frequency>) {
        changes.emplace_back("SetUse", [](T& object) { object.SetUse(true); });
        changes.emplace_back("ResetUse", [](T& object) { object.ResetUse(); });
    }
    return changes;
}

template <>
Changes<Coordinate> OwnChanges()
{
    return {
        {"SetLongitude", [](Coordinate& c) { c.SetLongitude(9.0); }},
        {"SetLatitude", [](Coordinate& c) { c.SetLatitude(9.0); }},
        {"ResetLongitude", [](Coordinate& c) { c.ResetLongitude(); }},
        {"ResetLatitude", [](Coordinate& c) { c.ResetLatitude(); }},
    };
}

template <>
Changes<Area> OwnChanges()
{
    return {
        {"SetName", [](Area& a) { a.SetName(QStringLiteral("New")); }},
        {"SetScriptID", [](Area& a) { a.SetScriptID(QStringLiteral("New")); }},
        {"SetCoordinate", [](Area& a) { a.SetCoordinate({At(9.0, 9.0)}); }},
        {"AppendCoordinate", [](Area& a) { a.AppendCoordinate(At(9.0, 9.0)); }},
        {"a coordinate's setter", [](Area& a) { a.GetCoordinate()[0].SetLongitude(9.0); }},
        {"a coordinate's reset", [](Area& a) { a.GetCoordinate()[1].Reset(); }},
        {"the list", [](Area& a) { a.GetCoordinate().clear(); }},
        {"the list through a loop",
         [](Area& a) {
             for (Coordinate& coordinate : a.GetCoordinate())
                 coordinate.SetLatitude(9.0);
         }},
        {"ResetName", [](Area& a) { a.ResetName(); }},
        {"ResetCoordinate", [](Area& a) { a.ResetCoordinate(); }},
        {"ResetScriptID", [](Area& a) { a.ResetScriptID(); }},
        {"ProcessXml without a coordinate",
         [](Area& a) { ReadElement(a, QStringLiteral("<Area Version=\"1.0\"><Name>New</Name></Area>")); }},
        {"the version that is loaded",
         [](Area& a) { ReadElement(a, QStringLiteral("<Area Version=\"5.0\"/>")); }},
        {"an older version", [](Area& a) { ReadElement(a, QStringLiteral("<Area Version=\"0.5\"/>")); }},
    };
}

template <>
Changes<ReportBase> OwnChanges()
{
    return {
        {"SetFrequency", [](ReportBase& r) { r.SetFrequency(Frequency()); }},
        {"SetIFBandwidth", [](ReportBase& r) { r.SetIFBandwidth(IFBandwidth()); }},
        {"SetArea", [](ReportBase& r) { r.SetArea(Area()); }},
        {"the frequency", [](ReportBase& r) { r.GetFrequency().SetValue(9.0); }},
        {"the IF bandwidth", [](ReportBase& r) { r.GetIFBandwidth().Reset(); }},
        {"the area", [](ReportBase& r) { r.GetArea().SetName(QStringLiteral("New")); }},
        {"a coordinate", [](ReportBase& r) { r.GetArea().GetCoordinate()[0].SetLongitude(9.0); }},
        {"ResetFrequency", [](ReportBase& r) { r.ResetFrequency(); }},
        {"ResetIFBandwidth", [](ReportBase& r) { r.ResetIFBandwidth(); }},
        {"ResetArea", [](ReportBase& r) { r.ResetArea(); }},
        {"raw reading of nothing", [](ReportBase& r) { ReadRawForm(r, Support::Byte(0)); }},
        {"MergeRGObject of all members", [](ReportBase& r) { r.MergeRGObject(SomeReport()); }},
    };
}

template <class T>
Changes<T> AllChanges()
{
    Changes<T> changes = CommonChanges<T>();
    for (const auto& change : OwnChanges<T>())
        changes.push_back(change);
    return changes;
}

/// Makes every change to one of two objects that were just copied or assigned and expects the other one to
/// stay as it was.
template <class T>
void ExpectIndependence(const T& object)
{
    const auto before = Support::StateOf(object);
    for (const auto& [name, change] : AllChanges<T>()) {
        SCOPED_TRACE(name);
        T copied(object);
        change(copied);
        EXPECT_STATE(object, before);
        EXPECT_NE(Support::Describe(Support::StateOf(copied)), Support::Describe(before));

        T original(object);
        const T copy(original);
        change(original);
        EXPECT_STATE(copy, before);

        T target;
        target = object;
        change(target);
        EXPECT_STATE(object, before);

        T source(object);
        T assigned;
        assigned = source;
        change(source);
        EXPECT_STATE(assigned, before);

        T first;
        T second;
        T third(object);
        first = second = third;
        change(second);
        EXPECT_STATE(first, before);
        EXPECT_STATE(third, before);
    }
}

bool IsValidating(const Area& area, int index)
{
    return area.GetCoordinate().at(index).GetValidate();
}

std::shared_ptr<REPORTGENERATOR::Logger> LoggerOf(const Area& area, int index)
{
    return area.GetCoordinate().at(index).GetLogger();
}

/// An area that doesn't pass its check because of its only coordinate.
Area Faulty()
{
    Area area;
    area.SetName(QStringLiteral("Lake"));
    area.SetCoordinate({OnlyLatitude(1.0)});
    return area;
}

const char* const FAULT = "Coordinate: Please set Longitude properly.";

} // namespace

// --- Fields -----------------------------------------------------------------------------------------------

TEST(Sharing, ChangingOneObjectNeverChangesAnother)
{
    ExpectIndependence(Support::Used<Frequency>());
    ExpectIndependence(Support::Used<IFBandwidth>());
    ExpectIndependence(Support::Used<Coordinate>());
    ExpectIndependence(SomeArea());
    ExpectIndependence(SomeReport());
}

TEST(Sharing, LeftoversOfUnsetFieldsGoAlongAndAreIndependentToo)
{
    Frequency frequency;
    EXPECT_EQ(ReadRawForm(frequency, Support::Byte(0) + Support::Double(5.0)), 0);
    const Frequency copy(frequency);
    Frequency assigned;
    assigned = frequency;
    frequency.ResetValue();
    EXPECT_EQ(frequency.GetValue(), 0.0);
    EXPECT_EQ(copy.GetValue(), 5.0);
    EXPECT_EQ(assigned.GetValue(), 5.0);
}

TEST(Sharing, ReadingOfAnObjectThatSharesItsFieldsChangesNeither)
{
    const ReportBase report = SomeReport();
    ReportBase assigned;
    assigned = report;
    const auto before = Support::StateOf(report);
    EXPECT_NO_RG_THROW(assigned.GetXmlString());
    EXPECT_NO_RG_THROW(report.GetBinaryRepresentationAsQByteArray());
    EXPECT_NO_RG_THROW(assigned.Check());
    EXPECT_TRUE(Support::RawFormOf(assigned) == Support::RawFormOf(report));
    EXPECT_TRUE(assigned == report);
    EXPECT_STATE(assigned, before);
    EXPECT_STATE(report, before);
}

namespace {

template <class T>
void ExpectNoRecordsOfMembers(const T& original, const T& compared, bool (*areInitialized)(const T&))
{
    const std::vector<std::pair<const char*, std::function<void(const T&)>>> uses = {
        {"comparison", [&](const T& object) { EXPECT_TRUE(object == compared); }},
        {"comparison by another", [&](const T& object) { EXPECT_TRUE(compared == object); }},
        {"raw writing", [](const T& object) { Support::RawFormOf(object); }},
        {"GetXml", [](const T& object) { object.GetXmlString(); }},
        {"GetBinary", [](const T& object) { Support::BodyOf(object); }},
        {"Check", [](const T& object) { object.Check(true); }},
    };
    EXPECT_TRUE(areInitialized(compared));
    for (const auto& [name, use] : uses) {
        SCOPED_TRACE(name);
        const T source(original);
        const T other(source);
        T sharing;
        sharing.SetValidate(false);
        sharing.SetLogger(Support::NewLogger());
        sharing = source;
        use(sharing);
        EXPECT_FALSE(areInitialized(source));
    }
}

} // namespace

TEST(Sharing, UsingAnObjectDoesNotMakeTheRecordsOfMembersThatItSharesWithAnother)
{
    ReportBase report;
    report.GetFrequency();
    report.GetIFBandwidth();
    report.GetArea();
    ReportBase compared;
    compared.GetFrequency().GetValue();
    compared.GetIFBandwidth().GetValue();
    compared.GetArea().GetName();
    ExpectNoRecordsOfMembers<ReportBase>(report, compared, [](const ReportBase& object) {
        return object.GetFrequency().IsInitialized() || object.GetIFBandwidth().IsInitialized() ||
               object.GetArea().IsInitialized();
    });

    Area area;
    area.SetCoordinate({Coordinate()});
    Area comparedArea;
    comparedArea.SetCoordinate({Coordinate()});
    comparedArea.GetCoordinate()[0].GetLongitude();
    ExpectNoRecordsOfMembers<Area>(
        area, comparedArea, [](const Area& object) { return object.GetCoordinate().at(0).IsInitialized(); });
}

TEST(Sharing, ACopyOutlivesItsOriginal)
{
    Area copy;
    Coordinate coordinate;
    {
        const Area original = SomeArea();
        copy = original;
        coordinate = original.GetCoordinate().at(1);
    }
    EXPECT_TRUE(copy == SomeArea());
    EXPECT_TRUE(coordinate == At(3.0, 4.0));
}

TEST(Sharing, ObjectsInContainersAreIndependent)
{
    QVector<ReportBase> reports(3, SomeReport());
    const QVector<ReportBase> before = reports;
    reports[1].GetArea().GetCoordinate()[0].SetLongitude(9.0);
    reports[2].GetFrequency().SetValue(9.0);
    EXPECT_TRUE(reports.at(0) == SomeReport());
    EXPECT_FALSE(reports.at(1) == SomeReport());
    EXPECT_FALSE(reports.at(2) == SomeReport());
    for (const ReportBase& report : before)
        EXPECT_TRUE(report == SomeReport());

    std::vector<Coordinate> coordinates;
    for (int i = 0; i < 100; ++i)
        coordinates.push_back(At(i, 0.0));
    std::reverse(coordinates.begin(), coordinates.end());
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(coordinates[static_cast<std::size_t>(i)].GetLongitude(), 99.0 - i);
}

TEST(Sharing, SwappedObjectsExchangeTheirFields)
{
    Area one = SomeArea();
    Area other;
    other.SetName(QStringLiteral("Other"));
    std::swap(one, other);
    EXPECT_TEXT(one.GetName(), "Other");
    EXPECT_TRUE(other == SomeArea());
}

// --- Settings ---------------------------------------------------------------------------------------------

namespace {

/// What is changed at one of two areas that share their coordinates doesn't show at the other one.
void ExpectSettingsApart(const Area& source, const Area& other, bool isOfSource, bool isLookedAt)
{
    const Area& changed = isOfSource ? source : other;
    const Area& kept = isOfSource ? other : source;
    const Coordinate* const held = isLookedAt ? &kept.GetCoordinate().at(0) : nullptr;
    const auto logger = Support::NewLogger();
    changed.SetValidate(false);
    changed.SetLogger(logger);
    if (held) {
        EXPECT_TRUE(held->GetValidate());
        EXPECT_EQ(held->GetLogger(), nullptr);
    }
    EXPECT_TRUE(kept.GetValidate());
    EXPECT_NO_RG_THROW(kept.Check());
    for (const int index : {0, 1}) {
        EXPECT_TRUE(IsValidating(kept, index));
        EXPECT_EQ(LoggerOf(kept, index), nullptr);
        EXPECT_FALSE(IsValidating(changed, index));
        EXPECT_EQ(LoggerOf(changed, index), logger);
    }
}

} // namespace

TEST(Sharing, SettingsOfAnAreaNeverReachTheCoordinatesOfAnother)
{
    for (const bool isCopied : {true, false}) {
        for (const bool isLookedAt : {true, false}) {
            for (const bool isOfSource : {true, false}) {
                SCOPED_TRACE(isCopied ? "copied" : "assigned");
                SCOPED_TRACE(isOfSource ? "source" : "other");
                const Area source = SomeArea();
                const Area copy(isCopied ? source : Area());
                Area assigned;
                if (!isCopied)
                    assigned = source;
                const Area& other = isCopied ? copy : assigned;
                ExpectSettingsApart(source, other, isOfSource, isLookedAt);
            }
        }
    }
}

namespace {

/// The other one shares what the first one holds.
template <class T>
void ExpectOwnLoggers(T one, const QStringList& lines)
{
    const auto oneLogger = Support::NewLogger();
    const auto otherLogger = Support::NewLogger();
    T other;
    one.SetLogger(oneLogger);
    other.SetLogger(otherLogger);
    other = one;
    EXPECT_NO_RG_THROW(one.Check(true));
    EXPECT_LOG(oneLogger, lines);
    EXPECT_LOG(otherLogger, {});
    EXPECT_NO_RG_THROW(other.Check(true));
    EXPECT_LOG(otherLogger, lines);
    EXPECT_NO_RG_THROW(one.Check(true));

    T silent;
    silent = one;
    EXPECT_RG_THROW(silent.Check(true), "OutOfRangeException", lines.front().section(QLatin1String(": "), 2));
    EXPECT_NO_RG_THROW(one.Check(true));
    EXPECT_LOG(oneLogger, lines + lines + lines);
    EXPECT_LOG(otherLogger, lines);
}

} // namespace

TEST(Sharing, EachOfTwoObjectsThatShareTheirMembersSpeaksThroughItsOwnLogger)
{
    const QString fault = QStringLiteral("ERROR: OutOfRangeException: ") + Support::Text(FAULT);
    ExpectOwnLoggers(Faulty(), QStringList{fault});
    ReportBase report;
    report.GetFrequency();
    report.SetArea(Faulty());
    ExpectOwnLoggers(
        report, {QStringLiteral("ERROR: OutOfRangeException: Frequency: Please set Value properly."), fault});
}

TEST(Sharing, CoordinatesOfASourceThatHasGoneSpeakThroughTheLoggerOfWhoTookThem)
{
    for (const bool isLookedAt : {false, true}) {
        for (const bool changesSettings : {false, true}) {
            SCOPED_TRACE(::testing::Message() << isLookedAt << changesSettings);
            Area area;
            area.SetValidate(changesSettings);
            const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
            area.SetLogger(logger);
            {
                const Area source = SomeArea();
                area = source;
            }
            area.Check(true);
            if (isLookedAt) {
                EXPECT_EQ(LoggerOf(area, 0), logger);
            }
            if (changesSettings) {
                area.SetValidate(false);
                EXPECT_EQ(LoggerOf(area, 0), logger);
            }
            area.GetCoordinate()[0].SetLongitude(200.0);
            EXPECT_EQ(LoggerOf(area, 0), logger);
            EXPECT_LOG(logger,
                       {"WARNING: OutOfRangeException: Parameters for m_longitude are not set within range "
                        "(-180, 180) in 'Coordinate'."});
        }
    }
}

TEST(Sharing, WhetherACoordinateValidatesIsAssignedWithIt)
{
    Coordinate notValidating = At(3.0, 4.0);
    notValidating.SetValidate(false);
    Area area = SomeArea();
    area.AppendCoordinate(notValidating);
    Area first;
    first = area;
    Area second;
    second = area;
    for (const Area* assigned : {&first, &second}) {
        EXPECT_TRUE(IsValidating(*assigned, 0));
        EXPECT_FALSE(IsValidating(*assigned, 2));
    }
}

TEST(Sharing, SettingsOfAReportNeverReachMembersOfAnother)
{
    const ReportBase original = SomeReport();
    const ReportBase copy(original);
    ReportBase assigned;
    assigned = original;
    const auto logger = Support::NewLogger();
    for (const ReportBase* other : {&copy, &std::as_const(assigned)}) {
        other->SetValidate(false);
        other->SetLogger(logger);
        EXPECT_TRUE(original.GetFrequency().GetValidate());
        EXPECT_EQ(original.GetArea().GetLogger(), nullptr);
        EXPECT_EQ(LoggerOf(original.GetArea(), 0), nullptr);
        EXPECT_TRUE(IsValidating(original.GetArea(), 1));
        EXPECT_FALSE(other->GetFrequency().GetValidate());
        EXPECT_EQ(LoggerOf(other->GetArea(), 1), logger);
    }
}

TEST(Sharing, SettingsOfAReportNeverReachTheObjectsThatItWasGiven)
{
    const Frequency frequency = Support::Used<Frequency>();
    const IFBandwidth bandwidth = Support::Used<IFBandwidth>();
    const Area area = SomeArea();
    ReportBase report;
    report.SetFrequency(frequency);
    report.SetIFBandwidth(bandwidth);
    report.SetArea(area);
    report.SetValidate(false);
    report.SetLogger(Support::NewLogger());
    report.GetXmlString();
    EXPECT_TRUE(frequency.GetValidate());
    EXPECT_EQ(frequency.GetLogger(), nullptr);
    EXPECT_TRUE(bandwidth.GetValidate());
    EXPECT_TRUE(area.GetValidate());
    EXPECT_TRUE(IsValidating(area, 0));
    EXPECT_EQ(LoggerOf(area, 0), nullptr);
}

// --- Lists and items given and taken ----------------------------------------------------------------------

TEST(Sharing, AListTakenFromAnAreaStaysAsItWas)
{
    Area area = SomeArea();
    const QVector<Coordinate> list = std::as_const(area).GetCoordinate();
    for (const auto& [name, change] : AllChanges<Area>()) {
        SCOPED_TRACE(name);
        Area changed(area);
        change(changed);
        ASSERT_EQ(list.size(), 2);
        EXPECT_TRUE(list.at(0) == At(1.0, 2.0));
        EXPECT_TRUE(list.at(1) == At(3.0, 4.0));
    }
    area.SetValidate(false);
    area.SetLogger(Support::NewLogger());
    area.GetCoordinate()[0].SetLongitude(9.0);
    EXPECT_TRUE(list.at(0) == At(1.0, 2.0));
    EXPECT_TRUE(list.at(0).GetValidate());
    EXPECT_EQ(list.at(0).GetLogger(), nullptr);
}

TEST(Sharing, ChangingWhatIsTakenFromAnAreaDoesNotChangeTheArea)
{
    Area area = SomeArea();
    area.SetLogger(Support::NewLogger());
    QVector<Coordinate> list = area.GetCoordinate();
    Coordinate taken = area.GetCoordinate().at(0);
    EXPECT_EQ(taken.GetLogger(), nullptr);
    for (Coordinate* coordinate : {&taken, &list[0]}) {
        coordinate->SetLongitude(9.0);
        coordinate->SetValidate(false);
    }
    list.append(At(5.0, 6.0));
    EXPECT_TRUE(area == SomeArea());
    EXPECT_TRUE(IsValidating(area, 0));
    area.Reset();
    EXPECT_TRUE(taken == At(9.0, 2.0));
    EXPECT_TRUE(list == QVector<Coordinate>({At(9.0, 2.0), At(3.0, 4.0), At(5.0, 6.0)}));
}

TEST(Sharing, WhatIsGivenToAnAreaStaysAsItWas)
{
    const QVector<Coordinate> list = {OnlyLatitude(1.0), At(3.0, 4.0)};
    const Coordinate item = At(5.0, 6.0);
    Area area;
    area.SetValidate(false);
    area.SetLogger(Support::NewLogger());
    area.SetCoordinate(list);
    area.AppendCoordinate(item);
    EXPECT_NO_RG_THROW(area.Check(true));
    area.GetXmlString();
    area.SetValidate(false);
    area.SetLogger(Support::NewLogger());
    for (const Coordinate* coordinate : {&list.at(0), &list.at(1), &item}) {
        EXPECT_TRUE(coordinate->GetValidate());
        EXPECT_EQ(coordinate->GetLogger(), nullptr);
    }
    area.GetCoordinate()[1].SetLongitude(9.0);
    area.GetCoordinate()[2].SetLongitude(9.0);
    EXPECT_TRUE(list.at(1) == At(3.0, 4.0));
    EXPECT_TRUE(item == At(5.0, 6.0));
}

TEST(Sharing, TheCoordinatesOfAnAreaAreCopiesOfThoseThatItWasGiven)
{
    const auto logger = Support::NewLogger();
    const QVector<Coordinate> list = {OnlyLatitude(1.0), At(3.0, 4.0)};
    list.at(0).SetLogger(logger);
    Area area;
    area.SetCoordinate(list);
    const QVector<Coordinate>& own = std::as_const(area).GetCoordinate();
    EXPECT_EQ(own.at(0).GetLogger(), nullptr);
    own.at(1).SetValidate(false);
    own.at(1).SetLogger(logger);
    EXPECT_TRUE(list.at(1).GetValidate());
    EXPECT_EQ(list.at(1).GetLogger(), nullptr);
    list.at(0).SetValidate(false);
    EXPECT_TRUE(own.at(0).GetValidate());
}

TEST(Sharing, ChangingWhatWasGivenToAnAreaDoesNotChangeTheArea)
{
    QVector<Coordinate> list = {At(1.0, 2.0), At(3.0, 4.0)};
    Coordinate item = At(5.0, 6.0);
    Area area;
    Area other;
    area.SetCoordinate(list);
    other.SetCoordinate(list);
    area.AppendCoordinate(item);
    list[0].SetLongitude(9.0);
    list.removeLast();
    item.SetLatitude(8.0);
    EXPECT_STATE(area, (AreaState{std::nullopt, {{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}}}));

    // The list was given to two areas.
    area.SetValidate(false);
    area.GetCoordinate()[0].SetLongitude(9.0);
    EXPECT_TRUE(IsValidating(other, 0));
    EXPECT_STATE(other, (AreaState{std::nullopt, {{1.0, 2.0}, {3.0, 4.0}}}));
}

TEST(Sharing, TheLoggerOfAnItemIsNotUsedByTheArea)
{
    const auto itemLogger = Support::NewLogger();
    Coordinate item = OnlyLatitude(1.0);
    item.SetLogger(itemLogger);
    Area area = Faulty();
    area.SetValidate(false);
    area.ResetCoordinate();
    area.AppendCoordinate(item);
    area.GetXmlString();
    EXPECT_RG_THROW(area.Check(true), "OutOfRangeException", FAULT);
    area.SetCoordinate({item});
    EXPECT_RG_THROW(area.Check(true), "OutOfRangeException", FAULT);
    EXPECT_LOG(itemLogger, {});
    EXPECT_EQ(item.GetLogger(), itemLogger);
}

// --- An object given to itself ----------------------------------------------------------------------------

TEST(Sharing, AnAreaCanAppendItsOwnCoordinates)
{
    Area area;
    area.AppendCoordinate(At(1.0, 2.0));
    std::vector<CoordinateState> expected = {{1.0, 2.0}};
    for (int i = 0; i < 70; ++i) {
        area.AppendCoordinate(area.GetCoordinate().first());
        area.AppendCoordinate(std::as_const(area).GetCoordinate().last());
        expected.push_back({1.0, 2.0});
        expected.push_back({1.0, 2.0});
    }
    AreaState state;
    state.coordinates = expected;
    EXPECT_STATE(area, state);
}

TEST(Sharing, AnAreaCanBeGivenItsOwnListAndTexts)
{
    Area area = SomeArea();
    area.SetCoordinate(area.GetCoordinate());
    area.SetCoordinate(std::as_const(area).GetCoordinate());
    area.SetName(area.GetName());
    area.SetScriptID(area.GetScriptID());
    EXPECT_TRUE(area == SomeArea());
    area.SetCoordinate(area.GetCoordinate().mid(1));
    EXPECT_EQ(std::as_const(area).GetCoordinate().size(), 1);
    EXPECT_TRUE(std::as_const(area).GetCoordinate().at(0) == At(3.0, 4.0));
}

TEST(Sharing, AReportCanBeGivenItsOwnMembers)
{
    ReportBase report = SomeReport();
    report.SetFrequency(report.GetFrequency());
    report.SetIFBandwidth(std::as_const(report).GetIFBandwidth());
    report.SetArea(report.GetArea());
    report.SetArea(std::as_const(report).GetArea());
    EXPECT_TRUE(report == SomeReport());
    Area& area = report.GetArea();
    area = report.GetArea();
    EXPECT_TRUE(report == SomeReport());
}

TEST(Sharing, AMemberOfAReportCanBeGivenToAnother)
{
    const ReportBase source = SomeReport();
    ReportBase target;
    target.SetArea(source.GetArea());
    target.GetFrequency() = source.GetFrequency();
    target.GetArea().GetCoordinate()[0].SetLongitude(9.0);
    target.GetFrequency().SetValue(9.0);
    target.SetValidate(false);
    EXPECT_TRUE(source == SomeReport());
    EXPECT_TRUE(IsValidating(source.GetArea(), 0));
}

TEST(Sharing, AnElementOfAListOfAreasCanBeAssignedFromItsNeighbour)
{
    QVector<Area> areas(2, SomeArea());
    areas[0].SetName(QStringLiteral("First"));
    areas[1] = areas.at(0);
    areas[0].SetName(QStringLiteral("Changed"));
    EXPECT_TEXT(areas.at(1).GetName(), "First");
}

TEST(Sharing, ACoordinateOfAnAreaCanBeAssignedFromAnother)
{
    Area area = SomeArea();
    area.GetCoordinate()[0] = area.GetCoordinate()[1];
    area.GetCoordinate()[1].SetLongitude(9.0);
    EXPECT_TRUE(area.GetCoordinate().at(0) == At(3.0, 4.0));
    EXPECT_TRUE(area.GetCoordinate().at(1) == At(9.0, 4.0));
}
