// Area and ReportBase hold objects, which have their validate flag and their logger: from whenever they come
// in, again when somebody gave them others, and in copies.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/points.h"
#include "support/recordclasses.h"
#include "support/recordelements.h"
#include "support/records.h"

#include <reportgenerator/reportbase/irgobject.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

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
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::Logger;
using REPORTGENERATOR::ReportBase;
using Support::At;
using Support::BodyOf;
using Support::Byte;
using Support::Bytes;
using Support::Coordinates;
using Support::Double;
using Support::Int32;
using Support::Latitude;
using Support::Name;
using Support::NotValidating;
using Support::NullString;
using Support::OnlyLatitude;
using Support::RawPoint;
using Support::ReadElement;
using Support::ReadElements;
using Support::ReadRawForm;
using Support::String;
using Support::Version;
namespace Tag = Support::Tag;

using Members = std::vector<const IRGObject*>;

template <class T>
using WaysIn = std::vector<std::pair<const char*, std::function<void(T&)>>>;

const char* const SET_LONGITUDE = "Coordinate: Please set Longitude properly.";

/// What the tests have to know of a holder.
template <class T>
struct Holder;

template <>
struct Holder<Area>
{
    static constexpr std::size_t MEMBERS = 1; ///< at least

    static std::vector<const char*> Problems() { return {SET_LONGITUDE}; }

    /// With all members and the problems above.
    static Area Incomplete()
    {
        Area area;
        area.SetName(QStringLiteral("N"));
        area.SetCoordinate({OnlyLatitude(1.0), At(3.0, 4.0)});
        return area;
    }

    static Members MembersOf(const Area& area)
    {
        Members members;
        for (const Coordinate& coordinate : area.GetCoordinate())
            members.push_back(&coordinate);
        return members;
    }

    static IRGObject& FirstMember(Area& area) { return area.GetCoordinate()[0]; }

    static WaysIn<Area> AllWaysIn()
    {
        return {
            {"AppendCoordinate", [](Area& a) { a.AppendCoordinate(OnlyLatitude(1.0)); }},
            {"SetCoordinate", [](Area& a) { a.SetCoordinate({OnlyLatitude(1.0)}); }},
            {"GetCoordinate", [](Area& a) { a.GetCoordinate().append(OnlyLatitude(1.0)); }},
            {"XML",
             [](Area& a) {
                 ReadElement(a, QStringLiteral("<Area Version=\"1.0\"><Coordinate><Latitude>1</Latitude>"
                                               "</Coordinate></Area>"));
             }},
            {"elements", [](Area& a) { ReadElements(a, Coordinates(1, Support::Body(Latitude("1")))); }},
            {"raw form",
             [](Area& a) {
                 ReadRawForm(a, Byte(2) + String(u"1.0") + NullString() + Int32(1) + RawPoint(2, 0.0, 1.0));
             }},
            {"assignment",
             [](Area& a) {
                 Area other;
                 other.SetCoordinate({OnlyLatitude(1.0)});
                 a = other;
             }},
            {"merging",
             [](Area& a) {
                 Area other = NotValidating<Area>();
                 other.ResetLogger();
                 EXPECT_EQ(ReadElements(other, Coordinates(1, Support::Body(Bytes()))), 0);
                 a.MergeRGObject(other);
                 a.GetCoordinate()[0].ResetLongitude();
             }},
        };
    }

    static void GiveName(Area& area) { area.SetName(QStringLiteral("N")); }
};

template <>
struct Holder<ReportBase>
{
    static constexpr std::size_t MEMBERS = 4;

    static std::vector<const char*> Problems()
    {
        return {"Frequency: Please set Value properly.", "IFBandwidth: Please set Value properly.",
                SET_LONGITUDE};
    }

    static ReportBase Incomplete()
    {
        ReportBase report;
        report.GetFrequency();
        report.GetIFBandwidth();
        report.GetArea() = Holder<Area>::Incomplete();
        return report;
    }

    /// The coordinates of the area too.
    static Members MembersOf(const ReportBase& report)
    {
        Members members = Holder<Area>::MembersOf(report.GetArea());
        members.insert(members.end(), {&report.GetFrequency(), &report.GetIFBandwidth(), &report.GetArea()});
        return members;
    }

