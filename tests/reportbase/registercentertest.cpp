#include "support/expect.h"
#include "support/plainobject.h"

#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/interfacenotsupportedexception.h>
#include <reportgenerator/reportbase/registercenter.h>

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>
#include <typeinfo>

namespace {

using REPORTGENERATOR::AnyType;
using REPORTGENERATOR::ObjectTypes;
using REPORTGENERATOR::RegisterCenter;
using Support::PlainObject;
using Support::Text;

constexpr auto JOB_HEADER = static_cast<ObjectTypes>(41);
constexpr auto TASK = static_cast<ObjectTypes>(42);
constexpr auto NO_KIND = static_cast<ObjectTypes>(2);

/// Counts its end.
class CountedObject : public PlainObject
{
public:
    explicit CountedObject(int& deleted, ObjectTypes type = AnyType) : PlainObject(type), m_deleted(deleted)
    {
    }
    ~CountedObject() override { ++m_deleted; }

private:
    int& m_deleted;
};

void ExpectFresh(const RegisterCenter& center)
{
    EXPECT_EQ(center.GetInterface(), nullptr);
    EXPECT_EQ(center.GetInterfaceId(), -1);
    EXPECT_TEXT(center.GetObjectName(), "");
}

void ExpectUnsupported(RegisterCenter& center, PlainObject& object, ObjectTypes type)
{
    try {
        center.RegisterInterface(&object, type);
        ADD_FAILURE() << "registered";
    } catch (const ReportException& exception) {
        EXPECT_TRUE(typeid(exception) == typeid(InterfaceNotSupportedException));
        EXPECT_ERROR(exception, "InterfaceNotSupportedException",
                     "RegisterCenter:: While trying to register an interface that isn't defined");
    }
}

} // namespace

TEST(RegisterCenter, StartsWithoutObjectAndWithIdMinusOne)
{
    ExpectFresh(RegisterCenter());
}

TEST(RegisterCenter, RegisteringNullLeavesItFresh)
{
    RegisterCenter center;
    center.RegisterInterface(nullptr);
    ExpectFresh(center);
}

TEST(RegisterCenter, RegisteringNullKeepsTheObjectThatItHolds)
{
    int deleted = 0;
    RegisterCenter center;
    auto* object = new CountedObject(deleted, JOB_HEADER);
    center.RegisterInterface(object);
    center.RegisterInterface(nullptr);
    EXPECT_EQ(center.GetInterface(), object);
    EXPECT_EQ(center.GetInterfaceId(), 41);
    EXPECT_EQ(deleted, 0);
}

TEST(RegisterCenter, ObjectOfANamedKindIsFiledUnderItsNumber)
{
    RegisterCenter center;
    auto* object = new PlainObject(JOB_HEADER);
    center.RegisterInterface(object);
    EXPECT_EQ(center.GetInterface(), object);
    EXPECT_EQ(center.GetInterfaceId(), 41);
    EXPECT_TEXT(center.GetObjectName(), "JobHeader");
}

TEST(RegisterCenter, FirstKindIsFiledUnderZero)
{
    RegisterCenter center;
    center.RegisterInterface(new PlainObject(static_cast<ObjectTypes>(0)));
    EXPECT_EQ(center.GetInterfaceId(), 0);
    EXPECT_TEXT(center.GetObjectName(), "Tivor_Report");
}

TEST(RegisterCenter, ObjectOfAnyTypeIsFiledUnderItsObjectId)
{
    RegisterCenter center;
    auto* object = new PlainObject;
    object->SetObjectId(0x123456789abcLL);
    center.RegisterInterface(object);
    EXPECT_EQ(center.GetInterfaceId(), 0x123456789abcLL);
    EXPECT_TEXT(center.GetObjectName(), "AnyType");

    RegisterCenter plain;
    plain.RegisterInterface(new PlainObject);
    EXPECT_EQ(plain.GetInterfaceId(), 80);
}

TEST(RegisterCenter, ObjectOfAKindWithoutNameIsFiledUnderItsObjectId)
{
    RegisterCenter center;
    auto* object = new PlainObject(NO_KIND);
    object->SetObjectId(-5);
    center.RegisterInterface(object);
    EXPECT_EQ(center.GetInterface(), object);
    EXPECT_EQ(center.GetInterfaceId(), -5);
}

