#ifndef REPORTTOOL_PROBLEMLOGGER_H
#define REPORTTOOL_PROBLEMLOGGER_H

#include <reporttool/problem.h>

#include <reportgenerator/reportbase/logger.h>

class QXmlStreamReader;

namespace ReportTool {

/// Keeps the warnings and errors of the library as problems, each with the line that an XML reader is in.
class ProblemLogger : public REPORTGENERATOR::Logger
{
public:
    ProblemLogger();

    void Trace(REPORTGENERATOR::LogLevel level, const ReportException& exception, bool fatal) override;
    void Trace(REPORTGENERATOR::LogLevel level, const QString& text, bool fatal) override;
    bool HasErrors() const override;
    void Reset(bool clearEntries) override;

    /// The reader whose line counts from now on; none for a null pointer.
    void Follow(const QXmlStreamReader* reader);

    /// Keeps an exception that has arrived, unless it is the one that was logged last.
    void Catch(const ReportException& exception);

    const Problems& Found() const { return m_problems; }

private:
    void Keep(const QString& name, const QString& text);

    Problems m_problems;
    const QXmlStreamReader* m_reader = nullptr;
};

} // namespace ReportTool

#endif
