#ifndef REPORTCORE_READING_FAULTLIST_H
#define REPORTCORE_READING_FAULTLIST_H

#include <reportcore/inspect/binaryinspector.h>
#include <reportcore/problem.h>

namespace ReportCore {

/// The faults that an inspector finds, as problems.
class FaultList
{
public:
    FaultList(const QByteArray& bytes, bool isBinaryFile)
        : m_inspector(bytes, isBinaryFile, [this](const Event& event) { Take(event); })
    {
    }

    BinaryInspector& Inspector() { return m_inspector; }

    /// Whether there was one that isn't just something behind the end.
    bool HasFault() const { return m_hasFault; }

    const Problems& Found() const { return m_problems; }

    /// Where the last text of the envelope begins, which is the object name.
    FilePlace PlaceOfName() const { return {0, 0, m_lastText}; }

private:
    /// Lengths stand within lengths: when one is wrong, others follow from it. So only the first fault
    /// counts, and what stands behind the end.
    void Take(const Event& event)
    {
        if (event.kind == Event::Kind::Utf16 && !event.isInReport)
            m_lastText = event.begin;
        const bool isBehind = QLatin1String(event.fault) == QLatin1String(TRAILING_DATA);
        if (!event.IsFaulty() || (m_hasFault && !isBehind))
            return;
        m_hasFault = m_hasFault || !isBehind;
        m_problems.push_back(ProblemOf(event, event.fault, DescribeFault(event)));
    }

    BinaryInspector m_inspector;
    bool m_hasFault = false;
    qint64 m_lastText = -1;
    Problems m_problems;
};

} // namespace ReportCore

#endif
