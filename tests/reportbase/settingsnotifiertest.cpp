// The registry of a SettingsNotifier and its signals.

#include "support/expect.h"
#include "support/notified.h"

#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/interfacealreadyregisteredexception.h>
#include <reportgenerator/reportbase/registercenter.h>
#include <reportgenerator/reportbase/scanparameter.h>
#include <reportgenerator/reportbase/settingsnotifier.h>
#include <wendbase/errorhandler.h>
#include <wendbase/qtrace.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QMetaMethod>
#include <QtCore/QMetaObject>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QThread>

#include <memory>
#include <vector>

namespace {

using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ObjectTypes;
using REPORTGENERATOR::RegisterCenter;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::SettingsNotifier;
using Support::Application;
using Support::ExpectThrows;
using Support::Heard;
using Support::JOB;
using Support::JOB_HEADER;
using Support::NewCenter;
using Support::Offered;
using Support::OpenNotifier;
using Support::Register;
using Support::RegisterOffered;
using Support::TASK;
using Support::Text;

} // namespace

// --- Meta-object ------------------------------------------------------------------------------------------

TEST(SettingsNotifier, MetaObjectHasTwoSignalsAndNothingMore)
{
    const SettingsNotifier notifier;
    const QMetaObject* meta = notifier.metaObject();
    EXPECT_STREQ(meta->className(), "REPORTGENERATOR::SettingsNotifier");
    EXPECT_EQ(meta->superClass(), &QObject::staticMetaObject);
    EXPECT_EQ(meta->methodCount(), QObject::staticMetaObject.methodCount() + 2);
    EXPECT_EQ(meta->propertyCount(), QObject::staticMetaObject.propertyCount());
    EXPECT_EQ(meta->enumeratorCount(), QObject::staticMetaObject.enumeratorCount());
    EXPECT_EQ(meta->classInfoCount(), 0);
    EXPECT_EQ(meta->constructorCount(), 0);

    const QMetaMethod first = meta->method(meta->methodOffset());
    EXPECT_EQ(first.methodSignature(), QByteArray("SettingsChanged(REPORTGENERATOR::IRGObject*)"));
    const QMetaMethod second = meta->method(meta->methodOffset() + 1);
    EXPECT_EQ(second.methodSignature(), QByteArray("SettingsChanged(REPORTGENERATOR::RegisterCenter*)"));
    for (const QMetaMethod& method : {first, second}) {
        EXPECT_EQ(method.methodType(), QMetaMethod::Signal);
        EXPECT_EQ(method.access(), QMetaMethod::Public);
        EXPECT_NE(method.parameterType(0), static_cast<int>(QMetaType::UnknownType));
    }
}

TEST(SettingsNotifier, IsFoundByTheMetaObjectOperations)
{
    SettingsNotifier notifier;
    QObject* object = &notifier;
    EXPECT_EQ(qobject_cast<SettingsNotifier*>(object), &notifier);
    EXPECT_TRUE(object->inherits("REPORTGENERATOR::SettingsNotifier"));
    EXPECT_EQ(notifier.qt_metacast("REPORTGENERATOR::SettingsNotifier"), &notifier);
    EXPECT_EQ(notifier.qt_metacast("SettingsNotifier"), nullptr);
    EXPECT_TEXT(SettingsNotifier::tr("x"), "x");
    EXPECT_EQ(notifier.parent(), nullptr);
}

// --- Registration -----------------------------------------------------------------------------------------

TEST(SettingsNotifier, FindsACenterByIdAndByKind)
{
    SettingsNotifier notifier;
    EXPECT_EQ(notifier.GetCenter(41LL), nullptr);
    EXPECT_EQ(notifier.GetCenter(JOB_HEADER), nullptr);
    RegisterCenter* center = NewCenter(new Offered(JOB_HEADER));
    notifier.NotifyOnChanged(center);
    EXPECT_EQ(notifier.GetCenter(41LL), center);
    EXPECT_EQ(notifier.GetCenter(JOB_HEADER), center);
    EXPECT_EQ(notifier.GetCenter(42LL), nullptr);
    EXPECT_EQ(notifier.GetCenter(TASK), nullptr);
    EXPECT_EQ(notifier.GetCenter(-1LL), nullptr);
}

