// What Frequency, IFBandwidth, Coordinate, Area and ReportBase have in common: identity, settings, copying,
// assigning, merging. Each test runs for all five.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/recordclasses.h"
#include "support/records.h"

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

#include <memory>
#include <type_traits>

namespace {

using REPORTGENERATOR::AnyType;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::Task;
using REPORTGENERATOR::VersionConverterProxy;
using Support::Filled;
using Support::NamedLines;
using Support::RecordClass;
using Support::XmlOfOne;

/// An object whose base was changed where a derived class may change it.
template <class T>
class Derived : public T
{
public:
    void Rename(const QString& name) { this->SetObjectName(name); }
    void ChangeId(long long number) { this->SetObjectId(number); }
    void ChangeKind(REPORTGENERATOR::ObjectTypes type) { this->IRGObject::SetObjectType(type); }
};

/// Says that it is of another kind than the base knows.
template <class T>
class OfOtherKind : public T
{
public:
    REPORTGENERATOR::ObjectTypes GetObjectType() const override { return REPORTGENERATOR::Audio; }
};

template <class T>
class RecordObject : public ::testing::Test
{
};

TYPED_TEST_SUITE(RecordObject, Support::RecordClasses, Support::RecordClassNames);

} // namespace

// --- Identity ---------------------------------------------------------------------------------------------

TYPED_TEST(RecordObject, StaticNameAndIdAreFixed)
{
    static_assert(std::is_base_of_v<IRGObject, TypeParam>);
    static_assert(std::is_same_v<decltype(TypeParam::id), const long long>);
    static_assert(std::is_same_v<decltype(TypeParam::GetId()), long long>);
    static_assert(std::is_same_v<decltype(TypeParam::GetStaticObjectName()), QString>);
    const long long& id = TypeParam::id;
    EXPECT_EQ(id, RecordClass<TypeParam>::ID);
    EXPECT_EQ(TypeParam::GetId(), RecordClass<TypeParam>::ID);
    EXPECT_GT(TypeParam::GetId(), 0);
    EXPECT_TEXT(TypeParam::GetStaticObjectName(), RecordClass<TypeParam>::NAME);
}

TYPED_TEST(RecordObject, ANewObjectBearsNameAndIdOfItsClassAndTheKindOfTheBase)
{
    const TypeParam object;
    EXPECT_TEXT(object.GetObjectName(), RecordClass<TypeParam>::NAME);
    EXPECT_EQ(object.GetObjectId(), RecordClass<TypeParam>::ID);
    EXPECT_EQ(object.GetObjectType(), AnyType);
    EXPECT_TRUE(object.GetValidate());
    EXPECT_EQ(object.GetLogger(), nullptr);
    EXPECT_FALSE(object.IsInitialized());
}

TYPED_TEST(RecordObject, TheKindCannotBeChanged)
{
    TypeParam object;
    object.SetObjectType(Task);
    EXPECT_EQ(object.GetObjectType(), AnyType);
    EXPECT_TEXT(object.GetObjectName(), RecordClass<TypeParam>::NAME);
    EXPECT_EQ(object.GetObjectId(), RecordClass<TypeParam>::ID);
    EXPECT_FALSE(object.IsInitialized());
}

TYPED_TEST(RecordObject, OverloadsOfTheBaseStayVisible)
{
    const TypeParam object;
    EXPECT_FALSE(object.IsValid(-111111.11));
    EXPECT_TRUE(object.IsValid(-111111.0));
    EXPECT_FALSE(object.IsValid(-111111));
    EXPECT_FALSE(object.IsValid(QString()));
    double number = 0.0;
    object.SetInvalid(number);
    EXPECT_EQ(number, -111111.11);
    using CheckWithFlag = void (TypeParam::*)(bool) const;
    using CheckWithout = void (TypeParam::*)() const;
    EXPECT_NE(static_cast<CheckWithFlag>(&TypeParam::Check), nullptr);
    EXPECT_NE(static_cast<CheckWithout>(&TypeParam::Check), nullptr);
}

