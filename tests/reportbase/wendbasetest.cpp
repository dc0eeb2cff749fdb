#include "support/expect.h"

#include <wendbase/errorhandler.h>
#include <wendbase/qtrace.h>

#include <gtest/gtest.h>

#include <QtCore/QMessageLogContext>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QtGlobal>

#include <atomic>
#include <thread>
#include <vector>

namespace {

// Asked before any test has set it.
const unsigned int FLAGS_AT_START = ErrorHandler::Instance().GetFlags();

using Support::Lines;
using Support::Text;

/// Gives flag word and sink back at the end of a test.
class Wendbase : public testing::Test
{
protected:
    Wendbase() : m_flags(ErrorHandler::Instance().GetFlags()) {}
    ~Wendbase() override
    {
        SetTraceSink(TraceSink());
        ErrorHandler::Instance().SetFlags(m_flags);
    }

    /// Notes what reaches the sink under a name.
    TraceSink Noting(const char* name)
    {
        return [this, name](const QString& text, const QString& source, int line) {
            m_traces << Text(name) + Text(": ") + text + Text(" | ") + source + Text(" | ") +
                            QString::number(line);
        };
    }

    QStringList m_traces;

private:
    unsigned int m_flags;
};

/// Collects Qt's messages of the category "wendbase.trace" while it lives.
class TraceCategory
{
public:
    TraceCategory() : m_before(qInstallMessageHandler(&TraceCategory::Take)) { s_messages.clear(); }
    ~TraceCategory() { qInstallMessageHandler(m_before); }
    TraceCategory(const TraceCategory&) = delete;
    TraceCategory& operator=(const TraceCategory&) = delete;

    static QStringList Messages() { return s_messages; }

private:
    static void Take(QtMsgType, const QMessageLogContext& context, const QString& message)
    {
        if (qstrcmp(context.category, "wendbase.trace") == 0)
            s_messages << message;
    }

    static QStringList s_messages;

    QtMessageHandler m_before;
};

QStringList TraceCategory::s_messages;

} // namespace

TEST_F(Wendbase, ErrorHandlerIsOnePerProcess)
{
    EXPECT_EQ(&ErrorHandler::Instance(), &ErrorHandler::Instance());
    EXPECT_EQ(static_cast<unsigned int>(ErrorHandler::TRACE), 0x20U);
}

TEST_F(Wendbase, FlagWordIsZeroAtStart)
{
    EXPECT_EQ(FLAGS_AT_START, 0U);
}

TEST_F(Wendbase, FlagWordKeepsEveryBit)
{
    for (const unsigned int flags : {0x20U, 0U, 1U, 0x80000000U, 0xFFFFFFFFU}) {
        ErrorHandler::Instance().SetFlags(flags);
        EXPECT_EQ(ErrorHandler::Instance().GetFlags(), flags);
    }
}

TEST_F(Wendbase, FlagWordIsSeenByOtherThreads)
{
    ErrorHandler::Instance().SetFlags(0x21U);
    unsigned int seen = 0;
    std::thread([&seen] { seen = ErrorHandler::Instance().GetFlags(); }).join();
    EXPECT_EQ(seen, 0x21U);
}

TEST_F(Wendbase, SinkTakesTextSourceAndLine)
{
    SetTraceSink(Noting("sink"));
    _Q_Trace(Text("Grüße %1"), "folder/source", 110);
    _Q_Trace(QString(), "", -1);
    EXPECT_EQ(m_traces, Lines({"sink: Grüße %1 | folder/source | 110", "sink:  |  | -1"}));
}

TEST_F(Wendbase, SinkIsCalledWhateverTheFlags)
{
    SetTraceSink(Noting("sink"));
    ErrorHandler::Instance().SetFlags(0);
    _Q_Trace(Text("text"), "source", 1);
    EXPECT_EQ(m_traces.size(), 1) << "it is the caller who asks for the flag";
}

TEST_F(Wendbase, NewSinkReplacesTheOld)
{
    SetTraceSink(Noting("first"));
    SetTraceSink(Noting("second"));
    _Q_Trace(Text("text"), "source", 1);
    EXPECT_EQ(m_traces, Lines({"second: text | source | 1"}));
}

TEST_F(Wendbase, SinkMayReplaceItself)
{
    SetTraceSink([this](const QString& text, const QString&, int) {
        m_traces << text;
        SetTraceSink(Noting("next"));
    });
    _Q_Trace(Text("one"), "source", 1);
    _Q_Trace(Text("two"), "source", 2);
    EXPECT_EQ(m_traces, Lines({"one", "next: two | source | 2"}));
}

TEST_F(Wendbase, SinkIsCalledInTheThreadThatTraces)
{
    std::thread::id called;
    SetTraceSink([&called](const QString&, const QString&, int) { called = std::this_thread::get_id(); });
    std::thread tracing([] { _Q_Trace(Text("text"), "source", 1); });
    const std::thread::id expected = tracing.get_id();
    tracing.join();
    EXPECT_EQ(called, expected);
}

TEST_F(Wendbase, WithoutASinkTracesGoToTheLoggingCategory)
{
    const TraceCategory category;
    SetTraceSink(Noting("sink"));
    _Q_Trace(Text("to the sink"), "source", 1);
    EXPECT_EQ(TraceCategory::Messages(), QStringList());

    SetTraceSink(TraceSink());
    _Q_Trace(Text("Grüße %1"), "folder/source", 110);
    ASSERT_EQ(TraceCategory::Messages().size(), 1);
    EXPECT_TEXT(TraceCategory::Messages().constFirst(), "folder/source:110: Grüße %1");
    EXPECT_EQ(m_traces.size(), 1);
}

TEST_F(Wendbase, SeveralThreadsMayTraceAndReplaceTheSinkAtOnce)
{
    constexpr int THREADS = 4;
    constexpr int TRACES = 500;
    std::atomic<int> taken{0};
    const auto take = [&taken](const QString&, const QString&, int) { ++taken; };
    SetTraceSink(take);
    std::vector<std::thread> threads;
    threads.reserve(THREADS);
    for (int i = 0; i < THREADS; ++i) {
        threads.emplace_back([take] {
            for (int trace = 0; trace < TRACES; ++trace) {
                SetTraceSink(take);
                _Q_Trace(Text("text"), "source", trace);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(taken.load(), THREADS * TRACES);
}
