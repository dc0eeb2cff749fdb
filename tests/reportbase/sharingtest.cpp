// Objects are values: whatever two of them share inside, nobody sees it.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/points.h"
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
using Support::Int32;
using Support::OnlyLatitude;
using Support::ReadElement;
using Support::ReadElements;
using Support::ReadRawForm;

Frequency SomeFrequency()
{
    Frequency frequency;
    frequency.SetValue(1.0);
    frequency.SetMin(2.0);
    frequency.SetMax(3.0);
    frequency.SetUse(false);
    return frequency;
}

IFBandwidth SomeBandwidth()
{
    IFBandwidth bandwidth;
    bandwidth.SetValue(1.0);
    bandwidth.SetMin(2.0);
    bandwidth.SetMax(3.0);
    return bandwidth;
}

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
    report.SetFrequency(SomeFrequency());
    report.SetIFBandwidth(SomeBandwidth());
    report.SetArea(SomeArea());
    return report;
}

template <class T>
using Changes = std::vector<std::pair<const char*, std::function<void(T&)>>>;

const Changes<Frequency> FREQUENCY_CHANGES = {
    {"SetValue", [](Frequency& f) { f.SetValue(9.0); }},
    {"SetMin", [](Frequency& f) { f.SetMin(9.0); }},
    {"SetMax", [](Frequency& f) { f.SetMax(9.0); }},
    {"SetUse", [](Frequency& f) { f.SetUse(true); }},
    {"ResetValue", [](Frequency& f) { f.ResetValue(); }},
    {"ResetMin", [](Frequency& f) { f.ResetMin(); }},
    {"ResetMax", [](Frequency& f) { f.ResetMax(); }},
    {"ResetUse", [](Frequency& f) { f.ResetUse(); }},
    {"Reset", [](Frequency& f) { f.Reset(); }},
    {"ResetToDefault", [](Frequency& f) { f.ResetToDefault(); }},
    {"SetXmlString", [](Frequency& f) { f.SetXmlString(QStringLiteral("<Frequency>9</Frequency>"), true); }},
    {"ProcessXml", [](Frequency& f) { ReadElement(f, QStringLiteral("<Frequency>9</Frequency>")); }},
    {"SetBinary", [](Frequency& f) { ReadElements(f, Bytes()); }},
    {"raw reading", [](Frequency& f) { ReadRawForm(f, Support::Byte(1) + Support::Double(9.0)); }},
    {"MergeRGObject",
     [](Frequency& f) {
         Frequency other;
         other.SetValue(9.0);
         f.MergeRGObject(other);
     }},
    {"assignment", [](Frequency& f) { f = Frequency(); }},
};

const Changes<Coordinate> COORDINATE_CHANGES = {
    {"SetLongitude", [](Coordinate& c) { c.SetLongitude(9.0); }},
    {"SetLatitude", [](Coordinate& c) { c.SetLatitude(9.0); }},
    {"ResetLongitude", [](Coordinate& c) { c.ResetLongitude(); }},
    {"ResetLatitude", [](Coordinate& c) { c.ResetLatitude(); }},
    {"Reset", [](Coordinate& c) { c.Reset(); }},
    {"ResetToDefault", [](Coordinate& c) { c.ResetToDefault(); }},
    {"ProcessXml",
     [](Coordinate& c) {
         ReadElement(c, QStringLiteral("<Coordinate><Latitude>9</Latitude></Coordinate>"));
     }},
    {"SetBinary", [](Coordinate& c) { ReadElements(c, Bytes()); }},
    {"raw reading",
     [](Coordinate& c) { ReadRawForm(c, Support::Byte(3) + Support::Double(9.0) + Support::Double(8.0)); }},
    {"assignment", [](Coordinate& c) { c = Coordinate(); }},
};

const Changes<Area> AREA_CHANGES = {
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
    {"Reset", [](Area& a) { a.Reset(); }},
    {"ResetToDefault", [](Area& a) { a.ResetToDefault(); }},
    {"ProcessXml",
     [](Area& a) { ReadElement(a, QStringLiteral("<Area Version=\"1.0\"><Name>New</Name></Area>")); }},
    {"the version that is loaded",
     [](Area& a) { ReadElement(a, QStringLiteral("<Area Version=\"5.0\"/>")); }},
    {"an older version", [](Area& a) { ReadElement(a, QStringLiteral("<Area Version=\"0.5\"/>")); }},
    {"SetBinary", [](Area& a) { ReadElements(a, Bytes()); }},
    {"raw reading",
     [](Area& a) {
         ReadRawForm(a, Support::Byte(1) + Support::String(u"1.0") + Support::String(u"New") + Int32(1) +
                            Support::Byte(3) + Support::Double(9.0) + Support::Double(9.0));
     }},
    {"MergeRGObject", [](Area& a) { a.MergeRGObject(SomeArea()); }},
    {"assignment", [](Area& a) { a = Area(); }},
};

