// A record is made when it is first needed. Which operations need it, for each of the classes that have one.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/recordclasses.h"
#include "support/records.h"
#include "support/states.h"

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ReportBase;
using Support::At;
using Support::BodyOf;
using Support::Bytes;
using Support::Named;
using Support::ReadElement;
using Support::ReadElements;
using Support::ReadRawForm;
using Support::RecordClass;

template <class T>
struct Operation
{
    const char* name;
    std::function<void(T&)> run;
    bool makesRecord;
};

template <class T>
using Operations = std::vector<Operation<T>>;

/// Runs what looks at a new object and finds it incomplete, unless it is a report.
template <class T>
void RunOnNew(T& object, const std::function<void(T&)>& run)
{
    if constexpr (RecordClass<T>::PROBLEM_OF_NEW == nullptr)
        EXPECT_NO_RG_THROW(run(object));
    else
        EXPECT_RG_THROW(run(object), "OutOfRangeException", Named<T>(RecordClass<T>::PROBLEM_OF_NEW));
}

/// The operations that all classes have.
template <class T>
Operations<T> CommonOperations()
{
    const auto checking = [](const std::function<void(T&)>& run) {
        return [run](T& object) { RunOnNew(object, run); };
    };
    const auto notValidating = [](const std::function<void(T&)>& run) {
        return [run](T& object) {
            object.SetValidate(false);
            EXPECT_NO_RG_THROW(run(object));
        };
    };
    const auto getXml = [](T& object) { Support::UnindentedXmlOf(object); };
    const auto getBinary = [](T& object) { BodyOf(object); };

    return {
        {"IsInitialized", [](T& o) { o.IsInitialized(); }, false},
        {"AnyData", [](T& o) { o.AnyData(); }, false},
        {"HasData", [](T& o) { o.HasData(); }, false},
        {"Reset", [](T& o) { o.Reset(); }, false},
        {"SetValidate", [](T& o) { o.SetValidate(false); }, false},
        {"SetLogger", [](T& o) { o.SetLogger(Support::NewLogger()); }, false},
        {"empty XML", [](T& o) { o.SetXmlString(QString(), false); }, false},
        {"empty XML as root", [](T& o) { o.SetXmlString(QString(), true); }, false},
        {"XML of another", [](T& o) { o.SetXmlString(QStringLiteral("<A/>"), false); }, false},
        {"XML of another as root", [](T& o) { o.SetXmlString(QStringLiteral("<A/>"), true); }, false},
        {"unknown marker",
         [](T& o) {
             QByteArray bytes = Support::String(u"Other").Data();
             o.SetBinaryRepresentation(bytes);
         },
         false},
        {"comparison without a record", [](T& o) { EXPECT_TRUE(o == T()); }, false},

        {"ResetToDefault", [](T& o) { o.ResetToDefault(); }, true},
        {"Check", checking([](T& o) { o.Check(); }), true},
        {"Check(true)", checking([](T& o) { o.Check(true); }), true},
        {"GetXml", checking(getXml), true},
        {"GetXml, not validating", notValidating(getXml), true},
        {"GetBinary", checking(getBinary), true},
        {"GetBinary, not validating", notValidating(getBinary), true},
        {"raw writing", [](T& o) { Support::RawFormOf(o); }, true},
        {"raw reading", [](T& o) { ReadRawForm(o, RecordClass<T>::RawOfNew()); }, true},
        {"SetBinary of nothing", [](T& o) { ReadElements(o, Bytes()); }, true},
        {"ProcessXml", [](T& o) { ReadElement(o, Named<T>("<@/>")); }, true},
        {"SetXmlString, not validating", notValidating([](T& o) { o.SetXmlString(Named<T>("<@/>"), true); }),
         true},
    };
}

template <class T>
void CompareWithRecord(T& object)
{
    T other;
    RecordClass<T>::MakeRecord(other);
    EXPECT_TRUE(object == other);
}

template <class T>
void CompareByRecord(T& object)
{
    T other;
    RecordClass<T>::MakeRecord(other);
    EXPECT_TRUE(other == object);
}

