#ifndef REPORTGENERATOR_LOGGER_H
#define REPORTGENERATOR_LOGGER_H

#include <reportgenerator/reportbase/reportbase_export.h>

#include <QtCore/QString>

// A platform header (wingdi.h) defines ERROR as a macro, which would take the name of the level away.
#ifdef ERROR
#    undef ERROR
#endif

class ReportException;

namespace REPORTGENERATOR {

/// Severity of a log message; a lower number is more severe.
enum LogLevel : int
{
    ERROR = 0,
    WARNING = 1,
    INFO = 2
};

/// Where report objects send their messages.
///
/// Derive from it to write to a file or a window; `ListLogger` keeps the lines in memory. A logger is shared
/// among objects through `std::shared_ptr` and never copied. It is called from the thread that uses the
/// object; one that is shared by objects on several threads must do its own locking.
class REPORTBASE_EXPORT Logger
{
public:
    /// `level` is the least severe level that the logger is interested in.
    explicit Logger(LogLevel level);

    // Other programs call the virtual operations by their place in the virtual table. MSVC enters overloads
    // in reverse.

#ifndef _MSC_VER
    /// Traces "name: text" of the exception through the other overload, with the same level and flag.
    virtual void Trace(LogLevel level, const ReportException& exception, bool fatal);

    /// Takes one message; `fatal` says that the operation ends with it.
    virtual void Trace(LogLevel level, const QString& text, bool fatal) = 0;
#else
    virtual void Trace(LogLevel level, const QString& text, bool fatal) = 0;
    virtual void Trace(LogLevel level, const ReportException& exception, bool fatal);
#endif

    /// Whether a message of the level ERROR has been taken since the last `Reset`.
    virtual bool HasErrors() const = 0;

    /// Forgets the errors and, when `clearEntries` is true, the messages too.
    virtual void Reset(bool clearEntries) = 0;

    virtual ~Logger();

protected:
    /// The level given at construction.
    LogLevel GetLogLevel() const;

    /// The local date and time as "dd.MM.yyyy hh:mm:ss.zzz", in digits 0 to 9 whatever the locale.
    QString GetNowString() const;

private:
    Logger(const Logger& other) = delete;
    Logger& operator=(const Logger& other) = delete;

    LogLevel m_logLevel;
};

} // namespace REPORTGENERATOR

#endif
