#include "support/expect.h"
#include "support/plainobject.h"

#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/listlogger.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QDate>
#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QTime>
#include <QtCore/QXmlStreamReader>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <memory>
#include <type_traits>
#include <utility>

namespace {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ListLogger;
using REPORTGENERATOR::ObjectTypes;
using REPORTGENERATOR::VersionConverterProxy;
using Support::NewLogger;
using Support::PlainObject;
using Support::Text;

ObjectTypes Kind(int number)
{
    return static_cast<ObjectTypes>(number);
}

template <typename To, typename From>
To BitsOf(From value)
{
    static_assert(sizeof(To) == sizeof(From));
    To bits{};
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

/// Reads its start elements as the base does.
class UnreadingObject : public PlainObject
{
public:
    void ProcessXmlStartElement(QXmlStreamReader& reader) override
    {
        IRGObject::ProcessXmlStartElement(reader);
    }
};

template <typename Value, typename = void>
constexpr bool HAS_SET_INVALID = false;
template <typename Value>
constexpr bool HAS_SET_INVALID<
    Value, std::void_t<decltype(std::declval<IRGObject&>().SetInvalid(std::declval<Value&>()))>> = true;

template <typename Object, typename = void>
constexpr bool CAN_SET_OBJECT_TYPE = false;
template <typename Object>
constexpr bool CAN_SET_OBJECT_TYPE<
    Object, std::void_t<decltype(std::declval<Object&>().SetObjectType(std::declval<ObjectTypes>()))>> = true;

template <typename Object, typename = void>
constexpr bool CAN_SET_OBJECT_NAME = false;
template <typename Object>
constexpr bool CAN_SET_OBJECT_NAME<
    Object, std::void_t<decltype(std::declval<Object&>().SetObjectName(std::declval<const QString&>()))>> =
    true;

template <typename Object, typename = void>
constexpr bool CAN_PROCESS_XML_START_ELEMENT = false;
template <typename Object>
constexpr bool
    CAN_PROCESS_XML_START_ELEMENT<Object, std::void_t<decltype(std::declval<Object&>().ProcessXmlStartElement(
                                              std::declval<QXmlStreamReader&>()))>> = true;

} // namespace

// --- Identity ----------------------------------------------------------------------------------------------

TEST(IRGObject, IsAbstractAndCopyableByConstructorAndAssignment)
{
    static_assert(std::is_abstract_v<IRGObject>);
    static_assert(std::has_virtual_destructor_v<IRGObject>);
    static_assert(std::is_copy_constructible_v<PlainObject>);
    static_assert(std::is_copy_assignable_v<IRGObject>);
    static_assert(!CAN_SET_OBJECT_TYPE<IRGObject>);
    static_assert(!CAN_SET_OBJECT_NAME<IRGObject>);
    static_assert(!CAN_PROCESS_XML_START_ELEMENT<IRGObject>);
    static_assert(CAN_SET_OBJECT_TYPE<PlainObject>);
    static_assert(CAN_SET_OBJECT_NAME<PlainObject>);
    static_assert(CAN_PROCESS_XML_START_ELEMENT<PlainObject>);
    static_assert(std::is_same_v<decltype(std::declval<const IRGObject&>().GetObjectId()), long long>);
    static_assert(std::is_same_v<decltype(std::declval<const IRGObject&>().GetLogger()),
                                 std::shared_ptr<REPORTGENERATOR::Logger>>);
}

TEST(IRGObject, DefaultConstructedIsAnyTypeValidatingWithoutLogger)
{
    const PlainObject object;
    EXPECT_EQ(object.GetObjectType(), Kind(80));
    EXPECT_TEXT(object.GetObjectName(), "AnyType");
    EXPECT_EQ(object.GetObjectId(), 80);
    EXPECT_TRUE(object.GetValidate());
    EXPECT_EQ(object.GetLogger(), nullptr);
}

TEST(IRGObject, ConstructedWithKindTakesNameAndIdOfTheKind)
{
    const PlainObject object(Kind(40));
    EXPECT_EQ(object.GetObjectType(), Kind(40));
    EXPECT_TEXT(object.GetObjectName(), "Job");
    EXPECT_EQ(object.GetObjectId(), 40);
    EXPECT_TRUE(object.GetValidate());
    EXPECT_EQ(object.GetLogger(), nullptr);
}

TEST(IRGObject, KindWithoutNameKeepsItsNumberAndIsNamedAnyType)
{
    for (const int number : {-1, 2, 63, 79, 81, 12345, -111111, std::numeric_limits<int>::max(),
                             std::numeric_limits<int>::min()}) {
        SCOPED_TRACE(number);
        const PlainObject constructed(Kind(number));
        EXPECT_EQ(constructed.GetObjectType(), Kind(number));
        EXPECT_EQ(constructed.GetObjectId(), static_cast<long long>(number));
        EXPECT_TEXT(constructed.GetObjectName(), "AnyType");

        PlainObject changed(Kind(42));
        changed.SetObjectType(Kind(number));
        EXPECT_EQ(changed.GetObjectType(), Kind(number));
        EXPECT_EQ(changed.GetObjectId(), static_cast<long long>(number));
        EXPECT_TEXT(changed.GetObjectName(), "AnyType");
    }
}

TEST(IRGObject, SetObjectTypeReplacesKindIdAndNameWhateverTheyWere)
{
    PlainObject object;
    object.SetObjectName(Text("Own"));
    object.SetObjectId(9876543210);
    object.SetObjectType(Kind(5));
    EXPECT_EQ(object.GetObjectType(), Kind(5));
    EXPECT_EQ(object.GetObjectId(), 5);
    EXPECT_TEXT(object.GetObjectName(), "Location");
}

TEST(IRGObject, SetObjectNameChangesNothingButTheName)
{
    PlainObject object(Kind(42));
    object.SetObjectName(Text("Größe"));
    EXPECT_TEXT(object.GetObjectName(), "Größe");
    EXPECT_EQ(object.GetObjectType(), Kind(42));
    EXPECT_EQ(object.GetObjectId(), 42);

    object.SetObjectName(QString());
    EXPECT_TEXT(object.GetObjectName(), "");
}

TEST(IRGObject, ANameHandedOutBeforeTheFirstRenamingKeepsTheOldTextAndLaterOnesFollow)
{
    PlainObject object;
    const QString& before = object.GetObjectName();
    object.SetObjectName(Text("First"));
    EXPECT_TEXT(before, "AnyType");
    const QString& later = object.GetObjectName();
    object.SetObjectName(Text("Second"));
    EXPECT_TEXT(later, "Second");
    EXPECT_TEXT(before, "AnyType");

    REPORTGENERATOR::Double number;
    const QString& nameOfNumber = number.GetName();
    number.SetName(Text("Length"));
    EXPECT_TEXT(nameOfNumber, "AnyType");
    EXPECT_TEXT(number.GetName(), "Length");
}

TEST(IRGObject, GettersOfTextsReferToTheObjectsOwn)
{
    const PlainObject object;
    EXPECT_EQ(&object.GetObjectName(), &object.GetObjectName());
    EXPECT_EQ(&object.GetVersion(), &IRGObject::EMPTY_VERSION);
    static_assert(std::is_same_v<decltype(object.GetVersion()), const QString&>);
    static_assert(std::is_same_v<decltype(IRGObject::EMPTY_VERSION), const QString>);
    EXPECT_TRUE(IRGObject::EMPTY_VERSION.isEmpty());
}

TEST(IRGObject, XmlTagNameIsTheNameOfTheKind)
{
    EXPECT_TEXT(IRGObject::GetXmlTagName(Kind(0)), "Tivor_Report");
    EXPECT_TEXT(IRGObject::GetXmlTagName(Kind(80)), "AnyType");
    EXPECT_TEXT(IRGObject::GetXmlTagName(Kind(2)), "");
    EXPECT_TEXT(IRGObject::GetXmlTagName(Kind(-1)), "");
    for (int number = -2; number <= 100; ++number)
        EXPECT_EQ(IRGObject::GetXmlTagName(Kind(number)), REPORTGENERATOR::ObjectTypesToName(Kind(number)));
}

// --- Settings ----------------------------------------------------------------------------------------------

TEST(IRGObject, ValidateAndLoggerCanBeChangedOnConstObjects)
{
    const PlainObject object;
    object.SetValidate(false);
    EXPECT_FALSE(object.GetValidate());
    object.SetValidate(true);
    EXPECT_TRUE(object.GetValidate());

    object.ResetLogger();
    EXPECT_EQ(object.GetLogger(), nullptr);
    const auto logger = NewLogger();
    object.SetLogger(logger);
    EXPECT_EQ(object.GetLogger(), logger);
    object.ResetLogger();
    EXPECT_EQ(object.GetLogger(), nullptr);
}

TEST(IRGObject, EmptyPointerRemovesTheLogger)
{
    const PlainObject object;
    object.SetLogger(NewLogger());
    object.SetLogger(nullptr);
    EXPECT_EQ(object.GetLogger(), nullptr);
    EXPECT_NO_RG_THROW(object.Trace(REPORTGENERATOR::INFO, Text("nobody listens")));
}

TEST(IRGObject, DestructorReleasesLoggerAndConverter)
{
    const auto logger = NewLogger();
    const auto converter = std::make_shared<VersionConverterProxy>();
    {
        PlainObject object;
        object.SetLogger(logger);
        object.InjectVersionConverter(converter);
        EXPECT_EQ(logger.use_count(), 2);
        EXPECT_EQ(converter.use_count(), 2);
    }
    EXPECT_EQ(logger.use_count(), 1);
    EXPECT_EQ(converter.use_count(), 1);
}

TEST(IRGObject, InjectingAConverterIsTracedAndSharesItAndAnEmptyPointerRemovesIt)
{
    const auto logger = NewLogger();
    const auto first = std::make_shared<VersionConverterProxy>();
    const auto second = std::make_shared<VersionConverterProxy>();
    PlainObject object(Kind(42));
    object.InjectVersionConverter(first);
    EXPECT_EQ(first.use_count(), 2);
    object.SetLogger(logger);
    object.InjectVersionConverter(second);
    EXPECT_EQ(first.use_count(), 1);
    EXPECT_EQ(second.use_count(), 2);
    object.InjectVersionConverter(nullptr);
    EXPECT_EQ(second.use_count(), 1);
    object.InjectVersionConverter(nullptr);
    EXPECT_LOG(logger, {"INFO: Task: Injecting version converter.", "INFO: Task: Removing version converter.",
                        "INFO: Task: Removing version converter."});
}

// --- Copying -----------------------------------------------------------------------------------------------

namespace {

/// An object in which each of the base's six fields differs from its default.
struct ChangedObject
{
    ChangedObject()
    {
        object.SetObjectType(Kind(42));
        object.SetObjectName(Text("Own"));
        object.SetObjectId(9876543210);
        object.SetValidate(false);
        object.SetLogger(logger);
        object.InjectVersionConverter(converter);
        logger->Reset(true);
    }

