#ifndef REPORTCORE_READING_FAULTLIST_H
#define REPORTCORE_READING_FAULTLIST_H

#include <reportcore/inspect/binaryinspector.h>
#include <reportcore/problem.h>

namespace ReportCore {

/// The faults that an inspector finds, as problems.
class FaultList
{
public:
    BinaryInspector::Visitor Visitor()
    {
        return [this](const WireField& field) {
            if (field.kind == Kind::Utf16 && field.path->IsEmpty())
                m_lastText = field.bytes.Offset();
            if (field.IsFaulty())
                Keep(field);
        };
    }

    /// From now on offsets are those of the uncompressed data.
    void BeginUncompressed() { m_isUncompressed = true; }

    /// Whether there was one that isn't just something behind the end.
    bool HasFault() const { return m_hasFault; }

    const Problems& Found() const { return m_problems; }

    /// Where the last text of the frame begins, which is the object name.
    FilePlace PlaceOfName() const { return PlaceAt(m_lastText); }

private:
    /// Lengths stand within lengths: when one is wrong, others follow from it. So only the first fault
    /// counts, and what stands behind the end.
    void Keep(const WireField& field)
    {
        const QLatin1String name(field.fault);
        if (name != QLatin1String(TRAILING_DATA)) {
            if (m_hasFault)
                return;
            m_hasFault = true;
        }
        m_problems.push_back(
            {name, DescribeFault(field), PlaceAt(field.bytes.Offset()), field.path->Text(), QString()});
    }

    FilePlace PlaceAt(qint64 offset) const { return {0, 0, offset, m_isUncompressed}; }

    bool m_isUncompressed = false;
    bool m_hasFault = false;
    qint64 m_lastText = -1;
    Problems m_problems;
};

} // namespace ReportCore

#endif
