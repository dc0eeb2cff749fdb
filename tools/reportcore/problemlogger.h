#ifndef REPORTCORE_PROBLEMLOGGER_H
#define REPORTCORE_PROBLEMLOGGER_H

#include <reportcore/inspect/sourcemap.h>

#include <reportgenerator/reportbase/logger.h>

#include <QtCore/QString>

#include <functional>

namespace ReportCore {

/// Keeps the warnings and errors of the library, each with how far its input had been read.
class ProblemLogger : public REPORTGENERATOR::Logger
{
public:
    ProblemLogger();

    void Trace(REPORTGENERATOR::LogLevel level, const ReportException& exception, bool fatal) override;
    void Trace(REPORTGENERATOR::LogLevel level, const QString& text, bool fatal) override;
    bool HasErrors() const override;
    void Reset(bool clearEntries) override;

    /// What tells from now on how far the input has been read; nothing for an empty function.
    void Follow(std::function<qint64()> position);

    /// Keeps an exception that has arrived, unless it is the one that was logged last.
    void Catch(const ReportException& exception);

    /// Hands over what has been kept.
    Findings Take();

private:
    void Keep(const QString& name, const QString& text);

    Findings m_findings;
    std::function<qint64()> m_position;
};

} // namespace ReportCore

#endif