TEST(RegisterCenter, ClassWithAnIdOfItsOwnIsFiledUnderIt)
{
    RegisterCenter center;
    center.RegisterInterface(new REPORTGENERATOR::Frequency);
    EXPECT_EQ(center.GetInterfaceId(), REPORTGENERATOR::Frequency::id);
    EXPECT_TEXT(center.GetObjectName(), "Frequency");

    RegisterCenter plain;
    plain.RegisterInterface(new REPORTGENERATOR::Ellipse);
    EXPECT_EQ(plain.GetInterfaceId(), 80);
    EXPECT_TEXT(plain.GetObjectName(), "Ellipse");
}

TEST(RegisterCenter, ObjectsOwnIdIsPreferredToTheIdOfItsKind)
{
    RegisterCenter center;
    auto* object = new PlainObject(JOB_HEADER);
    object->SetObjectId(1234);
    center.RegisterInterface(object);
    EXPECT_EQ(center.GetInterfaceId(), 1234);
    object->SetObjectId(5678);
    EXPECT_EQ(center.GetInterfaceId(), 5678) << "asked each time";
}

TEST(RegisterCenter, ObjectsOwnIdIsPreferredToTheIdGivenAtRegistration)
{
    RegisterCenter center;
    center.RegisterInterface(new PlainObject(JOB_HEADER), TASK);
    EXPECT_EQ(center.GetInterfaceId(), 41);
}

TEST(RegisterCenter, TypeGivenAtRegistrationIsNotChecked)
{
    for (const int type : {-1, 2, 80, 42, -2147483647 - 1, 2147483647}) {
        RegisterCenter center;
        auto* object = new PlainObject(JOB_HEADER);
        EXPECT_NO_RG_THROW(center.RegisterInterface(object, static_cast<ObjectTypes>(type)));
        EXPECT_EQ(center.GetInterface(), object) << type;
        EXPECT_EQ(center.GetInterfaceId(), 41) << type;
    }
}

TEST(RegisterCenter, AnyTypeIsAValidKindForRegistrationUnderAType)
{
    RegisterCenter center;
    auto* object = new PlainObject;
    EXPECT_NO_RG_THROW(center.RegisterInterface(object, TASK));
    EXPECT_EQ(center.GetInterface(), object);
    EXPECT_EQ(center.GetInterfaceId(), 80);
}

TEST(RegisterCenter, KindWithoutNameIsRefusedAndTheCenterUnchanged)
{
    for (const int type : {-1, 2, 81}) {
        PlainObject refused(static_cast<ObjectTypes>(type));
        RegisterCenter fresh;
        ExpectUnsupported(fresh, refused, TASK);
        ExpectFresh(fresh);

        RegisterCenter center;
        auto* object = new PlainObject(JOB_HEADER);
        center.RegisterInterface(object);
        ExpectUnsupported(center, refused, JOB_HEADER);
        EXPECT_EQ(center.GetInterface(), object);
        EXPECT_EQ(center.GetInterfaceId(), 41);
        EXPECT_TEXT(center.GetObjectName(), "JobHeader");
    }
}

TEST(RegisterCenter, NameIsTheObjectsCurrentName)
{
    RegisterCenter center;
    auto* object = new PlainObject(JOB_HEADER);
    center.RegisterInterface(object);
    object->SetObjectName(Text("Renamed"));
    EXPECT_TEXT(center.GetObjectName(), "Renamed");
}

TEST(RegisterCenter, DeletesItsObjectAtItsEnd)
{
    int deleted = 0;
    {
        RegisterCenter center;
        center.RegisterInterface(new CountedObject(deleted));
        EXPECT_EQ(deleted, 0);
    }
    EXPECT_EQ(deleted, 1);
}

