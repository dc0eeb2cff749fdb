#include <reportgenerator/reportbase/listlogger.h>

#include <reportgenerator/reportbase/messages_p.h>

namespace REPORTGENERATOR {

ListLogger::ListLogger(LogLevel level) : Logger(level) {}

ListLogger::~ListLogger() = default;

void ListLogger::Trace(LogLevel level, const QString& text, bool fatal)
{
    if (level > GetLogLevel())
        return;
    if (level == LogLevel::ERROR)
        m_hasErrors = true;
    m_entries.append(messages::LogLine(GetNowString(), fatal, level, text));
}

bool ListLogger::HasErrors() const
{
    return m_hasErrors;
}

void ListLogger::Reset(bool clearEntries)
{
    m_hasErrors = false;
    if (clearEntries)
        m_entries.clear();
}

QStringList& ListLogger::GetLogEntryList()
{
    return m_entries;
}

} // namespace REPORTGENERATOR