/// Those of a class's own fields. This is for Frequency and IFBandwidth, the other classes follow.
template <class T>
Operations<T> OwnOperations()
{
    Operations<T> operations = {
        {"IsValueSet", [](T& o) { o.IsValueSet(); }, false},
        {"IsMinSet", [](T& o) { o.IsMinSet(); }, false},
        {"IsMaxSet", [](T& o) { o.IsMaxSet(); }, false},
        {"ResetValue", [](T& o) { o.ResetValue(); }, false},
        {"ResetMin", [](T& o) { o.ResetMin(); }, false},
        {"ResetMax", [](T& o) { o.ResetMax(); }, false},
        {"IsValidValue", [](T& o) { o.IsValidValue(1.0); }, false},
        {"GetDefaultValue", [](T& o) { o.GetDefaultValue(); }, false},

        {"GetValue", [](T& o) { o.GetValue(); }, true},
        {"GetMin", [](T& o) { o.GetMin(); }, true},
        {"GetMax", [](T& o) { o.GetMax(); }, true},
        {"SetValue", [](T& o) { o.SetValue(1.0); }, true},
        {"SetMin", [](T& o) { o.SetMin(1.0); }, true},
        {"SetMax", [](T& o) { o.SetMax(1.0); }, true},
        {"SetXmlString", [](T& o) { o.SetXmlString(Named<T>("<@/>"), true); }, true},
        {"comparison with a record", CompareWithRecord<T>, true},
        {"comparison by another with a record", CompareByRecord<T>, true},
    };
    if constexpr (std::is_same_v<T, Frequency>) {
        operations.insert(operations.end(), {
                                                {"IsUseSet", [](T& o) { o.IsUseSet(); }, false},
                                                {"ResetUse", [](T& o) { o.ResetUse(); }, false},
                                                {"GetDefaultUse", [](T& o) { o.GetDefaultUse(); }, false},
                                                {"GetUse", [](T& o) { o.GetUse(); }, true},
                                                {"SetUse", [](T& o) { o.SetUse(true); }, true},
                                            });
    }
    return operations;
}

template <>
Operations<Coordinate> OwnOperations()
{
    return {
        {"IsLongitudeSet", [](Coordinate& c) { c.IsLongitudeSet(); }, false},
        {"IsLatitudeSet", [](Coordinate& c) { c.IsLatitudeSet(); }, false},
        {"ResetLongitude", [](Coordinate& c) { c.ResetLongitude(); }, false},
        {"ResetLatitude", [](Coordinate& c) { c.ResetLatitude(); }, false},
        {"IsValidLongitude", [](Coordinate& c) { c.IsValidLongitude(1.0); }, false},
        {"IsValidLatitude", [](Coordinate& c) { c.IsValidLatitude(1.0); }, false},

        {"GetLongitude", [](Coordinate& c) { c.GetLongitude(); }, true},
        {"GetLatitude", [](Coordinate& c) { c.GetLatitude(); }, true},
        {"SetLongitude", [](Coordinate& c) { c.SetLongitude(1.0); }, true},
        {"SetLatitude", [](Coordinate& c) { c.SetLatitude(1.0); }, true},
    };
}

template <>
Operations<Area> OwnOperations()
{
    return {
        {"IsNameSet", [](Area& a) { a.IsNameSet(); }, false},
        {"IsCoordinateSet", [](Area& a) { a.IsCoordinateSet(); }, false},
        {"IsScriptIDSet", [](Area& a) { a.IsScriptIDSet(); }, false},
        {"ResetName", [](Area& a) { a.ResetName(); }, false},
        {"ResetCoordinate", [](Area& a) { a.ResetCoordinate(); }, false},
        {"ResetScriptID", [](Area& a) { a.ResetScriptID(); }, false},

        {"GetName", [](Area& a) { a.GetName(); }, true},
        {"GetScriptID", [](Area& a) { a.GetScriptID(); }, true},
        {"GetCoordinate", [](Area& a) { a.GetCoordinate(); }, true},
        {"GetCoordinate const", [](Area& a) { std::as_const(a).GetCoordinate(); }, true},
        {"GetVersion", [](Area& a) { a.GetVersion(); }, true},
        {"GetInitialVersionLoaded", [](Area& a) { a.GetInitialVersionLoaded(); }, true},
        {"SetName", [](Area& a) { a.SetName(QStringLiteral("N")); }, true},
        {"SetScriptID", [](Area& a) { a.SetScriptID(QStringLiteral("S")); }, true},
        {"SetCoordinate", [](Area& a) { a.SetCoordinate({}); }, true},
        {"AppendCoordinate", [](Area& a) { a.AppendCoordinate(At(1.0, 2.0)); }, true},
        {"comparison with a record", CompareWithRecord<Area>, true},
        {"comparison by another with a record", CompareByRecord<Area>, true},
    };
}

