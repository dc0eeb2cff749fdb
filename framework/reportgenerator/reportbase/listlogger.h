#ifndef REPORTGENERATOR_LISTLOGGER_H
#define REPORTGENERATOR_LISTLOGGER_H

#include <reportgenerator/reportbase/logger.h>

#include <QtCore/QStringList>

namespace REPORTGENERATOR {

/// A logger that keeps its lines in a list.
///
/// A line reads "dd.MM.yyyy hh:mm:ss.zzz - LEVEL: text", with "FATAL " in front of the level for a fatal
/// message. The list is never trimmed. It has no lock: use it from one thread at a time.
///
///     auto logger = std::make_shared<REPORTGENERATOR::ListLogger>(REPORTGENERATOR::WARNING);
///     area.SetLogger(logger);
///     area.SetXmlString(xml, true);
///     for (const QString& line : logger->GetLogEntryList())
///         show(line);
class REPORTBASE_EXPORT ListLogger : public Logger
{
public:
    /// Keeps messages of `level` and of the more severe ones.
    explicit ListLogger(LogLevel level);

    using Logger::Trace;

    /// Appends a line unless `level` is less severe than the logger's own; ERROR sets the error flag.
    void Trace(LogLevel level, const QString& text, bool fatal) override;

    /// Whether a line of the level ERROR has been kept since the last `Reset`.
    bool HasErrors() const override;

    /// Clears the error flag and, when `clearEntries` is true, the lines too.
    void Reset(bool clearEntries) override;

    ~ListLogger() override;

    /// The lines themselves, oldest first; the caller may edit them.
    virtual QStringList& GetLogEntryList();

private:
    ListLogger(const ListLogger& other) = delete;
    ListLogger& operator=(const ListLogger& other) = delete;

    QStringList m_entries;
    bool m_hasErrors = false;
};

} // namespace REPORTGENERATOR

#endif