    void ExpectBaseOf(const IRGObject& copy) const
    {
        EXPECT_EQ(copy.GetObjectType(), Kind(42));
        EXPECT_TEXT(copy.GetObjectName(), "Own");
        EXPECT_EQ(copy.GetObjectId(), 9876543210);
        EXPECT_FALSE(copy.GetValidate());
        EXPECT_EQ(copy.GetLogger(), logger);
        EXPECT_EQ(logger.use_count(), 3);
        EXPECT_EQ(converter.use_count(), 3);
    }

    std::shared_ptr<ListLogger> logger = NewLogger();
    std::shared_ptr<VersionConverterProxy> converter = std::make_shared<VersionConverterProxy>();
    PlainObject object;
};

} // namespace

TEST(IRGObject, CopyConstructorCopiesAllFieldsAndSharesLoggerAndConverter)
{
    const ChangedObject changed;
    const PlainObject copy(changed.object);
    changed.ExpectBaseOf(copy);
    EXPECT_LOG(changed.logger, {});
}

TEST(IRGObject, AssignmentCopiesAllFieldsAndSharesLoggerAndConverterAlsoThroughTheBase)
{
    for (const bool isThroughBase : {false, true}) {
        const ChangedObject changed;
        const auto oldLogger = NewLogger();
        PlainObject target(Kind(40));
        target.SetLogger(oldLogger);
        IRGObject& base = target;
        if (isThroughBase)
            EXPECT_EQ(&(base = changed.object), &base);
        else
            EXPECT_EQ(&(target = changed.object), &target);
        changed.ExpectBaseOf(target);
        EXPECT_EQ(oldLogger.use_count(), 1);
        EXPECT_LOG(changed.logger, {});
        EXPECT_LOG(oldLogger, {});
    }
}

TEST(IRGObject, AssignmentToItselfKeepsEverything)
{
    ChangedObject changed;
    IRGObject& same = changed.object;
    changed.object.IRGObject::operator=(same);
    const PlainObject copy(changed.object);
    changed.ExpectBaseOf(copy);
}

TEST(IRGObject, ChangingACopyLeavesTheOriginalAlone)
{
    PlainObject original(Kind(42));
    original.SetLogger(NewLogger());
    PlainObject copy(original);
    copy.SetObjectType(Kind(40));
    copy.SetValidate(false);
    copy.ResetLogger();
    EXPECT_EQ(original.GetObjectType(), Kind(42));
    EXPECT_TEXT(original.GetObjectName(), "Task");
    EXPECT_TRUE(original.GetValidate());
    EXPECT_NE(original.GetLogger(), nullptr);
}

// --- Values that stand for "not set" -----------------------------------------------------------------------

namespace {

/// The value with this bit pattern is stored for "not set", and it alone is not valid.
template <typename Value, typename Bits>
void ExpectSentinel(Value sentinel, Bits bits, std::initializer_list<Value> others)
{
    const PlainObject object;
    Value value{};
    EXPECT_TRUE(object.IsValid(value));
    object.SetInvalid(value);
    EXPECT_EQ(value, sentinel);
    EXPECT_EQ(BitsOf<Bits>(value), bits);
    EXPECT_FALSE(object.IsValid(value));
    EXPECT_FALSE(object.IsValid(sentinel));
    for (const Value other : others)
        EXPECT_TRUE(object.IsValid(other)) << other;
}

/// What is next to the sentinel, like it, or at the ends of the range of the type.
template <typename Value, typename Bits>
void ExpectSentinelOfReals(Value sentinel, Bits bits, Value other)
{
    using Limits = std::numeric_limits<Value>;
    const Value infinite = Limits::infinity();
    ExpectSentinel<Value>(sentinel, bits,
                          {std::nextafter(sentinel, Value(0)), std::nextafter(sentinel, -infinite), -sentinel,
                           other, Value(-111111), Value(-0.0), infinite, -infinite, Limits::max(),
                           Limits::lowest(), Limits::denorm_min(), Limits::quiet_NaN(),
                           -Limits::quiet_NaN()});
}

} // namespace

TEST(IRGObject, OneValueOfEachTypeOfNumberIsStoredForNotSetAndAloneNotValid)
{
    using Int = std::numeric_limits<int>;
    using LongLong = std::numeric_limits<long long>;
    ExpectSentinel<int>(-111111, 0xFFFE4DF9u,
                        {-111112, -111110, 111111, -1, -1111111, Int::min(), Int::max()});
    ExpectSentinel<unsigned int>(4294967295u, 0xFFFFFFFFu,
                                 {4294967294u, 1u, 0x7FFFFFFFu, 0x80000000u, 0xFFFE4DF9u});
    ExpectSentinel<long long>(-111111, std::uint64_t{0xFFFFFFFFFFFE4DF9u},
                              {-111112LL, -111110LL, 111111LL, 4294967295LL, 0xFFFE4DF9LL,
                               -111111LL - (1LL << 32), LongLong::min(), LongLong::max()});
    ExpectSentinelOfReals<float>(-1111111.0f, 0xC987A238u, -111111.11f);
    ExpectSentinelOfReals<double>(-111111.11, std::uint64_t{0xC0FB2071C28F5C29u},
                                  static_cast<double>(-111111.11f));
    EXPECT_TRUE(PlainObject().IsValid(-1111111.0));
}

TEST(IRGObject, EmptyTextsAreStoredForNotSetAndNotValid)
{
    const PlainObject object;
    QString text = Text("text");
    object.SetInvalid(text);
    EXPECT_TRUE(text.isEmpty());
    EXPECT_FALSE(object.IsValid(text));
    EXPECT_FALSE(object.IsValid(QString()));
    EXPECT_FALSE(object.IsValid(QStringLiteral("")));
    EXPECT_TRUE(object.IsValid(QStringLiteral(" ")));
    EXPECT_TRUE(object.IsValid(QStringLiteral("0")));
    EXPECT_TRUE(object.IsValid(QString(1, QChar(0))));
}

TEST(IRGObject, OnlyTheNullDateTimeIsNotValid)
{
    const PlainObject object;
    EXPECT_FALSE(object.IsValid(QDateTime()));
    EXPECT_TRUE(object.IsValid(QDateTime(QDate(2017, 2, 3), QTime(14, 5, 9, 7), Qt::UTC)));
    EXPECT_TRUE(object.IsValid(QDateTime(QDate(1, 1, 1), QTime(0, 0), Qt::UTC)));

    const QDateTime timeWithoutDate(QDate(), QTime(14, 5), Qt::UTC);
    ASSERT_FALSE(timeWithoutDate.isValid());
    ASSERT_FALSE(timeWithoutDate.isNull());
    EXPECT_TRUE(object.IsValid(timeWithoutDate));
}

TEST(IRGObject, BoolsAreAlwaysValid)
{
    const PlainObject object;
    EXPECT_TRUE(object.IsValid(true));
    EXPECT_TRUE(object.IsValid(false));
}

TEST(IRGObject, BoolAndDateTimeHaveNoValueThatStandsForNotSet)
{
    static_assert(!HAS_SET_INVALID<bool>);
    static_assert(!HAS_SET_INVALID<QDateTime>);
    static_assert(HAS_SET_INVALID<int>);
    static_assert(HAS_SET_INVALID<unsigned int>);
    static_assert(HAS_SET_INVALID<long long>);
    static_assert(HAS_SET_INVALID<float>);
    static_assert(HAS_SET_INVALID<double>);
    static_assert(HAS_SET_INVALID<QString>);
}

// --- Check -------------------------------------------------------------------------------------------------

TEST(IRGObject, CheckIgnoresItsFlag)
{
    PlainObject object;
    object.Check(true);
    object.Check(false);
    EXPECT_EQ(object.calls.check, 2);

    object.problem = Text("not good");
    const auto logger = NewLogger();
    object.SetLogger(logger);
    EXPECT_RG_THROW(object.Check(true), "RGException", "not good");
    EXPECT_RG_THROW(object.Check(false), "RGException", "not good");
    EXPECT_LOG(logger, {"FATAL ERROR: RGException: not good", "FATAL ERROR: RGException: not good"});
}

TEST(IRGObject, BaseReadsNothingFromAStartElement)
{
    QXmlStreamReader reader(QStringLiteral("<A>1</A>"));
    ASSERT_TRUE(reader.readNextStartElement());
    UnreadingObject object;
    object.ProcessXmlStartElement(reader);
    EXPECT_EQ(reader.tokenType(), QXmlStreamReader::StartElement);
    EXPECT_EQ(reader.name().toString(), Text("A"));
    EXPECT_EQ(object.calls.processXmlStartElement, 0);
}