template <>
Operations<ReportBase> OwnOperations()
{
    return {
        {"IsFrequencySet", [](ReportBase& r) { r.IsFrequencySet(); }, false},
        {"IsIFBandwidthSet", [](ReportBase& r) { r.IsIFBandwidthSet(); }, false},
        {"IsAreaSet", [](ReportBase& r) { r.IsAreaSet(); }, false},
        {"ResetFrequency", [](ReportBase& r) { r.ResetFrequency(); }, false},
        {"ResetIFBandwidth", [](ReportBase& r) { r.ResetIFBandwidth(); }, false},
        {"ResetArea", [](ReportBase& r) { r.ResetArea(); }, false},

        {"GetFrequency", [](ReportBase& r) { r.GetFrequency(); }, true},
        {"GetFrequency const", [](ReportBase& r) { std::as_const(r).GetFrequency(); }, true},
        {"GetIFBandwidth", [](ReportBase& r) { r.GetIFBandwidth(); }, true},
        {"GetIFBandwidth const", [](ReportBase& r) { std::as_const(r).GetIFBandwidth(); }, true},
        {"GetArea", [](ReportBase& r) { r.GetArea(); }, true},
        {"GetArea const", [](ReportBase& r) { std::as_const(r).GetArea(); }, true},
        {"SetFrequency", [](ReportBase& r) { r.SetFrequency(Frequency()); }, true},
        {"SetIFBandwidth", [](ReportBase& r) { r.SetIFBandwidth(IFBandwidth()); }, true},
        {"SetArea", [](ReportBase& r) { r.SetArea(Area()); }, true},
        {"comparison with a record", CompareWithRecord<ReportBase>, true},
        {"comparison by another with a record", CompareByRecord<ReportBase>, true},
        {"GetXml that writes an empty element",
         [](ReportBase& r) {
             r.SetValidate(false);
             EXPECT_TEXT(Support::UnindentedXmlOf(r), "<ReportBase/>");
         },
         true},
        {"GetBinary that writes an empty body",
         [](ReportBase& r) {
             r.SetValidate(false);
             EXPECT_BYTES(BodyOf(r), Element(1, Bytes()));
         },
         true},
        {"comparison with a report after ResetToDefault",
         [](ReportBase& r) {
             ReportBase other;
             other.ResetToDefault();
             EXPECT_TRUE(r == other);
         },
         true},
        {"comparison by a report after ResetToDefault",
         [](ReportBase& r) {
             ReportBase other;
             other.ResetToDefault();
             EXPECT_TRUE(other == r);
         },
         true},
    };
}

template <class T>
class RecordCreation : public ::testing::Test
{
};

TYPED_TEST_SUITE(RecordCreation, Support::RecordClasses, Support::RecordClassNames);

template <class T>
void ExpectRecordAfter(const Operations<T>& operations)
{
    for (const Operation<T>& operation : operations) {
        SCOPED_TRACE(operation.name);
        T object;
        EXPECT_NO_RG_THROW(operation.run(object));
        EXPECT_EQ(object.IsInitialized(), operation.makesRecord);
    }
}

} // namespace

TYPED_TEST(RecordCreation, ANewObjectHasNoRecordAndNothingSet)
{
    const TypeParam object;
    EXPECT_FALSE(object.IsInitialized());
    EXPECT_FALSE(object.AnyData());
    EXPECT_EQ(object.HasData(), (std::is_same_v<TypeParam, ReportBase>)) << "a report always counts as data";
    EXPECT_FALSE(object.IsInitialized());
    EXPECT_STATE(object, Support::StateOfClass<TypeParam>());
}

TYPED_TEST(RecordCreation, ANewRecordHasItsDefaultsAndNothingSet)
{
    const TypeParam object;
    RecordClass<TypeParam>::MakeRecord(object);
    EXPECT_TRUE(object.IsInitialized());
    EXPECT_STATE(object, Support::StateOfClass<TypeParam>());
    RecordClass<TypeParam>::ExpectUnsetFieldsHaveDefaults(object);
    EXPECT_FALSE(object.AnyData());
}

TYPED_TEST(RecordCreation, OperationsThatAllClassesHave)
{
    ExpectRecordAfter(CommonOperations<TypeParam>());
}

TYPED_TEST(RecordCreation, OperationsOfTheFields)
{
    ExpectRecordAfter(OwnOperations<TypeParam>());
}

TYPED_TEST(RecordCreation, ResetUnsetsEverythingAndKeepsTheRecord)
{
    TypeParam object = Support::Used<TypeParam>();
    object.Reset();
    EXPECT_TRUE(object.IsInitialized());
    EXPECT_FALSE(object.AnyData());
    EXPECT_STATE(object, Support::StateOfClass<TypeParam>());
    RecordClass<TypeParam>::ExpectUnsetFieldsHaveDefaults(object);
}

TYPED_TEST(RecordCreation, ResetToDefaultUnsetsTheFieldsAndAlwaysLeavesARecord)
{
    TypeParam fresh;
    fresh.ResetToDefault();
    TypeParam used = Support::Used<TypeParam>();
    used.ResetToDefault();
    for (const TypeParam* object : {&fresh, &used}) {
        EXPECT_TRUE(object->IsInitialized());
        EXPECT_STATE(*object, RecordClass<TypeParam>::AfterResetToDefault());
        EXPECT_EQ(object->HasData(), (std::is_same_v<TypeParam, ReportBase>));
        RecordClass<TypeParam>::ExpectUnsetFieldsHaveDefaults(*object);
    }
    EXPECT_TRUE(used == fresh);
}
