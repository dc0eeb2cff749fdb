// What the declarations promise to a program that is compiled against them.

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/settingsnotifier.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaType>
#include <QtCore/QVariant>

#include <exception>
#include <stdexcept>
#include <type_traits>
#include <utility>

// A program may need them as metatypes and declares them itself; it could not if the headers did too.
Q_DECLARE_METATYPE(REPORTGENERATOR::IRGObject*)
Q_DECLARE_METATYPE(REPORTGENERATOR::RegisterCenter*)
Q_DECLARE_METATYPE(REPORTGENERATOR::Area)

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::RegisterCenter;
using REPORTGENERATOR::SettingsNotifier;
using REPORTGENERATOR::ValueMinMax;

template <class Object, class Result>
constexpr bool IsGetter(Result (Object::*)() const, bool isReference)
{
    return std::is_reference_v<Result> == isReference;
}

TEST(Interface, TextsAreHandedOutByValueUnlessTheyAreTheBases)
{
    EXPECT_TRUE(IsGetter(&Double::GetUnit, false));
    EXPECT_TRUE(IsGetter(&ValueMinMax::GetName, false));
    EXPECT_TRUE(IsGetter(&Area::GetInitialVersionLoaded, false));
    EXPECT_TRUE(IsGetter(&Double::GetName, true));
    EXPECT_TRUE(IsGetter(&IRGObject::GetObjectName, true));
    EXPECT_TRUE(IsGetter(&Area::GetVersion, true));
    EXPECT_TRUE(IsGetter(&ChannelSpacing::GetVisual, true));
}

TEST(Interface, ATextThatWasHandedOutStaysWhenTheObjectChanges)
{
    Double number;
    number.SetUnit(QStringLiteral("Hz"));
    auto&& unit = std::as_const(number).GetUnit();
    number.Reset();
    EXPECT_EQ(unit, QStringLiteral("Hz"));
}

TEST(Interface, ANotifierRegistersThePointersThatItsSignalsCarry)
{
    const SettingsNotifier notifier;
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    EXPECT_NE(QMetaType::type("REPORTGENERATOR::IRGObject*"), 0);
    EXPECT_NE(QMetaType::type("REPORTGENERATOR::RegisterCenter*"), 0);
    EXPECT_EQ(QMetaType::type("REPORTGENERATOR::IRGObject*"), qMetaTypeId<IRGObject*>());
    EXPECT_EQ(QMetaType::type("REPORTGENERATOR::RegisterCenter*"), qMetaTypeId<RegisterCenter*>());
#else
    EXPECT_EQ(QMetaType::fromName("REPORTGENERATOR::IRGObject*"), QMetaType::fromType<IRGObject*>());
    EXPECT_EQ(QMetaType::fromName("REPORTGENERATOR::RegisterCenter*"),
              QMetaType::fromType<RegisterCenter*>());
#endif
}

TEST(Interface, SignalsAreQueued)
{
    int argumentCount = 0;
    char* arguments = nullptr;
    QCoreApplication application(argumentCount, &arguments);
    class Sender : public SettingsNotifier
    {
    } sender;
    QObject receiver;
    Area area;
    const IRGObject* received = nullptr;
    QObject::connect(
        &sender, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged), &receiver,
        [&](IRGObject* object) { received = object; }, Qt::QueuedConnection);
    Q_EMIT sender.SettingsChanged(&area);
    EXPECT_EQ(received, nullptr);
    QCoreApplication::processEvents();
    EXPECT_EQ(received, &area);
}

TEST(Interface, AnAreaTravelsInAVariant)
{
    Area area;
    area.SetName(QStringLiteral("N"));
    const QVariant variant = QVariant::fromValue(area);
    EXPECT_TRUE(variant.value<Area>() == area);
}

TEST(Interface, ExceptionsAreCopiedCaughtAndCarriedAsTheyAre)
{
    static_assert(!std::is_base_of_v<std::exception, ReportException>);
    static_assert(std::is_copy_constructible_v<RGException> && std::is_copy_assignable_v<RGException>);
    std::exception_ptr carried;
    try {
        throw RGException(QStringLiteral("T"));
    } catch (...) {
        carried = std::current_exception();
    }
    try {
        std::rethrow_exception(carried);
    } catch (const ReportException& exception) {
        EXPECT_EQ(exception.GetErrorText(), QStringLiteral("T"));
        EXPECT_EQ(exception.GetErrorName(), QStringLiteral("RGException"));
    }
}

} // namespace
