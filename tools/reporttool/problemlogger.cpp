#include <reporttool/problemlogger.h>

#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QXmlStreamReader>

namespace ReportTool {

ProblemLogger::ProblemLogger() : Logger(REPORTGENERATOR::LogLevel::WARNING) {}

void ProblemLogger::Trace(REPORTGENERATOR::LogLevel level, const ReportException& exception, bool /*fatal*/)
{
    if (level <= GetLogLevel())
        Keep(exception.GetErrorName(), exception.GetErrorText());
}

void ProblemLogger::Trace(REPORTGENERATOR::LogLevel level, const QString& text, bool /*fatal*/)
{
    if (level <= GetLogLevel())
        Keep(QStringLiteral("RGException"), text);
}

bool ProblemLogger::HasErrors() const
{
    return !m_problems.empty();
}

void ProblemLogger::Reset(bool /*clearEntries*/)
{
    m_problems.clear();
}

void ProblemLogger::Follow(const QXmlStreamReader* reader)
{
    m_reader = reader;
}

void ProblemLogger::Catch(const ReportException& exception)
{
    const bool isKept = !m_problems.empty() && m_problems.back().name == exception.GetErrorName() &&
                        m_problems.back().text == exception.GetErrorText();
    if (!isKept)
        Keep(exception.GetErrorName(), exception.GetErrorText());
}

void ProblemLogger::Keep(const QString& name, const QString& text)
{
    m_problems.push_back({name, text, m_reader ? m_reader->lineNumber() : 0});
}

} // namespace ReportTool
