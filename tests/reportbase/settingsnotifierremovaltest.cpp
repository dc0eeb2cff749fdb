// Registered objects, their loggers and receivers of signals may unregister any object or delete the notifier
// while settings are distributed: what is being called stays until the call has returned.

#include "support/expect.h"
#include "support/notified.h"

#include <gtest/gtest.h>

#include <QtCore/QObject>
#include <QtCore/QString>

#include <functional>
#include <memory>

namespace {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::RegisterCenter;
using REPORTGENERATOR::SettingsNotifier;
using Support::Heard;
using Support::JOB;
using Support::JOB_HEADER;
using Support::Offered;
using Support::OpenNotifier;
using Support::Register;
using Support::TASK;
using Support::Text;

/// Calls back with each message.
class CallingLogger : public REPORTGENERATOR::Logger
{
public:
    explicit CallingLogger(std::function<void()> call)
        : Logger(REPORTGENERATOR::INFO), m_call(std::move(call))
    {
    }

    using Logger::Trace;
    void Trace(REPORTGENERATOR::LogLevel, const QString&, bool) override { m_call(); }
    bool HasErrors() const override { return false; }
    void Reset(bool) override {}

private:
    std::function<void()> m_call;
};

/// Reads by the base's own way, so that its logger hears of it.
class Reading : public Offered
{
public:
    using Offered::Offered;

    bool SetXmlString(const QString& xml, bool checkRoot) override
    {
        Offered::SetXmlString(xml, checkRoot);
        return IRGObject::SetXmlString(xml, checkRoot);
    }
};

/// Three objects in a notifier.
struct Registry
{
    bool deleted[3] = {};
    OpenNotifier* notifier = new OpenNotifier;
    Heard heard{*notifier};
    Reading* first = Register(*notifier, new Reading(JOB, &deleted[0]));
    Offered* second = Register(*notifier, new Offered(JOB_HEADER, &deleted[1]));
    Offered* third = Register(*notifier, new Offered(TASK, &deleted[2]));

    void Distribute() const { notifier->SetSettings(Text("<Job></Job>"), false); }
};

/// Where the application's code is called for the first object; it runs `action` there.
struct Moment
{
    const char* name;
    std::function<void(Registry&, const std::function<void()>& action)> prepare;
    bool isOffered; ///< by then
};

std::vector<Moment> Moments()
{
    return {
        {"Reset", [](Registry& registry, const auto& action) { registry.first->onReset = action; }, false},
        {"SetXmlString", [](Registry& registry, const auto& action) { registry.first->onOffer = action; },
         true},
        {"HasData", [](Registry& registry, const auto& action) { registry.first->onHasData = action; }, true},
        {"logger",
         [](Registry& registry, const auto& action) {
             registry.first->SetLogger(std::make_shared<CallingLogger>(action));
         },
         true},
        {"signal with the object",
         [](Registry& registry, const auto& action) {
             QObject::connect(registry.notifier, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged),
                              [action](IRGObject* object) {
                                  if (object->GetObjectId() == JOB)
                                      action();
                              });
         },
         true},
        {"signal with the center",
         [](Registry& registry, const auto& action) {
             QObject::connect(registry.notifier,
                              qOverload<RegisterCenter*>(&SettingsNotifier::SettingsChanged),
                              [action](RegisterCenter* center) {
                                  if (center->GetInterfaceId() == JOB)
                                      action();
                              });
         },
         true},
    };
}

TEST(SettingsNotifierRemoval, AnObjectThatIsUnregisteredWhileItIsCalledGoesAfterwards)
{
    for (const Moment& moment : Moments()) {
        SCOPED_TRACE(moment.name);
        Registry registry;
        int calls = 0;
        moment.prepare(registry, [&] {
            ++calls;
            registry.notifier->UnRegister(JOB);
            EXPECT_FALSE(registry.deleted[0]);
            EXPECT_EQ(registry.notifier->GetCenter(JOB), nullptr);
        });
        EXPECT_NO_RG_THROW(registry.Distribute());
        EXPECT_GT(calls, 0);
        EXPECT_TRUE(registry.deleted[0]);
        EXPECT_EQ(registry.second->fragments.size(), 1);
        EXPECT_EQ(registry.third->fragments.size(), 1);
        delete registry.notifier;
    }
}

