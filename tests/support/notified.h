#ifndef TESTS_SUPPORT_NOTIFIED_H
#define TESTS_SUPPORT_NOTIFIED_H

// What tests of the SettingsNotifier need: objects to register, and what is heard and traced.
//
//     SettingsNotifier notifier;
//     Heard heard(notifier);
//     Offered* object = RegisterOffered(notifier, JOB);
//     object->takes = false;
//     ExpectInvalid(notifier, QStringLiteral("<A></A>"));
//     EXPECT_EQ(heard.signalled, QStringList());

#include "support/expect.h"
#include "support/plainobject.h"

#include <reportgenerator/reportbase/invalidxmlexception.h>
#include <reportgenerator/reportbase/registercenter.h>
#include <reportgenerator/reportbase/settingsnotifier.h>
#include <wendbase/errorhandler.h>
#include <wendbase/qtrace.h>

#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <typeinfo>
#include <vector>

namespace Support {

constexpr auto JOB = static_cast<REPORTGENERATOR::ObjectTypes>(40);
constexpr auto JOB_HEADER = static_cast<REPORTGENERATOR::ObjectTypes>(41);
constexpr auto TASK = static_cast<REPORTGENERATOR::ObjectTypes>(42);

/// Makes the protected operation callable and notes its calls.
class OpenNotifier : public REPORTGENERATOR::SettingsNotifier
{
public:
    void UnRegister(long long id) override
    {
        unregistered.push_back(id);
        REPORTGENERATOR::SettingsNotifier::UnRegister(id);
    }

    std::vector<long long> unregistered;
};

/// A settings object that notes what it is offered and does as it is told.
class Offered : public PlainObject
{
public:
    explicit Offered(REPORTGENERATOR::ObjectTypes type, bool* deleted = nullptr)
        : PlainObject(type), m_deleted(deleted)
    {
    }
    ~Offered() override
    {
        if (m_deleted != nullptr)
            *m_deleted = true;
    }

    bool SetXmlString(const QString& xml, bool checkRoot) override
    {
        fragments << xml;
        flags.push_back(checkRoot);
        resetsBefore = calls.reset;
        if (onOffer)
            onOffer();
        return takes;
    }

    void Reset() override
    {
        PlainObject::Reset();
        if (onReset)
            onReset();
    }

    bool HasData() const override
    {
        if (onHasData)
            onHasData();
        return PlainObject::HasData();
    }

    bool takes = true;
    std::function<void()> onReset;
    std::function<void()> onOffer;
    std::function<void()> onHasData;

    QStringList fragments;
    std::vector<bool> flags;
    int resetsBefore = 0;

private:
    bool* m_deleted;
};

/// A class of the library under a number of its own, without which only one fits into a notifier.
template <class T>
class Numbered : public T
{
public:
    explicit Numbered(long long id) { T::SetObjectId(id); }
};

inline REPORTGENERATOR::RegisterCenter* NewCenter(REPORTGENERATOR::IRGObject* object)
{
    auto* center = new REPORTGENERATOR::RegisterCenter;
    center->RegisterInterface(object);
    return center;
}

template <class Object>
Object* Register(REPORTGENERATOR::SettingsNotifier& notifier, Object* object)
{
    notifier.NotifyOnChanged(NewCenter(object));
    return object;
}

inline Offered* RegisterOffered(REPORTGENERATOR::SettingsNotifier& notifier,
                                REPORTGENERATOR::ObjectTypes type)
{
    return Register(notifier, new Offered(type));
}

/// Notes both signals: "object 41" and "center 41".
class Heard
{
public:
    explicit Heard(REPORTGENERATOR::SettingsNotifier& notifier)
    {
        QObject::connect(
            &notifier,
            qOverload<REPORTGENERATOR::IRGObject*>(&REPORTGENERATOR::SettingsNotifier::SettingsChanged),
            [this](REPORTGENERATOR::IRGObject* object) {
                signalled << Text("object ") + QString::number(object->GetObjectId());
            });
        QObject::connect(
            &notifier,
            qOverload<REPORTGENERATOR::RegisterCenter*>(&REPORTGENERATOR::SettingsNotifier::SettingsChanged),
            [this](REPORTGENERATOR::RegisterCenter* center) {
                signalled << Text("center ") + QString::number(center->GetInterfaceId());
            });
    }

    QStringList signalled;
};

/// Collects traces for the length of a test, and gives flag word and sink back afterwards.
class Traces
{
public:
    explicit Traces(unsigned int flags) : m_flags(ErrorHandler::Instance().GetFlags())
    {
        ErrorHandler::Instance().SetFlags(flags);
        SetTraceSink([this](const QString& text, const QString& source, int line) {
            entries << text + Text(" | ") + source + Text(" | ") + QString::number(line);
        });
    }
    ~Traces()
    {
        SetTraceSink(TraceSink());
        ErrorHandler::Instance().SetFlags(m_flags);
    }
    Traces(const Traces&) = delete;
    Traces& operator=(const Traces&) = delete;

    QStringList entries;

private:
    unsigned int m_flags;
};

/// The application whose event loops deliver queued signals.
class Application
{
private:
    int m_argumentCount = 1;
    char m_name[6] = "tests";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application{m_argumentCount, m_arguments};
};

template <class Exception>
void ExpectThrows(const std::function<void()>& run, const char* name, const char* text)
{
    try {
        run();
        ADD_FAILURE() << "nothing thrown";
    } catch (const ReportException& exception) {
        EXPECT_TRUE(typeid(exception) == typeid(Exception)) << typeid(exception).name();
        EXPECT_ERROR(exception, name, text);
    }
}

inline void ExpectInvalid(REPORTGENERATOR::SettingsNotifier& notifier, const QString& xml, bool flag = false)
{
    ExpectThrows<InvalidXmlException>([&] { notifier.SetSettings(xml, flag); }, "InvalidXmlException",
                                      "Invalid XML-Fragment!");
}

} // namespace Support

#endif