TEST(SettingsNotifier, KindIsWidenedWithItsSign)
{
    SettingsNotifier notifier;
    auto* center = new RegisterCenter;
    notifier.NotifyOnChanged(center);
    EXPECT_EQ(notifier.GetCenter(-1LL), center) << "a center without object has the id -1";
    EXPECT_EQ(notifier.GetCenter(static_cast<ObjectTypes>(-1)), center);
    EXPECT_EQ(notifier.GetCenter(0xFFFFFFFFLL), nullptr);
}

TEST(SettingsNotifier, FilesACenterUnderTheObjectsOwnId)
{
    SettingsNotifier notifier;
    auto* center = new RegisterCenter;
    center->RegisterInterface(new Offered(JOB_HEADER), TASK);
    notifier.NotifyOnChanged(center);
    EXPECT_EQ(notifier.GetCenter(TASK), nullptr);
    EXPECT_EQ(notifier.GetCenter(JOB_HEADER), center);
}

TEST(SettingsNotifier, CenterStaysUnderTheIdThatItWasRegisteredWith)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    Offered* object = RegisterOffered(notifier, JOB_HEADER);
    RegisterCenter* center = notifier.GetCenter(JOB_HEADER);
    RegisterOffered(notifier, TASK);
    object->SetObjectId(99);
    EXPECT_EQ(notifier.GetCenter(JOB_HEADER), center);
    EXPECT_EQ(notifier.GetCenter(99LL), nullptr);
    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(heard.signalled, Support::Lines({"object 99", "center 99", "object 42", "center 42"}));

    // The id is free for another object now.
    EXPECT_NO_RG_THROW(Register(notifier, new Offered(JOB)));
    const std::unique_ptr<RegisterCenter> again(NewCenter(new Offered(JOB_HEADER)));
    ExpectThrows<InterfaceAlreadyRegisteredException>(
        [&] { notifier.NotifyOnChanged(again.get()); }, "InterfaceAlreadyRegisteredException",
        "Interface JobHeader already registered in SettingsNotifier");
}

TEST(SettingsNotifier, SecondObjectOfAKindIsRefusedByItsName)
{
    SettingsNotifier notifier;
    RegisterCenter* first = NewCenter(new Offered(JOB_HEADER));
    notifier.NotifyOnChanged(first);
    const std::unique_ptr<RegisterCenter> second(NewCenter(new Offered(JOB_HEADER)));
    ExpectThrows<InterfaceAlreadyRegisteredException>(
        [&] { notifier.NotifyOnChanged(second.get()); }, "InterfaceAlreadyRegisteredException",
        "Interface JobHeader already registered in SettingsNotifier");
    EXPECT_EQ(notifier.GetCenter(41LL), first);
}

TEST(SettingsNotifier, SameCenterTwiceIsRefusedAndStaysRegistered)
{
    SettingsNotifier notifier;
    RegisterCenter* center = NewCenter(new Offered(TASK));
    notifier.NotifyOnChanged(center);
    ExpectThrows<InterfaceAlreadyRegisteredException>(
        [&] { notifier.NotifyOnChanged(center); }, "InterfaceAlreadyRegisteredException",
        "Interface Task already registered in SettingsNotifier");
    EXPECT_EQ(notifier.GetCenter(TASK), center);
}

