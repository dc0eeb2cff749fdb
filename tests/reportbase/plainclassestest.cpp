// What the classes without a shared record have in common: they throw directly, trace nothing of their own,
// and are copied whole.

#include "support/plainclasses.h"
#include "support/expect.h"
#include "support/plainobject.h"
#include "support/records.h"

#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/scanparameter.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <type_traits>
#include <typeinfo>
#include <utility>

namespace {

using REPORTGENERATOR::FrequencyListValue;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::ObjectTypes;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::ValueMinMax;
using Support::NewLogger;
using Support::Opened;
using Support::PlainObject;
using Support::Sample;
using Support::Text;

template <class T>
class PlainClass : public Support::PlainClassTest<T>
{
};

TYPED_TEST_SUITE(PlainClass, Support::PlainClasses, Support::PlainClassNames);

} // namespace

// --- Identity and copies ----------------------------------------------------------------------------------

TYPED_TEST(PlainClass, IsOfNoKindOfItsOwn)
{
    const TypeParam object;
    EXPECT_EQ(object.GetObjectType(), static_cast<ObjectTypes>(80));
    EXPECT_EQ(object.GetObjectId(), 80);
    EXPECT_TEXT(object.GetObjectName(), Sample<TypeParam>::NAME);
    EXPECT_TRUE(object.GetValidate());
    EXPECT_EQ(object.GetLogger(), nullptr);
    EXPECT_TEXT(object.GetVersion(), (std::is_same_v<TypeParam, ScanParameter>) ? "1.0" : "");
}

TYPED_TEST(PlainClass, StartsAndResetsWithoutData)
{
    TypeParam object;
    EXPECT_FALSE(object.HasData());
    EXPECT_FALSE(object.AnyData());
    EXPECT_TEXT(this->Written(object), "");

    object = Sample<TypeParam>::Filled();
    EXPECT_TRUE(object.HasData());
    EXPECT_TRUE(object.AnyData());
    object.Reset();
    EXPECT_FALSE(object.HasData());
    EXPECT_FALSE(object.AnyData());
    EXPECT_TEXT(this->Written(object), "");
}

TYPED_TEST(PlainClass, ResetKeepsTheBase)
{
    const auto logger = NewLogger();
    Opened<TypeParam> object(Sample<TypeParam>::Filled());
    object.SetObjectType(static_cast<ObjectTypes>(41));
    object.SetObjectId(7);
    object.SetValidate(false);
    object.SetLogger(logger);
    object.Reset();
    EXPECT_EQ(object.GetObjectType(), static_cast<ObjectTypes>(41));
    EXPECT_EQ(object.GetObjectId(), 7);
    EXPECT_TEXT(object.GetObjectName(), "JobHeader");
    EXPECT_FALSE(object.GetValidate());
    EXPECT_EQ(object.GetLogger(), logger);
    EXPECT_LOG(logger, {});
}

TYPED_TEST(PlainClass, CopyTakesTheBaseAndEveryField)
{
    const auto logger = NewLogger();
    Opened<TypeParam> source(Sample<TypeParam>::Filled());
    source.SetObjectType(static_cast<ObjectTypes>(41));
    source.SetObjectId(7);
    source.SetObjectName(Text("Renamed"));
    source.SetValidate(false);
    source.SetLogger(logger);

    const TypeParam copy(source);
    TypeParam assigned;
    assigned = source;
    for (const TypeParam* object : {&copy, &std::as_const(assigned)}) {
        EXPECT_EQ(object->GetObjectType(), static_cast<ObjectTypes>(41));
        EXPECT_EQ(object->GetObjectId(), 7);
        EXPECT_TEXT(object->GetObjectName(), "Renamed");
        EXPECT_FALSE(object->GetValidate());
        EXPECT_EQ(object->GetLogger(), logger);

        QString expected = Text(Sample<TypeParam>::XML);
        if (!std::is_same_v<TypeParam, ValueMinMax>) {
            const auto outerStart = 2;
            const auto length = Text(Sample<TypeParam>::NAME).size();
            expected.replace(expected.size() - 1 - length, length, Text("Renamed"));
            expected.replace(outerStart, length, Text("Renamed"));
        }
        EXPECT_XML(*object, expected);
    }
}

TYPED_TEST(PlainClass, CopiesAreIndependent)
{
    TypeParam source = Sample<TypeParam>::Filled();
    TypeParam copy(source);
    TypeParam assigned;
    assigned = source;
    copy.Reset();
    copy.SetValidate(false);
    EXPECT_XML(source, Sample<TypeParam>::XML);
    source.Reset();
    EXPECT_TRUE(source.GetValidate());
    EXPECT_XML(assigned, Sample<TypeParam>::XML);
}