const Changes<ReportBase> REPORT_CHANGES = {
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
    {"Reset", [](ReportBase& r) { r.Reset(); }},
    {"ResetToDefault", [](ReportBase& r) { r.ResetToDefault(); }},
    {"ProcessXml",
     [](ReportBase& r) {
         ReadElement(r, QStringLiteral("<ReportBase><Frequency>9</Frequency></ReportBase>"));
     }},
    {"SetBinary", [](ReportBase& r) { ReadElements(r, Bytes()); }},
    {"raw reading", [](ReportBase& r) { ReadRawForm(r, Support::Byte(0)); }},
    {"MergeRGObject", [](ReportBase& r) { r.MergeRGObject(SomeReport()); }},
    {"assignment", [](ReportBase& r) { r = ReportBase(); }},
};

/// Makes every change to one of two objects that were just copied or assigned and expects the other one to
/// stay as it was.
template <class T>
void ExpectIndependence(const T& object, const Changes<T>& changes)
{
    const auto before = Support::StateOf(object);
    for (const auto& [name, change] : changes) {
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

TEST(Sharing, ChangingOneFrequencyNeverChangesAnother)
{
    ExpectIndependence(SomeFrequency(), FREQUENCY_CHANGES);
}

TEST(Sharing, ChangingOneIFBandwidthNeverChangesAnother)
{
    ExpectIndependence(
        SomeBandwidth(),
        Changes<IFBandwidth>{
            {"SetValue", [](IFBandwidth& b) { b.SetValue(9.0); }},
            {"ResetMin", [](IFBandwidth& b) { b.ResetMin(); }},
            {"Reset", [](IFBandwidth& b) { b.Reset(); }},
            {"ResetToDefault", [](IFBandwidth& b) { b.ResetToDefault(); }},
            {"SetBinary", [](IFBandwidth& b) { ReadElements(b, Bytes()); }},
            {"raw reading", [](IFBandwidth& b) { ReadRawForm(b, Support::Byte(1) + Support::Double(9.0)); }},
        });
}

TEST(Sharing, ChangingOneCoordinateNeverChangesAnother)
{
    ExpectIndependence(At(1.0, 2.0), COORDINATE_CHANGES);
}

TEST(Sharing, ChangingOneAreaNeverChangesAnother)
{
    ExpectIndependence(SomeArea(), AREA_CHANGES);
}

TEST(Sharing, ChangingOneReportNeverChangesAnother)
{
    ExpectIndependence(SomeReport(), REPORT_CHANGES);
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

TEST(Sharing, UsingAnObjectDoesNotMakeTheRecordsOfMembersThatItSharesWithAnother)
{
    ReportBase compared;
    compared.GetFrequency().GetValue();
    compared.GetIFBandwidth().GetValue();
    compared.GetArea().GetName();
    const std::vector<std::pair<const char*, std::function<void(const ReportBase&)>>> uses = {
        {"comparison", [&](const ReportBase& r) { EXPECT_TRUE(r == compared); }},
        {"comparison by another", [&](const ReportBase& r) { EXPECT_TRUE(compared == r); }},
        {"raw writing", [](const ReportBase& r) { Support::RawFormOf(r); }},
        {"GetXml", [](const ReportBase& r) { r.GetXmlString(); }},
        {"GetBinary", [](const ReportBase& r) { Support::BodyOf(r); }},
        {"Check", [](const ReportBase& r) { r.Check(true); }},
    };
    for (const auto& [name, use] : uses) {
        SCOPED_TRACE(name);
        ReportBase original;
        original.GetFrequency();
        original.GetIFBandwidth();
        original.GetArea();
        ReportBase sharing;
        sharing.SetValidate(false);
        sharing.SetLogger(Support::NewLogger());
        sharing = original;
        use(sharing);
        EXPECT_FALSE(std::as_const(original).GetFrequency().IsInitialized());
        EXPECT_FALSE(std::as_const(original).GetIFBandwidth().IsInitialized());
        EXPECT_FALSE(std::as_const(original).GetArea().IsInitialized());
    }
}

TEST(Sharing, UsingAnAreaDoesNotMakeTheRecordsOfCoordinatesThatItSharesWithAnother)
{
    Area compared;
    compared.SetCoordinate({Coordinate()});
    compared.GetCoordinate()[0].GetLongitude();
    const std::vector<std::pair<const char*, std::function<void(const Area&)>>> uses = {
        {"comparison", [&](const Area& a) { EXPECT_TRUE(a == compared); }},
        {"comparison by another", [&](const Area& a) { EXPECT_TRUE(compared == a); }},
        {"raw writing", [](const Area& a) { Support::RawFormOf(a); }},
        {"GetXml", [](const Area& a) { a.GetXmlString(); }},
        {"GetBinary", [](const Area& a) { Support::BodyOf(a); }},
        {"Check", [](const Area& a) { a.Check(true); }},
    };
    for (const auto& [name, use] : uses) {
        SCOPED_TRACE(name);
        Area original;
        original.SetCoordinate({Coordinate()});
        Area sharing;
        sharing.SetValidate(false);
        sharing.SetLogger(Support::NewLogger());
        sharing = original;
        use(sharing);
        EXPECT_FALSE(std::as_const(original).GetCoordinate().at(0).IsInitialized());
    }
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

TEST(Sharing, SettingsOfACopyNeverReachTheCoordinatesOfTheOriginal)
{
    const Area original = SomeArea();
    const Coordinate& coordinate = original.GetCoordinate().at(0);
    const Area copy(original);
    copy.SetValidate(false);
    copy.SetLogger(Support::NewLogger());
    EXPECT_TRUE(coordinate.GetValidate());
    EXPECT_EQ(coordinate.GetLogger(), nullptr);
    EXPECT_TRUE(IsValidating(original, 0));
    EXPECT_EQ(LoggerOf(original, 1), nullptr);
    EXPECT_FALSE(IsValidating(copy, 0));
    EXPECT_NE(LoggerOf(copy, 1), nullptr);
}

TEST(Sharing, SettingsOfTheOriginalNeverReachTheCoordinatesOfACopy)
{
    const Area original = SomeArea();
    const Area copy(original);
    const Coordinate& coordinate = copy.GetCoordinate().at(0);
    original.SetValidate(false);
    original.SetLogger(Support::NewLogger());
    EXPECT_TRUE(coordinate.GetValidate());
    EXPECT_EQ(coordinate.GetLogger(), nullptr);
    EXPECT_TRUE(IsValidating(copy, 0));
    EXPECT_EQ(LoggerOf(copy, 1), nullptr);
    EXPECT_FALSE(IsValidating(original, 0));
}

TEST(Sharing, SettingsOfAnAssignedAreaNeverReachTheCoordinatesOfTheOther)
{
    const Area source = SomeArea();
    Area target;
    target = source;
    target.SetValidate(false);
    target.SetLogger(Support::NewLogger());
    EXPECT_TRUE(IsValidating(source, 0));
    EXPECT_EQ(LoggerOf(source, 0), nullptr);

    const auto logger = Support::NewLogger();
    Area other;
    other = source;
    source.SetLogger(logger);
    source.SetValidate(false);
    EXPECT_EQ(LoggerOf(source, 0), logger);
    EXPECT_TRUE(other.GetValidate());
    EXPECT_NO_RG_THROW(other.Check());
    EXPECT_TRUE(IsValidating(other, 0));
    EXPECT_EQ(LoggerOf(other, 0), nullptr);
    EXPECT_EQ(LoggerOf(source, 0), logger);
    EXPECT_FALSE(IsValidating(source, 0));
}

TEST(Sharing, EachOfTwoAreasThatShareTheirCoordinatesSpeaksThroughItsOwnLogger)
{
    const auto oneLogger = Support::NewLogger();
    const auto otherLogger = Support::NewLogger();
    Area one = Faulty();
    Area other;
    one.SetLogger(oneLogger);
    other.SetLogger(otherLogger);
    other = one;
    EXPECT_NO_RG_THROW(one.Check(true));
    EXPECT_LOG(otherLogger, {});
    EXPECT_NO_RG_THROW(other.Check(true));
    EXPECT_NO_RG_THROW(one.Check(true));
    const QString line = QStringLiteral("ERROR: OutOfRangeException: ") + Support::Text(FAULT);
    EXPECT_LOG(oneLogger, QStringList({line, line}));
    EXPECT_LOG(otherLogger, QStringList{line});

    Area silent;
    silent = one;
    EXPECT_RG_THROW(silent.Check(true), "OutOfRangeException", FAULT);
    EXPECT_NO_RG_THROW(one.Check(true));
    EXPECT_LOG(oneLogger, QStringList({line, line, line}));
}

TEST(Sharing, EachOfTwoReportsThatShareTheirMembersSpeaksThroughItsOwnLogger)
{
    const auto oneLogger = Support::NewLogger();
    const auto otherLogger = Support::NewLogger();
    ReportBase one;
    one.GetFrequency();
    one.SetArea(Faulty());
    ReportBase other;
    one.SetLogger(oneLogger);
    other.SetLogger(otherLogger);
    other = one;
    const QStringList lines = {
        QStringLiteral("ERROR: OutOfRangeException: Frequency: Please set Value properly."),
        QStringLiteral("ERROR: OutOfRangeException: ") + Support::Text(FAULT)};
    EXPECT_NO_RG_THROW(one.Check(true));
    EXPECT_LOG(otherLogger, {});
    EXPECT_LOG(oneLogger, lines);
    EXPECT_NO_RG_THROW(other.Check(true));
    EXPECT_LOG(otherLogger, lines);
    EXPECT_LOG(oneLogger, lines);
    EXPECT_NO_RG_THROW(one.Check(true));
    EXPECT_LOG(oneLogger, lines + lines);
    EXPECT_LOG(otherLogger, lines);
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
    const Frequency frequency = SomeFrequency();
    const IFBandwidth bandwidth = SomeBandwidth();
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
    for (const auto& [name, change] : AREA_CHANGES) {
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

TEST(Sharing, ChangingAListTakenFromAnAreaDoesNotChangeTheArea)
{
    Area area = SomeArea();
    QVector<Coordinate> list = area.GetCoordinate();
    list[0].SetLongitude(9.0);
    list[0].SetValidate(false);
    list.append(At(5.0, 6.0));
    EXPECT_TRUE(area == SomeArea());
    EXPECT_TRUE(IsValidating(area, 0));
}

TEST(Sharing, AListGivenToAnAreaStaysAsItWas)
{
    const QVector<Coordinate> list = {OnlyLatitude(1.0), At(3.0, 4.0)};
    Area area;
    area.SetValidate(false);
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    area.SetCoordinate(list);
    EXPECT_NO_RG_THROW(area.Check(true));
    area.GetXmlString();
    area.SetValidate(false);
    area.SetLogger(logger);
    for (const Coordinate& coordinate : list) {
        EXPECT_TRUE(coordinate.GetValidate());
        EXPECT_EQ(coordinate.GetLogger(), nullptr);
    }
    area.GetCoordinate()[1].SetLongitude(9.0);
    EXPECT_TRUE(list.at(1) == At(3.0, 4.0));
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

TEST(Sharing, ChangingAListGivenToAnAreaDoesNotChangeTheArea)
{
    QVector<Coordinate> list = {At(1.0, 2.0), At(3.0, 4.0)};
    Area area;
    area.SetCoordinate(list);
    list[0].SetLongitude(9.0);
    list.removeLast();
    AreaState state;
    state.coordinates = {{1.0, 2.0}, {3.0, 4.0}};
    EXPECT_STATE(area, state);
}

TEST(Sharing, AListGivenToTwoAreasIsIndependentInEach)
{
    const QVector<Coordinate> list = {At(1.0, 2.0)};
    Area one;
    Area other;
    one.SetCoordinate(list);
    other.SetCoordinate(list);
    one.SetValidate(false);
    EXPECT_TRUE(IsValidating(other, 0));
    one.GetCoordinate()[0].SetLongitude(9.0);
    EXPECT_TRUE(other.GetCoordinate().at(0) == At(1.0, 2.0));
}

TEST(Sharing, AnItemGivenToAnAreaStaysAsItWasAndCanBeChanged)
{
    Coordinate item = At(1.0, 2.0);
    Area area;
    area.AppendCoordinate(item);
    area.SetValidate(false);
    area.SetLogger(Support::NewLogger());
    area.GetXmlString();
    EXPECT_TRUE(item.GetValidate());
    EXPECT_EQ(item.GetLogger(), nullptr);
    area.GetCoordinate()[0].SetLongitude(9.0);
    EXPECT_TRUE(item == At(1.0, 2.0));
    item.SetLatitude(8.0);
    EXPECT_TRUE(area.GetCoordinate().at(0) == At(9.0, 2.0));
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

TEST(Sharing, ACoordinateTakenFromAnAreaIsIndependent)
{
    Area area = SomeArea();
    area.SetLogger(Support::NewLogger());
    Coordinate taken = area.GetCoordinate().at(0);
    EXPECT_EQ(taken.GetLogger(), nullptr);
    taken.SetLongitude(9.0);
    taken.SetValidate(false);
    EXPECT_TRUE(area == SomeArea());
    EXPECT_TRUE(IsValidating(area, 0));
    area.Reset();
    EXPECT_TRUE(taken == At(9.0, 2.0));
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