TEST(SettingsNotifier, RefusalNamesTheNewObject)
{
    SettingsNotifier notifier;
    Register(notifier, new Ellipse);
    const std::unique_ptr<RegisterCenter> second(NewCenter(new ScanParameter));
    ExpectThrows<InterfaceAlreadyRegisteredException>(
        [&] { notifier.NotifyOnChanged(second.get()); }, "InterfaceAlreadyRegisteredException",
        "Interface ScanParameter already registered in SettingsNotifier");

    auto* empty = new RegisterCenter;
    notifier.NotifyOnChanged(empty);
    RegisterCenter another;
    ExpectThrows<InterfaceAlreadyRegisteredException>([&] { notifier.NotifyOnChanged(&another); },
                                                      "InterfaceAlreadyRegisteredException",
                                                      "Interface  already registered in SettingsNotifier");
}

TEST(SettingsNotifier, UnregisteringDeletesCenterAndObject)
{
    bool deleted = false;
    bool otherDeleted = false;
    OpenNotifier notifier;
    Register(notifier, new Offered(JOB, &deleted));
    Register(notifier, new Offered(TASK, &otherDeleted));
    notifier.UnRegister(39);
    EXPECT_FALSE(deleted);
    EXPECT_NE(notifier.GetCenter(JOB), nullptr);
    notifier.UnRegister(40);
    EXPECT_TRUE(deleted);
    EXPECT_FALSE(otherDeleted);
    EXPECT_EQ(notifier.GetCenter(JOB), nullptr);
    EXPECT_NE(notifier.GetCenter(TASK), nullptr);
    notifier.UnRegister(40);

    EXPECT_NO_RG_THROW(RegisterOffered(notifier, JOB));
    EXPECT_NE(notifier.GetCenter(JOB), nullptr);
}

TEST(SettingsNotifier, DeletesCentersAndObjectsAtItsEnd)
{
    bool deleted[3] = {false, false, false};
    std::unique_ptr<SettingsNotifier> notifier = std::make_unique<OpenNotifier>();
    Register(*notifier, new Offered(JOB, &deleted[0]));
    Register(*notifier, new Offered(JOB_HEADER, &deleted[1]));
    Register(*notifier, new Offered(TASK, &deleted[2]));
    EXPECT_FALSE(deleted[0] || deleted[1] || deleted[2]);
    notifier.reset();
    EXPECT_TRUE(deleted[0] && deleted[1] && deleted[2]);
}

// --- Changes from within a handler ------------------------------------------------------------------------

TEST(SettingsNotifier, CenterRegisteredByAHandlerIsServedTheNextTime)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    RegisterOffered(notifier, JOB);
    Offered* added = nullptr;
    QObject::connect(&notifier, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged), [&](IRGObject*) {
        if (added == nullptr)
            added = RegisterOffered(notifier, TASK);
    });
    notifier.SetSettings(Text("<A></A>"), false);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->calls.reset, 0);
    EXPECT_EQ(added->fragments, QStringList());
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "center 40"}));

    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(added->fragments.size(), 1);
    EXPECT_EQ(heard.signalled,
              Support::Lines({"object 40", "center 40", "object 40", "center 40", "object 42", "center 42"}));
}

TEST(SettingsNotifier, HandlerMayUnregisterAnObjectThatHasBeenServed)
{
    bool deleted = false;
    OpenNotifier notifier;
    Register(notifier, new Offered(JOB, &deleted));
    const Offered* last = RegisterOffered(notifier, TASK);
    QObject::connect(&notifier, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged),
                     [&](IRGObject* object) {
                         if (object->GetObjectId() == 42)
                             notifier.UnRegister(40);
                     });
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_TRUE(deleted);
    EXPECT_EQ(notifier.GetCenter(JOB), nullptr);
    EXPECT_EQ(last->fragments.size(), 1);
}