TYPED_TEST(PlainClass, AssignmentReturnsTheObjectAndMayBeToItself)
{
    TypeParam object = Sample<TypeParam>::Filled();
    const TypeParam& itself = object;
    EXPECT_EQ(&(object = itself), &object);
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

// --- Writing and checking ---------------------------------------------------------------------------------

TYPED_TEST(PlainClass, WritesTheSameXmlInAllSettings)
{
    const TypeParam object = Sample<TypeParam>::Filled();
    for (const bool validate : {true, false}) {
        object.SetValidate(validate);
        object.ResetLogger();
        EXPECT_XML(object, Sample<TypeParam>::XML);

        const auto logger = NewLogger();
        object.SetLogger(logger);
        EXPECT_XML(object, Sample<TypeParam>::XML);
        EXPECT_LOG(logger, QStringList{this->Line("INFO: ", ": Generating xml string.")});
    }
}

TYPED_TEST(PlainClass, CheckThrowsDirectlyInAllSettings)
{
    const TypeParam refused = Sample<TypeParam>::Refused();
    const TypeParam filled = Sample<TypeParam>::Filled();
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        for (const TypeParam* object : {&refused, &filled}) {
            object->SetValidate(validate);
            object->ResetLogger();
        }
        EXPECT_RG_THROW(refused.Check(), "RGException", Sample<TypeParam>::PROBLEM);
        EXPECT_NO_RG_THROW(filled.Check());

        refused.SetLogger(logger);
        filled.SetLogger(logger);
        EXPECT_RG_THROW(refused.Check(), "RGException", Sample<TypeParam>::PROBLEM);
        EXPECT_RG_THROW(refused.Check(true), "RGException", Sample<TypeParam>::PROBLEM);
        EXPECT_RG_THROW(refused.Check(false), "RGException", Sample<TypeParam>::PROBLEM);
        EXPECT_NO_RG_THROW(filled.Check());
        EXPECT_NO_RG_THROW(filled.Check(true));
        EXPECT_LOG(logger, {});
        EXPECT_FALSE(logger->HasErrors());
    }
}

TYPED_TEST(PlainClass, RefusalNamesTheObjectByItsCurrentName)
{
    // Two classes have a fixed text, which doesn't begin with the name.
    QString problem = Text(Sample<TypeParam>::PROBLEM);
    const QString start = this->Line("", ":");
    const bool isFixed =
        std::is_same_v<TypeParam, ValueMinMax> || std::is_same_v<TypeParam, FrequencyListValue>;
    ASSERT_EQ(problem.startsWith(start), !isFixed);
    if (!isFixed)
        problem.replace(0, start.size(), Text("Renamed:"));

    Opened<TypeParam> object(Sample<TypeParam>::Refused());
    object.SetObjectName(Text("Renamed"));
    EXPECT_RG_THROW(object.Check(), "RGException", problem);
}

TYPED_TEST(PlainClass, RefusedObjectThrowsWhenValidatingAndWritesNothingOtherwise)
{
    const TypeParam object = Sample<TypeParam>::Refused();
    const auto logger = NewLogger();
    object.SetLogger(logger);
    EXPECT_RG_THROW(object.GetXmlString(), "RGException", Sample<TypeParam>::PROBLEM);
    EXPECT_LOG(logger, QStringList{this->Line("INFO: ", ": Generating xml string.")});

    object.SetValidate(false);
    EXPECT_XML(object, "");
}

TYPED_TEST(PlainClass, ElementOfARefusedObjectIsLeftOutWithoutACheck)
{
    const TypeParam object = Sample<TypeParam>::Refused();
    for (const bool validate : {true, false}) {
        object.SetValidate(validate);
        QString written = Text("untouched");
        EXPECT_NO_RG_THROW(written = this->Written(object));
        EXPECT_TEXT(written, "");
    }
}

// --- Merging ----------------------------------------------------------------------------------------------

TYPED_TEST(PlainClass, MergeOfAnotherClassIsRefusedWithAWarning)
{
    const auto logger = NewLogger();
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetLogger(logger);
    const PlainObject other;
    EXPECT_FALSE(object.MergeRGObject(other));
    EXPECT_LOG(logger,
               QStringList{this->Line("WARNING: ", ": Merging will be aborted, because a type mismatch "
                                                   "occurred. ") +
                           Text(typeid(PlainObject).name()) + Text(" != ") + Text(typeid(TypeParam).name())});
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(PlainClass, MergeOfAnObjectThatWritesNothingChangesNothing)
{
    TypeParam object = Sample<TypeParam>::Filled();
    TypeParam other = Sample<TypeParam>::Refused();
    other.SetValidate(false);
    EXPECT_TRUE(object.MergeRGObject(other));
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(PlainClass, MergeOfARefusedObjectThrowsWhenTheOtherValidates)
{
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetValidate(false);
    const TypeParam other = Sample<TypeParam>::Refused();
    EXPECT_RG_THROW(object.MergeRGObject(other), "RGException", Sample<TypeParam>::PROBLEM);
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(PlainClass, MergeIntoAnEmptyObjectTakesEverything)
{
    const TypeParam other = Sample<TypeParam>::Filled();
    TypeParam object;
    if constexpr (Sample<TypeParam>::READS_WHAT_IT_WRITES) {
        EXPECT_TRUE(object.MergeRGObject(other));
        EXPECT_XML(object, Sample<TypeParam>::XML);
    } else if constexpr (std::is_same_v<TypeParam, ValueMinMax>) {
        EXPECT_FALSE(object.MergeRGObject(other)) << "its element is not named as the object is";
        EXPECT_FALSE(object.AnyData());
    } else {
        EXPECT_RG_THROW(object.MergeRGObject(other), "RGException",
                        "'MeasurementTime': Invalid MeasurementModeType '-1'.");
    }
}

TYPED_TEST(PlainClass, MergeTracesTheWritingOfTheOtherOnly)
{
    const auto logger = NewLogger();
    const auto otherLogger = NewLogger();
    const TypeParam other = Sample<TypeParam>::Filled();
    other.SetLogger(otherLogger);
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetLogger(logger);
    if constexpr (std::is_same_v<TypeParam, MeasurementTime>) {
        EXPECT_RG_THROW(object.MergeRGObject(other), "RGException",
                        "'MeasurementTime': Invalid MeasurementModeType '-1'.");
    } else {
        EXPECT_EQ(object.MergeRGObject(other), Sample<TypeParam>::READS_WHAT_IT_WRITES);
    }
    EXPECT_LOG(logger, {});
    EXPECT_LOG(otherLogger, QStringList{this->Line("INFO: ", ": Generating xml string.")});
}
