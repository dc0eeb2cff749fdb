#ifndef REPORTCORE_PROBLEMLOGGER_H
#define REPORTCORE_PROBLEMLOGGER_H

#include <reportgenerator/reportbase/logger.h>

#include <QtCore/QString>

#include <functional>
#include <vector>

namespace ReportCore {

/// A warning or an error of the library.
struct Remark
{
    QString name;
    QString text;

    /// How far the input had been read; -1 where nobody knows.
    qint64 end = -1;
};

using Remarks = std::vector<Remark>;

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

    const Remarks& Found() const { return m_remarks; }

    /// Hands over what has been kept.
    Remarks Take();

private:
    void Keep(const QString& name, const QString& text);

    Remarks m_remarks;
    std::function<qint64()> m_position;
};

} // namespace ReportCore

#endif