TEST(RegisterCenter, IsDeletedThroughItsVirtualDestructor)
{
    EXPECT_TRUE(std::is_polymorphic_v<RegisterCenter>);
    EXPECT_TRUE(std::has_virtual_destructor_v<RegisterCenter>);

    class Derived : public RegisterCenter
    {
    public:
        explicit Derived(bool& ended) : m_ended(ended) {}
        ~Derived() override { m_ended = true; }

    private:
        bool& m_ended;
    };
    bool ended = false;
    int deleted = 0;
    std::unique_ptr<RegisterCenter> center = std::make_unique<Derived>(ended);
    center->RegisterInterface(new CountedObject(deleted));
    center.reset();
    EXPECT_TRUE(ended);
    EXPECT_EQ(deleted, 1);
}

TEST(RegisterCenter, SecondObjectReplacesTheFirstWithoutDeletingIt)
{
    int firstDeleted = 0;
    int secondDeleted = 0;
    CountedObject first(firstDeleted, JOB_HEADER);
    {
        RegisterCenter center;
        center.RegisterInterface(&first);
        auto* second = new CountedObject(secondDeleted, TASK);
        center.RegisterInterface(second);
        EXPECT_EQ(center.GetInterface(), second);
        EXPECT_EQ(center.GetInterfaceId(), 42);
        EXPECT_TEXT(center.GetObjectName(), "Task");
    }
    EXPECT_EQ(firstDeleted, 0);
    EXPECT_EQ(secondDeleted, 1);
}

TEST(RegisterCenter, SameObjectTwiceIsDeletedOnce)
{
    int deleted = 0;
    {
        RegisterCenter center;
        auto* object = new CountedObject(deleted, JOB_HEADER);
        center.RegisterInterface(object);
        center.RegisterInterface(object);
        EXPECT_EQ(deleted, 0);
    }
    EXPECT_EQ(deleted, 1);
}

TEST(RegisterCenter, NothingIsLogged)
{
    const auto logger = Support::NewLogger();
    PlainObject refused(NO_KIND);
    refused.SetLogger(logger);
    {
        RegisterCenter center;
        auto* object = new PlainObject(JOB_HEADER);
        object->SetLogger(logger);
        center.RegisterInterface(object);
        center.RegisterInterface(object, TASK);
        center.RegisterInterface(nullptr);
        ExpectUnsupported(center, refused, TASK);
        EXPECT_TEXT(center.GetObjectName(), "JobHeader");
        EXPECT_EQ(center.GetInterfaceId(), 41);
        EXPECT_EQ(object->calls.reset, 0);
    }
    EXPECT_LOG(logger, {});
}

// Only one of two centers may be destroyed while it holds the shared object, so the copies below get another
// object before their end.

TEST(RegisterCenter, CopySharesTheObject)
{
    int deleted = 0;
    auto* object = new CountedObject(deleted, JOB_HEADER);
    RegisterCenter center;
    center.RegisterInterface(object);
    {
        RegisterCenter copy(center);
        EXPECT_EQ(copy.GetInterface(), object);
        EXPECT_EQ(copy.GetInterfaceId(), 41);
        EXPECT_TEXT(copy.GetObjectName(), "JobHeader");
        copy.RegisterInterface(new PlainObject);
    }
    EXPECT_EQ(deleted, 0);
    EXPECT_EQ(center.GetInterface(), object);
}

TEST(RegisterCenter, AssignmentSharesTheObjectAndDeletesNothing)
{
    int deleted = 0;
    int replacedDeleted = 0;
    CountedObject replaced(replacedDeleted);
    auto* object = new CountedObject(deleted, JOB_HEADER);
    RegisterCenter center;
    center.RegisterInterface(object);
    {
        RegisterCenter target;
        target.RegisterInterface(&replaced);
        EXPECT_EQ(&(target = center), &target);
        EXPECT_EQ(target.GetInterface(), object);
        EXPECT_EQ(target.GetInterfaceId(), 41);
        EXPECT_EQ(replacedDeleted, 0);
        const RegisterCenter& same = target;
        EXPECT_EQ(&(target = same), &target);
        EXPECT_EQ(target.GetInterface(), object);
        target.RegisterInterface(new PlainObject);
    }
    EXPECT_EQ(deleted, 0);
    EXPECT_EQ(replacedDeleted, 0);
}

TEST(RegisterCenter, CopyOfAFreshCenterIsFresh)
{
    const RegisterCenter center;
    ExpectFresh(RegisterCenter(center));
    RegisterCenter target;
    target = center;
    ExpectFresh(target);
}