    static IRGObject& FirstMember(ReportBase& report) { return report.GetFrequency(); }

    static WaysIn<ReportBase> AllWaysIn()
    {
        return {
            {"setters",
             [](ReportBase& r) {
                 r.SetFrequency(Frequency());
                 r.SetIFBandwidth(IFBandwidth());
                 r.SetArea(Holder<Area>::Incomplete());
             }},
            {"assignment to the members",
             [](ReportBase& r) {
                 r.GetFrequency() = Frequency();
                 r.GetIFBandwidth() = IFBandwidth();
                 r.GetArea() = Holder<Area>::Incomplete();
             }},
            {"assignment",
             [](ReportBase& r) {
                 ReportBase other;
                 other.SetLogger(Support::NewLogger());
                 other.SetFrequency(Frequency());
                 other.SetIFBandwidth(IFBandwidth());
                 other.SetArea(Holder<Area>::Incomplete());
                 r = other;
             }},
            {"XML",
             [](ReportBase& r) {
                 ReadElement(r, QStringLiteral("<ReportBase><Frequency/><IFBandwidth/><Area Version=\"1.0\">"
                                               "<Name>Lake</Name><Coordinate><Latitude>2</Latitude>"
                                               "</Coordinate></Area></ReportBase>"));
                 r.GetFrequency().ResetValue();
                 r.GetIFBandwidth().ResetValue();
             }},
            {"elements",
             [](ReportBase& r) {
                 ReadElements(
                     r, Element(Tag::REPORT_FREQUENCY, Bytes()) + Element(Tag::REPORT_IF_BANDWIDTH, Bytes()) +
                            Element(Tag::REPORT_AREA, Version(u"1.0") + Name("Lake") +
                                                          Coordinates(1, Support::Body(Latitude("2")))));
             }},
            {"raw form",
             [](ReportBase& r) {
                 ReadRawForm(r, Byte(7) + Byte(0) + Double(0.0) + Byte(0) + Double(0.0) + Byte(3) +
                                    String(u"1.0") + String(u"Lake") + Int32(1) + RawPoint(2, 0.0, 2.0));
             }},
        };
    }

    static void GiveName(ReportBase&) {}
};

template <class T>
class RecordHolder : public ::testing::Test
{
protected:
    static void ExpectSettings(const T& holder, const std::shared_ptr<Logger>& logger, bool validate)
    {
        for (const IRGObject* member : Holder<T>::MembersOf(holder)) {
            EXPECT_EQ(member->GetLogger(), logger) << member->GetObjectName().toStdString();
            EXPECT_EQ(member->GetValidate(), validate) << member->GetObjectName().toStdString();
        }
    }

    static QStringList ErrorLines()
    {
        QStringList lines;
        for (const char* problem : Holder<T>::Problems())
            lines << QStringLiteral("ERROR: OutOfRangeException: ") + Support::Text(problem);
        return lines;
    }
};

using Holders = ::testing::Types<Area, ReportBase>;
TYPED_TEST_SUITE(RecordHolder, Holders, Support::RecordClassNames);

} // namespace

TYPED_TEST(RecordHolder, SettingsReachTheMembersAtOnce)
{
    TypeParam holder = Holder<TypeParam>::Incomplete();
    const auto logger = Support::NewLogger();
    holder.SetLogger(logger);
    holder.SetValidate(false);
    this->ExpectSettings(holder, logger, false);
    holder.SetLogger(nullptr);
    holder.SetValidate(true);
    this->ExpectSettings(holder, nullptr, true);
    EXPECT_GE(Holder<TypeParam>::MembersOf(holder).size(), Holder<TypeParam>::MEMBERS);
}

