#include <reportcore/problemlogger.h>

#include <reportgenerator/reportbase/reportexception.h>

#include <utility>

namespace ReportCore {

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
    return !m_findings.empty();
}

void ProblemLogger::Reset(bool /*clearEntries*/)
{
    m_findings.clear();
}

void ProblemLogger::Follow(std::function<qint64()> position)
{
    m_position = std::move(position);
}

void ProblemLogger::Catch(const ReportException& exception)
{
    const bool isKept = !m_findings.empty() && m_findings.back().problem.name == exception.GetErrorName() &&
                        m_findings.back().problem.text == exception.GetErrorText();
    if (!isKept)
        Keep(exception.GetErrorName(), exception.GetErrorText());
}

Findings ProblemLogger::Take()
{
    return std::exchange(m_findings, {});
}

void ProblemLogger::Keep(const QString& name, const QString& text)
{
    m_findings.push_back({{name, text}, {}, m_position ? m_position() : -1});
}

} // namespace ReportCore