TEST(SettingsNotifier, ObjectThatAHandlerUnregistersIsNotServedAnyMore)
{
    bool deleted = false;
    OpenNotifier notifier;
    Heard heard(notifier);
    RegisterOffered(notifier, JOB);
    Register(notifier, new Offered(JOB_HEADER, &deleted));
    RegisterOffered(notifier, TASK);
    QObject::connect(&notifier, qOverload<RegisterCenter*>(&SettingsNotifier::SettingsChanged),
                     [&](RegisterCenter* center) {
                         if (center->GetInterfaceId() == 40)
                             notifier.UnRegister(41);
                     });
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_TRUE(deleted);
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "center 40", "object 42", "center 42"}));
}

TEST(SettingsNotifier, ObjectThatItsOwnHandlerUnregistersIsSignalledWithoutItsCenter)
{
    OpenNotifier notifier;
    Heard heard(notifier);
    RegisterOffered(notifier, JOB);
    RegisterOffered(notifier, TASK);
    QObject::connect(&notifier, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged),
                     [&](IRGObject* object) {
                         if (object->GetObjectId() == 40)
                             notifier.UnRegister(40);
                     });
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "object 42", "center 42"}));
}

TEST(SettingsNotifier, HandlerMayReplaceAnObjectThatIsYetToBeServed)
{
    OpenNotifier notifier;
    Heard heard(notifier);
    RegisterOffered(notifier, JOB);
    RegisterOffered(notifier, TASK);
    // Made before the old center goes, so that it has another place in memory.
    std::unique_ptr<RegisterCenter> center(NewCenter(new Offered(TASK)));
    const auto* replacement = static_cast<const Offered*>(center->GetInterface());
    QObject::connect(&notifier, qOverload<RegisterCenter*>(&SettingsNotifier::SettingsChanged),
                     [&](RegisterCenter* changed) {
                         if (changed->GetInterfaceId() != 40 || !center)
                             return;
                         notifier.UnRegister(42);
                         notifier.NotifyOnChanged(center.release());
                     });
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_EQ(replacement->fragments, QStringList()) << "registered by a handler, served the next time";
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "center 40"}));
    EXPECT_NO_RG_THROW(notifier.SetSettings(Text("<A></A>"), false));
    EXPECT_EQ(replacement->fragments.size(), 1);
}

TEST(SettingsNotifier, HandlerMaySetSettingsAgain)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    const Offered* object = RegisterOffered(notifier, JOB);
    bool again = true;
    QObject::connect(&notifier, qOverload<RegisterCenter*>(&SettingsNotifier::SettingsChanged),
                     [&](RegisterCenter*) {
                         if (!again)
                             return;
                         again = false;
                         notifier.SetSettings(Text("<B></B>"), true);
                     });
    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(object->fragments, Support::Lines({"<A></A>", "<B></B>"}));
    EXPECT_EQ(heard.signalled.size(), 4);
}

// --- Connections ------------------------------------------------------------------------------------------

TEST(SettingsNotifier, SignalsCanBeConnectedByTheirText)
{
    SettingsNotifier notifier;
    SettingsNotifier relay;
    EXPECT_TRUE(QObject::connect(&notifier, SIGNAL(SettingsChanged(REPORTGENERATOR::IRGObject*)), &relay,
                                 SIGNAL(SettingsChanged(REPORTGENERATOR::IRGObject*))));
    EXPECT_TRUE(QObject::connect(&notifier, SIGNAL(SettingsChanged(REPORTGENERATOR::RegisterCenter*)), &relay,
                                 SIGNAL(SettingsChanged(REPORTGENERATOR::RegisterCenter*))));
    Heard heard(relay);
    RegisterOffered(notifier, JOB);
    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "center 40"}));
}

TEST(SettingsNotifier, SignalsAreReachedByTheirIndexes)
{
    SettingsNotifier notifier;
    Heard heard(notifier);
    IRGObject* object = RegisterOffered(notifier, JOB);
    RegisterCenter* center = notifier.GetCenter(JOB);
    const QMetaObject* meta = notifier.metaObject();
    EXPECT_TRUE(meta->method(meta->methodOffset())
                    .invoke(&notifier, Qt::DirectConnection, Q_ARG(REPORTGENERATOR::IRGObject*, object)));
    EXPECT_TRUE(
        meta->method(meta->methodOffset() + 1)
            .invoke(&notifier, Qt::DirectConnection, Q_ARG(REPORTGENERATOR::RegisterCenter*, center)));
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "center 40"}));
}