TYPED_TEST(RecordHolder, EveryOperationAppliesTheSettingsToMembersHoweverTheyCameIn)
{
    for (const auto& [name, comeIn] : Holder<TypeParam>::AllWaysIn()) {
        SCOPED_TRACE(name);
        const auto logger = Support::NewLogger(REPORTGENERATOR::ERROR);
        TypeParam holder = NotValidating<TypeParam>();
        holder.SetLogger(logger);
        comeIn(holder);
        Holder<TypeParam>::GiveName(holder);

        // A validating member would refuse to be written, one without logger would throw from Check.
        EXPECT_NO_RG_THROW(holder.GetXmlString());
        EXPECT_NO_RG_THROW(BodyOf(holder));
        EXPECT_LOG(logger, {});
        EXPECT_NO_RG_THROW(holder.Check(true));
        EXPECT_LOG(logger, this->ErrorLines());
        this->ExpectSettings(holder, logger, false);
        EXPECT_GE(Holder<TypeParam>::MembersOf(holder).size(), Holder<TypeParam>::MEMBERS);

        holder.SetValidate(true);
        holder.ResetLogger();
        EXPECT_RG_THROW(holder.Check(true), "OutOfRangeException", Holder<TypeParam>::Problems().front());
        this->ExpectSettings(holder, nullptr, true);
    }
}

TYPED_TEST(RecordHolder, EveryOperationAppliesTheSettingsAgainToMembersThatWereGivenOthers)
{
    using Operation = std::function<void(const TypeParam&)>;
    const std::vector<std::pair<const char*, Operation>> operations = {
        {"GetXml", [](const TypeParam& h) { Support::UnindentedXmlOf(h); }},
        {"GetXmlString", [](const TypeParam& h) { h.GetXmlString(); }},
        {"GetBinary", [](const TypeParam& h) { BodyOf(h); }},
        {"Check", [](const TypeParam& h) { h.Check(true); }},
    };
    for (const auto& operation : operations) {
        SCOPED_TRACE(operation.first);
        const Operation& run = operation.second;
        const auto logger = Support::NewLogger();
        const auto otherLogger = Support::NewLogger();
        TypeParam holder = Holder<TypeParam>::Incomplete();
        holder.SetValidate(false);
        holder.SetLogger(logger);
        EXPECT_NO_RG_THROW(run(holder));
        this->ExpectSettings(holder, logger, false);
        for (const IRGObject* member : Holder<TypeParam>::MembersOf(holder)) {
            member->SetValidate(true);
            member->SetLogger(otherLogger);
        }
        EXPECT_NO_RG_THROW(run(holder));
        this->ExpectSettings(holder, logger, false);

        Holder<TypeParam>::FirstMember(holder).SetValidate(true);
        Holder<TypeParam>::FirstMember(holder).SetLogger(nullptr);
        EXPECT_NO_RG_THROW(run(holder));
        this->ExpectSettings(holder, logger, false);
        EXPECT_LOG(otherLogger, {});
    }
}

TYPED_TEST(RecordHolder, MembersOfACopyHaveItsValidateFlagAndNoLogger)
{
    for (const bool validate : {true, false}) {
        const auto logger = Support::NewLogger();
        TypeParam holder = Holder<TypeParam>::Incomplete();
        holder.SetValidate(validate);
        holder.SetLogger(logger);
        const IRGObject* member = Holder<TypeParam>::MembersOf(holder).front();
        member->SetValidate(!validate);

        const TypeParam copy(holder);
        for (const IRGObject* copied : Holder<TypeParam>::MembersOf(copy))
            EXPECT_EQ(copied->GetValidate(), validate) << copied->GetObjectName().toStdString();
        EXPECT_EQ(Holder<TypeParam>::MembersOf(holder).front()->GetValidate(), !validate);
        EXPECT_RG_THROW(copy.Check(true), "OutOfRangeException", Holder<TypeParam>::Problems().front());
        this->ExpectSettings(copy, nullptr, validate);
        for (const IRGObject* original : Holder<TypeParam>::MembersOf(holder))
            EXPECT_EQ(original->GetLogger(), logger) << original->GetObjectName().toStdString();
        EXPECT_LOG(logger, {});
    }
}

TYPED_TEST(RecordHolder, ResetLoggerTakesEffectOnTheMembersWithTheNextOperation)
{
    TypeParam holder = Holder<TypeParam>::Incomplete();
    const auto logger = Support::NewLogger();
    holder.SetLogger(logger);
    holder.ResetLogger();
    EXPECT_RG_THROW(holder.Check(true), "OutOfRangeException", Holder<TypeParam>::Problems().front());
    EXPECT_LOG(logger, {});
}
