#include <reportgenerator/reportbase/logger.h>

#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QDateTime>
#include <QtCore/QLocale>

namespace REPORTGENERATOR {

Logger::Logger(LogLevel level) : m_logLevel(level) {}

Logger::~Logger() = default;

void Logger::Trace(LogLevel level, const ReportException& exception, bool fatal)
{
    Trace(level, messages::NameAndText(exception), fatal);
}

LogLevel Logger::GetLogLevel() const
{
    return m_logLevel;
}

QString Logger::GetNowString() const
{
    return QLocale::c().toString(QDateTime::currentDateTime(), QStringLiteral("dd.MM.yyyy hh:mm:ss.zzz"));
}

} // namespace REPORTGENERATOR