TEST(SettingsNotifierRemoval, AnotherObjectThatIsUnregisteredIsLeftOut)
{
    for (const Moment& moment : Moments()) {
        SCOPED_TRACE(moment.name);
        Registry registry;
        moment.prepare(registry, [&] { registry.notifier->UnRegister(JOB_HEADER); });
        EXPECT_NO_RG_THROW(registry.Distribute());
        EXPECT_TRUE(registry.deleted[1]);
        EXPECT_FALSE(registry.deleted[0]);
        EXPECT_EQ(registry.third->fragments.size(), 1);
        EXPECT_EQ(registry.heard.signalled,
                  Support::Lines({"object 40", "center 40", "object 42", "center 42"}));
        delete registry.notifier;
    }
}

TEST(SettingsNotifierRemoval, ADeletedNotifierEndsTheDistribution)
{
    for (const Moment& moment : Moments()) {
        SCOPED_TRACE(moment.name);
        Registry registry;
        bool isDeleted = false;
        moment.prepare(registry, [&] {
            if (isDeleted)
                return;
            isDeleted = true;
            delete registry.notifier;
            for (const bool deleted : registry.deleted)
                EXPECT_FALSE(deleted);
        });
        if (moment.isOffered)
            EXPECT_NO_RG_THROW(registry.Distribute());
        else
            Support::ExpectThrows<InvalidXmlException>([&] { registry.Distribute(); }, "InvalidXmlException",
                                                       "Invalid XML-Fragment!");
        EXPECT_TRUE(isDeleted);
        for (const bool deleted : registry.deleted)
            EXPECT_TRUE(deleted);
    }
}

TEST(SettingsNotifierRemoval, WhatAnInnerDistributionTakesAwayStaysForTheOuterOne)
{
    Registry registry;
    bool isInner = false;
    registry.first->onOffer = [&] {
        if (isInner)
            return;
        isInner = true;
        registry.notifier->SetSettings(Text("<Inner></Inner>"), false);
        EXPECT_EQ(registry.notifier->GetCenter(JOB), nullptr);
        EXPECT_FALSE(registry.deleted[0]);
    };
    registry.second->onOffer = [&] { registry.notifier->UnRegister(JOB); };
    EXPECT_NO_RG_THROW(registry.Distribute());
    EXPECT_TRUE(isInner);
    EXPECT_TRUE(registry.deleted[0]);
    delete registry.notifier;
}

TEST(SettingsNotifierRemoval, EveryReceiverOfASignalFindsTheObject)
{
    Registry registry;
    QObject::connect(registry.notifier, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged),
                     [&](IRGObject*) { registry.notifier->UnRegister(JOB); });
    int found = 0;
    QObject::connect(registry.notifier, qOverload<IRGObject*>(&SettingsNotifier::SettingsChanged),
                     [&](IRGObject* object) { found += object->GetObjectId() == JOB ? 1 : 0; });
    EXPECT_NO_RG_THROW(registry.Distribute());
    EXPECT_EQ(found, 1);
    delete registry.notifier;
}

TEST(SettingsNotifierRemoval, AnExceptionThatPassesOutDeletesWhatWasUnregistered)
{
    Registry registry;
    registry.first->onOffer = [&] {
        registry.notifier->UnRegister(JOB);
        throw 7;
    };
    EXPECT_THROW(registry.Distribute(), int);
    EXPECT_TRUE(registry.deleted[0]);
    registry.notifier->UnRegister(TASK);
    EXPECT_TRUE(registry.deleted[2]) << "at once, when nothing is distributed";
    delete registry.notifier;
}

TEST(SettingsNotifierRemoval, WithinACallOfAnotherNotifierIsThatOfItsOwnNotifier)
{
    for (const bool isDeleted : {false, true}) {
        Registry outer;
        Registry inner;
        inner.first->onOffer = [&] {
            if (isDeleted)
                delete outer.notifier;
            else
                outer.notifier->UnRegister(JOB);
        };
        outer.first->onOffer = [&] {
            EXPECT_NO_RG_THROW(inner.Distribute());
            EXPECT_FALSE(outer.deleted[0]) << "it is being called";
        };
        EXPECT_NO_RG_THROW(outer.Distribute());
        EXPECT_TRUE(outer.deleted[0]);
        EXPECT_EQ(outer.deleted[2], isDeleted);
        EXPECT_EQ(inner.third->fragments.size(), 1);
        delete inner.notifier;
        if (!isDeleted)
            delete outer.notifier;
    }
}

} // namespace