// --- Record and settings ----------------------------------------------------------------------------------

TYPED_TEST(RecordObject, SettingsAndBasePropertiesDoNotMakeTheRecord)
{
    TypeParam object;
    object.SetValidate(false);
    object.SetValidate(true);
    object.SetLogger(Support::NewLogger());
    object.SetLogger(nullptr);
    object.ResetLogger();
    object.InjectVersionConverter(std::make_shared<VersionConverterProxy>());
    object.InjectVersionConverter(nullptr);
    object.GetObjectName();
    object.GetObjectId();
    object.GetObjectType();
    EXPECT_FALSE(object.IsInitialized());
}

TYPED_TEST(RecordObject, ResetsKeepNameIdKindValidateFlagAndLogger)
{
    Derived<TypeParam> object;
    object.ChangeKind(Task);
    object.Rename(QStringLiteral("Other"));
    object.ChangeId(5);
    object.SetValidate(false);
    const auto logger = Support::NewLogger();
    object.SetLogger(logger);
    RecordClass<TypeParam>::Fill(object, 1.0);

    object.Reset();
    object.ResetToDefault();
    EXPECT_EQ(object.GetObjectType(), Task);
    EXPECT_TEXT(object.GetObjectName(), "Other");
    EXPECT_EQ(object.GetObjectId(), 5);
    EXPECT_FALSE(object.GetValidate());
    EXPECT_EQ(object.GetLogger(), logger);
    EXPECT_LOG(logger, {});
}

// --- Copying ----------------------------------------------------------------------------------------------

TYPED_TEST(RecordObject, CopyHasTheFieldsAndARecordOnlyIfThereIsOne)
{
    const TypeParam fresh;
    EXPECT_FALSE(TypeParam(fresh).IsInitialized());
    EXPECT_FALSE(fresh.IsInitialized());

    const TypeParam object = Filled<TypeParam>(1.0);
    const TypeParam copy(object);
    EXPECT_TRUE(copy.IsInitialized());
    EXPECT_TRUE(copy == object);
    EXPECT_XML(copy, XmlOfOne<TypeParam>());
}

TYPED_TEST(RecordObject, CopyTakesTheKindButBearsNameAndIdOfTheClass)
{
    Derived<TypeParam> object;
    object.ChangeKind(Task);
    ASSERT_EQ(object.GetObjectType(), Task);
    ASSERT_EQ(object.GetObjectId(), 42);
    ASSERT_TRUE(object.GetObjectName() == QLatin1String("Task"));

    const TypeParam copy(object);
    EXPECT_EQ(copy.GetObjectType(), Task);
    EXPECT_TEXT(copy.GetObjectName(), RecordClass<TypeParam>::NAME);
    EXPECT_EQ(copy.GetObjectId(), RecordClass<TypeParam>::ID);
}

TYPED_TEST(RecordObject, CopyAsksTheOriginalForItsKind)
{
    const OfOtherKind<TypeParam> object;
    const TypeParam copy(object);
    EXPECT_EQ(copy.GetObjectType(), REPORTGENERATOR::Audio);
    EXPECT_TEXT(copy.GetObjectName(), RecordClass<TypeParam>::NAME);
}

TYPED_TEST(RecordObject, CopyTakesTheValidateFlag)
{
    for (const bool validate : {true, false}) {
        TypeParam object;
        object.SetValidate(validate);
        EXPECT_EQ(TypeParam(object).GetValidate(), validate);
        RecordClass<TypeParam>::MakeRecord(object);
        EXPECT_EQ(TypeParam(object).GetValidate(), validate);
    }
}