TEST(SettingsNotifier, QueuedSignalsWaitForTheEventLoop)
{
    const Application application;
    SettingsNotifier notifier;
    SettingsNotifier relay;
    EXPECT_TRUE(QObject::connect(&notifier, SIGNAL(SettingsChanged(REPORTGENERATOR::IRGObject*)), &relay,
                                 SIGNAL(SettingsChanged(REPORTGENERATOR::IRGObject*)), Qt::QueuedConnection));
    EXPECT_TRUE(QObject::connect(&notifier, SIGNAL(SettingsChanged(REPORTGENERATOR::RegisterCenter*)), &relay,
                                 SIGNAL(SettingsChanged(REPORTGENERATOR::RegisterCenter*)),
                                 Qt::QueuedConnection));
    Heard heard(relay);
    RegisterOffered(notifier, TASK);
    RegisterOffered(notifier, JOB);
    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_EQ(heard.signalled, QStringList());
    QCoreApplication::sendPostedEvents(&relay);
    EXPECT_EQ(heard.signalled, Support::Lines({"object 40", "center 40", "object 42", "center 42"}));
}

TEST(SettingsNotifier, SignalsReachAnotherThreadThroughItsEventLoop)
{
    const Application application;
    QThread thread;
    SettingsNotifier notifier;
    SettingsNotifier relay;
    QObject listener;
    relay.moveToThread(&thread);
    listener.moveToThread(&thread);
    IRGObject* object = RegisterOffered(notifier, JOB);
    RegisterCenter* center = notifier.GetCenter(JOB);

    // By text to the relay, by pointer to the listener.
    EXPECT_TRUE(QObject::connect(&notifier, SIGNAL(SettingsChanged(REPORTGENERATOR::IRGObject*)), &relay,
                                 SIGNAL(SettingsChanged(REPORTGENERATOR::IRGObject*))));
    EXPECT_TRUE(QObject::connect(&notifier, SIGNAL(SettingsChanged(REPORTGENERATOR::RegisterCenter*)), &relay,
                                 SIGNAL(SettingsChanged(REPORTGENERATOR::RegisterCenter*))));
    std::vector<IRGObject*> objects;
    std::vector<RegisterCenter*> centers;
    int inThread = 0;
    const auto onObject = [&](IRGObject* changed) {
        objects.push_back(changed);
        inThread += QThread::currentThread() == &thread ? 1 : 0;
    };
    const auto onCenter = [&](RegisterCenter* changed) {
        centers.push_back(changed);
        inThread += QThread::currentThread() == &thread ? 1 : 0;
    };
    for (SettingsNotifier* sender : {&relay, &notifier}) {
        EXPECT_TRUE(QObject::connect(sender, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged),
                                     &listener, onObject));
        EXPECT_TRUE(QObject::connect(sender, qOverload<RegisterCenter*>(&SettingsNotifier::SettingsChanged),
                                     &listener, onCenter));
    }

    notifier.SetSettings(Text("<A></A>"), false);
    EXPECT_TRUE(objects.empty());
    EXPECT_TRUE(centers.empty());

    // The loop ends once what has been posted to it before is delivered.
    QMetaObject::invokeMethod(
        &listener, [&thread] { thread.quit(); }, Qt::QueuedConnection);
    thread.start();
    thread.wait();
    EXPECT_EQ(objects, (std::vector<IRGObject*>{object, object}));
    EXPECT_EQ(centers, (std::vector<RegisterCenter*>{center, center}));
    EXPECT_EQ(inThread, 4);
}
