#ifndef REPORTCORE_PROBLEMLOGGER_H
#define REPORTCORE_PROBLEMLOGGER_H

#include <reportgenerator/reportbase/logger.h>

#include <QtCore/QString>

#include <functional>
#include <vector>

namespace ReportCore {

/// A warning or an error of the library.
struct LogRecord
{
    QString name;
    QString text;

    /// How far the input had been read; -1 where nobody knows.
    qint64 end = -1;
};

using LogRecords = std::vector<LogRecord>;

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

    const LogRecords& Found() const { return m_records; }

    /// Hands over what has been kept.
    LogRecords Take();

private:
    void Keep(const QString& name, const QString& text);

    LogRecords m_records;
    std::function<qint64()> m_position;
};

} // namespace ReportCore

#endif