TYPED_TEST(RecordObject, CopyTakesNeitherLoggerNorVersionConverter)
{
    TypeParam object = Filled<TypeParam>(1.0);
    const auto logger = Support::NewLogger();
    const auto converter = std::make_shared<VersionConverterProxy>();
    object.InjectVersionConverter(converter);
    object.SetLogger(logger);

    TypeParam copy(object);
    EXPECT_EQ(copy.GetLogger(), nullptr);
    EXPECT_XML(copy, XmlOfOne<TypeParam>());
    EXPECT_LOG(logger, {});
    EXPECT_EQ(converter.use_count(), 2);
    EXPECT_EQ(object.GetLogger(), logger);
}

// --- Assigning --------------------------------------------------------------------------------------------

TYPED_TEST(RecordObject, AssigningTakesTheFieldsAndNothingElse)
{
    Derived<TypeParam> source;
    source.ChangeKind(Task);
    source.Rename(QStringLiteral("Source"));
    source.ChangeId(7);
    source.SetValidate(false);
    const auto sourceLogger = Support::NewLogger();
    source.SetLogger(sourceLogger);
    const auto converter = std::make_shared<VersionConverterProxy>();
    source.InjectVersionConverter(converter);
    RecordClass<TypeParam>::Fill(source, 1.0);

    TypeParam target = Filled<TypeParam>(2.0);
    const auto targetLogger = Support::NewLogger();
    target.SetLogger(targetLogger);
    TypeParam& result = target = source;
    EXPECT_EQ(&result, &target);
    EXPECT_TRUE(target == source);
    EXPECT_EQ(target.GetObjectType(), AnyType);
    EXPECT_TEXT(target.GetObjectName(), RecordClass<TypeParam>::NAME);
    EXPECT_EQ(target.GetObjectId(), RecordClass<TypeParam>::ID);
    EXPECT_TRUE(target.GetValidate());
    EXPECT_EQ(target.GetLogger(), targetLogger);
    EXPECT_EQ(converter.use_count(), 2);
}

TYPED_TEST(RecordObject, AssigningKeepsWhatTheTargetIs)
{
    Derived<TypeParam> target;
    target.ChangeKind(Task);
    target.ChangeId(7);
    target.SetValidate(false);
    const auto converter = std::make_shared<VersionConverterProxy>();
    target.InjectVersionConverter(converter);

    static_cast<TypeParam&>(target) = Filled<TypeParam>(1.0);
    EXPECT_TRUE(target == Filled<TypeParam>(1.0));
    EXPECT_EQ(target.GetObjectType(), Task);
    EXPECT_TEXT(target.GetObjectName(), "Task");
    EXPECT_EQ(target.GetObjectId(), 7);
    EXPECT_FALSE(target.GetValidate());
    EXPECT_EQ(target.GetLogger(), nullptr);
    EXPECT_EQ(converter.use_count(), 2);
}

TYPED_TEST(RecordObject, AssigningAnObjectWithoutRecordTakesTheRecordAway)
{
    TypeParam object = Filled<TypeParam>(1.0);
    object = TypeParam();
    EXPECT_FALSE(object.IsInitialized());
    EXPECT_FALSE(object.AnyData());
}

TYPED_TEST(RecordObject, SelfAssignmentChangesNothing)
{
    TypeParam object = Filled<TypeParam>(1.0);
    object.SetValidate(false);
    const auto logger = Support::NewLogger();
    object.SetLogger(logger);
    const TypeParam& same = object;
    object = same;
    EXPECT_TRUE(object == Filled<TypeParam>(1.0));
    EXPECT_FALSE(object.GetValidate());
    EXPECT_EQ(object.GetLogger(), logger);

    TypeParam fresh;
    const TypeParam& sameFresh = fresh;
    fresh = sameFresh;
    EXPECT_FALSE(fresh.IsInitialized());
}

TYPED_TEST(RecordObject, AssigningAnObjectThatAlreadySharesTheFieldsChangesNothing)
{
    const TypeParam source = Filled<TypeParam>(1.0);
    TypeParam target;
    target = source;
    target = source;
    EXPECT_TRUE(target == source);
    EXPECT_XML(target, XmlOfOne<TypeParam>());
}

