// Loggers, proxies and converters that are taken away while they are being called. The rest of their work is
// done on memory that is still theirs, which AddressSanitizer watches too.

#include "support/expect.h"
#include "support/plainobject.h"
#include "support/versiontask.h"

#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/ixmlconverter.h>
#include <reportgenerator/reportbase/logger.h>
#include <reportgenerator/reportbase/outofrangeexception.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <memory>
#include <utility>

namespace {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::IXmlConverter;
using REPORTGENERATOR::Logger;
using REPORTGENERATOR::LogLevel;
using Support::Children;
using Support::Conversions;
using Support::CopyingConverter;
using Support::DOWNGRADE;
using Support::FileAtItsEnd;
using Support::g_conversions;
using Support::OLD_FILE;
using Support::PlainObject;
using Support::StubbornObject;
using Support::Text;
using Support::UPGRADE;

/// What became of a logger.
struct Fate
{
    QStringList lines;
    bool isDestroyed = false;
    bool wasDestroyedWhileTracing = false;
};

/// Does something with its object before it notes the line.
class MeddlingLogger : public Logger
{
public:
    MeddlingLogger(Fate& fate, std::function<void()> meddle)
        : Logger(REPORTGENERATOR::INFO), m_fate(fate), m_meddle(std::move(meddle))
    {
    }
    ~MeddlingLogger() override { m_fate.isDestroyed = true; }

    using Logger::Trace;

    void Trace(LogLevel, const QString& text, bool) override
    {
        Fate& fate = m_fate;
        m_meddle();
        fate.wasDestroyedWhileTracing |= fate.isDestroyed;
        if (!fate.isDestroyed)
            m_fate.lines.append(text);
    }
    bool HasErrors() const override { return false; }
    void Reset(bool) override {}

private:
    Fate& m_fate;
    std::function<void()> m_meddle;
};

/// Runs an operation on an object whose logger takes itself away when it is called.
void ExpectLoggerOutlivesItsCall(const char* line, const std::function<void(PlainObject&)>& operation)
{
    SCOPED_TRACE(line);
    Fate fate;
    PlainObject object;
    object.SetLogger(std::make_shared<MeddlingLogger>(fate, [&] { object.ResetLogger(); }));
    operation(object);
    EXPECT_EQ(object.GetLogger(), nullptr);
    EXPECT_EQ(fate.lines, QStringList(Text(line)));
    EXPECT_FALSE(fate.wasDestroyedWhileTracing);
    EXPECT_TRUE(fate.isDestroyed);
}

// --- Converters. What they need is here, since the proxy doesn't destroy fields.

std::weak_ptr<REPORTGENERATOR::VersionConverterProxy> g_proxy;
bool g_throws = false;
int g_depth = 0;

/// Assigns the whole object, with what the base holds.
class AssigningConverter : public IXmlConverter
{
public:
    bool Upgrade(const IRGObject* from, IRGObject* to) override
    {
        *dynamic_cast<PlainObject*>(to) = *dynamic_cast<const PlainObject*>(from);
        EXPECT_FALSE(g_proxy.expired());
        if (g_throws)
            throw RGException(Text("assigned"));
        return Downgrade(from, to);
    }
    bool Downgrade(const IRGObject* from, IRGObject* to) override
    {
        g_conversions.push_back({DOWNGRADE, from, to});
        return true;
    }
};

/// Is asked once more from inside, puts another converter in its own place and goes on.
class ReplacingConverter : public IXmlConverter
{
public:
    bool Upgrade(const IRGObject* from, IRGObject* to) override
    {
        IXmlConverter& proxy = *g_proxy.lock();
        if (++g_depth < 3)
            EXPECT_TRUE(proxy.Upgrade(from, to));
        else
            g_proxy.lock()->InjectXmlConverter(std::make_unique<CopyingConverter>());
        return Downgrade(from, to);
    }
    bool Downgrade(const IRGObject* from, IRGObject* to) override
    {
        g_conversions.push_back({DOWNGRADE, from, to});
        return true;
    }
};

/// The new task has the proxy, and nobody else.
class ProxyOfOneOwner : public Support::VersionConverterProxy
{
public:
    ProxyOfOneOwner()
    {
        g_proxy = proxy;
        g_throws = false;
        g_depth = 0;
        newTask.InjectVersionConverter(proxy);
    }

    bool LoadNewTask()
    {
        proxy.reset();
        FileAtItsEnd file(OLD_FILE);
        return newTask.LoadXml(file.Get());
    }
};

} // namespace

