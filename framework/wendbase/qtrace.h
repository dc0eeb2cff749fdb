#ifndef WENDBASE_QTRACE_H
#define WENDBASE_QTRACE_H

#include <wendbase/wendbase_export.h>

#include <QtCore/QString>

#include <functional>

/// Takes a trace: the text, the source that it comes from and the line there.
using TraceSink = std::function<void(const QString& text, const QString& source, int line)>;

/// Hands a trace to the sink of this process. The caller asks `ErrorHandler` first whether tracing is on.
///
/// Without a sink of its own the process writes traces to the logging category "wendbase.trace".
WENDBASE_EXPORT void _Q_Trace(const QString& text, const char* source, int line); // NOLINT: the system's name

/// Replaces the sink; an empty one restores the logging category. May be called from any thread; a sink is
/// called in the thread that traces, by several threads at once if need be.
WENDBASE_EXPORT void SetTraceSink(TraceSink sink);

#endif