// --- Comparing --------------------------------------------------------------------------------------------

TYPED_TEST(RecordObject, AnObjectWithoutRecordEqualsAnotherAndOneWithNothingSet)
{
    const TypeParam fresh;
    EXPECT_TRUE(fresh == fresh);
    EXPECT_FALSE(fresh != TypeParam());
    EXPECT_FALSE(fresh.IsInitialized());

    TypeParam empty = Filled<TypeParam>(1.0);
    empty.Reset();
    EXPECT_TRUE(fresh == empty);
    EXPECT_TRUE(empty == TypeParam());
    EXPECT_FALSE(TypeParam() != empty);
}

TYPED_TEST(RecordObject, DifferenceIsTheOppositeOfEquality)
{
    const TypeParam fresh;
    const TypeParam one = Filled<TypeParam>(1.0);
    const TypeParam two = Filled<TypeParam>(2.0);
    EXPECT_FALSE(one == two);
    EXPECT_TRUE(one != two);
    EXPECT_FALSE(two == one);
    EXPECT_FALSE(fresh == one);
    EXPECT_TRUE(fresh != one);
    EXPECT_FALSE(one == fresh);
    EXPECT_TRUE(one == Filled<TypeParam>(1.0));
    EXPECT_FALSE(one != Filled<TypeParam>(1.0));
}

TYPED_TEST(RecordObject, OnlyTheFieldsAreCompared)
{
    Derived<TypeParam> one;
    one.ChangeKind(Task);
    one.Rename(QStringLiteral("Other"));
    one.ChangeId(7);
    one.SetValidate(false);
    one.SetLogger(Support::NewLogger());
    RecordClass<TypeParam>::Fill(one, 1.0);
    EXPECT_TRUE(one == Filled<TypeParam>(1.0));
    EXPECT_TRUE(Filled<TypeParam>(1.0) == one);
}

// --- Merging ----------------------------------------------------------------------------------------------

TYPED_TEST(RecordObject, MergingTakesWhatTheOtherWritesAsXml)
{
    TypeParam object;
    const auto logger = Support::NewLogger();
    object.SetLogger(logger);
    const TypeParam other = Filled<TypeParam>(1.0);
    const auto otherLogger = Support::NewLogger();
    other.SetLogger(otherLogger);
    EXPECT_TRUE(object.MergeRGObject(other));
    EXPECT_TRUE(object == other);
    EXPECT_LOG(logger, {});
    EXPECT_LOG(otherLogger, NamedLines<TypeParam>({"INFO: @: Generating xml string."}));
    EXPECT_EQ(object.GetLogger(), logger);
}

TYPED_TEST(RecordObject, MergingAnObjectOfAnotherNameFindsNothing)
{
    Derived<TypeParam> object;
    Derived<TypeParam> other;
    RecordClass<TypeParam>::Fill(other, 1.0);
    other.Rename(QStringLiteral("Other"));
    EXPECT_FALSE(object.MergeRGObject(other));
    EXPECT_FALSE(object.AnyData());
    object.Rename(QStringLiteral("Other"));
    EXPECT_TRUE(object.MergeRGObject(other));
    EXPECT_TRUE(object == other);
}

// --- Files ------------------------------------------------------------------------------------------------

TYPED_TEST(RecordObject, RepresentationsGoStraightToAFileInTheMiddle)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("object.bin")));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const TypeParam object = Filled<TypeParam>(1.0);
    const QByteArray plain = object.GetBinaryRepresentationAsQByteArray();
    QDataStream stream(&file);
    stream << qint32(5);
    object.GetBinaryRepresentation(stream);
    stream << qint32(6);
    ASSERT_TRUE(file.reset());
    EXPECT_BYTES(file.readAll(), Support::Int32(5).Data() + plain + Support::Int32(6).Data());
}