// --- Loggers -----------------------------------------------------------------------------------------------

TEST(LifetimeOfALogger, LastsUntilTheCallHasReturned)
{
    ExpectLoggerOutlivesItsCall(
        "text", [](PlainObject& object) { object.Trace(REPORTGENERATOR::INFO, Text("text")); });
    ExpectLoggerOutlivesItsCall("OutOfRangeException: text", [](PlainObject& object) {
        object.Trace(REPORTGENERATOR::WARNING, OutOfRangeException(Text("text")));
    });
    ExpectLoggerOutlivesItsCall("RGException: text", [](PlainObject& object) {
        RGException exception(Text("text"));
        EXPECT_NO_RG_THROW(object.TraceOrThrow(REPORTGENERATOR::ERROR, exception, false, true));
    });
    ExpectLoggerOutlivesItsCall("OutOfRangeException: text", [](PlainObject& object) {
        OutOfRangeException exception(Text("text"));
        EXPECT_RG_THROW(object.TraceOrThrow(REPORTGENERATOR::ERROR, exception, true, false),
                        "OutOfRangeException", "text");
    });
    ExpectLoggerOutlivesItsCall("AnyType: Removing version converter.",
                                [](PlainObject& object) { object.InjectVersionConverter(nullptr); });
}

// --- The proxy ---------------------------------------------------------------------------------------------

TEST_F(ProxyOfOneOwner, LastsWhileTheConverterAssignsTheWholeObject)
{
    Inject(std::make_unique<AssigningConverter>());
    EXPECT_TRUE(LoadNewTask());
    EXPECT_EQ(newTask.children, Children({{Text("A"), Text("1")}}));
    EXPECT_EQ(g_conversions, Conversions({{DOWNGRADE, &oldTask, &newTask}}));
    EXPECT_TRUE(g_proxy.expired());
}

TEST_F(ProxyOfOneOwner, LastsWhenTheConverterThrowsAfterwards)
{
    g_throws = true;
    Inject(std::make_unique<AssigningConverter>());
    bool result = false;
    EXPECT_NO_RG_THROW(result = LoadNewTask());
    EXPECT_TRUE(result);
    EXPECT_TRUE(g_proxy.expired());
}

TEST_F(ProxyOfOneOwner, LastsWhileTheLoggerTakesItAway)
{
    Fate fate;
    bool isTaken = false;
    newTask.SetLogger(std::make_shared<MeddlingLogger>(fate, [&] {
        if (std::exchange(isTaken, true))
            return;
        newTask.InjectVersionConverter(nullptr);
        EXPECT_FALSE(g_proxy.expired());
    }));
    Inject(std::make_unique<CopyingConverter>());
    EXPECT_TRUE(LoadNewTask());
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldTask, &newTask}}));
    EXPECT_TRUE(g_proxy.expired());
    // The logger notes its end in what lives as long as this test.
    newTask.ResetLogger();
    EXPECT_TRUE(fate.isDestroyed);
}

TEST_F(ProxyOfOneOwner, LastsWhileARegisteredObjectTakesItAway)
{
    StubbornObject first;
    proxy->RegisterRootClass(Text("Job"), Text("1.0"), &first);
    first.onLoad = [&] {
        newTask.InjectVersionConverter(nullptr);
        EXPECT_FALSE(g_proxy.expired());
    };
    Inject(std::make_unique<CopyingConverter>());
    proxy.reset();
    FileAtItsEnd file("<Job Version=\"1.0\"><Task Version=\"1.0\"/></Job>");
    EXPECT_TRUE(newTask.LoadXml(file.Get()));
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldTask, &newTask}}));
    EXPECT_TRUE(g_proxy.expired());
}

// --- The injected converter --------------------------------------------------------------------------------

TEST_F(ProxyOfOneOwner, KeepsAConverterThatIsReplacedWhileItRuns)
{
    Inject(std::make_unique<ReplacingConverter>());
    IXmlConverter& converter = *proxy;
    EXPECT_TRUE(converter.Upgrade(&oldTask, &newTask));
    const Support::Conversion itself = {DOWNGRADE, &oldTask, &newTask};
    EXPECT_EQ(g_conversions, Conversions({itself, itself, itself}));

    g_conversions.clear();
    EXPECT_TRUE(converter.Upgrade(&oldTask, &newTask));
    EXPECT_EQ(g_conversions, Conversions({{UPGRADE, &oldTask, &newTask}}));
}
