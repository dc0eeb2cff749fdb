#include <wendbase/qtrace.h>

#include <QtCore/QLoggingCategory>

#include <mutex>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(TRACE_CATEGORY, "wendbase.trace")

struct SharedSink
{
    std::mutex mutex;
    TraceSink sink;
};

SharedSink& Sink()
{
    static SharedSink sink;
    return sink;
}

TraceSink CurrentSink()
{
    const std::lock_guard<std::mutex> lock(Sink().mutex);
    return Sink().sink;
}

} // namespace

void _Q_Trace(const QString& text, const char* source, int line) // NOLINT: the system's name
{
    const QString sourceName = QString::fromUtf8(source);
    // Called outside the lock, so that a sink may trace or replace itself.
    if (const TraceSink sink = CurrentSink())
        sink(text, sourceName, line);
    else
        qCDebug(TRACE_CATEGORY).noquote().nospace() << sourceName << ':' << line << ": " << text;
}

void SetTraceSink(TraceSink sink)
{
    const std::lock_guard<std::mutex> lock(Sink().mutex);
    Sink().sink = std::move(sink);
}
