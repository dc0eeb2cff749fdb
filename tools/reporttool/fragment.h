#ifndef REPORTTOOL_FRAGMENT_H
#define REPORTTOOL_FRAGMENT_H

#include <QtCore/QSet>
#include <QtCore/QString>

#include <cstddef>
#include <vector>

namespace ReportTool {

/// Text that is no XML; the text is for people.
struct FragmentError
{
    QString text;
};

/// An element or an attribute in a fragment.
struct FragmentPart
{
    QString name;
    QString path;    ///< "ScanParameter.FrequencyStep", "ScanParameter@Version"
    qint64 line = 0; ///< where it begins; of an attribute, its element
    qint64 column = 0;
    int depth = 0;
    bool isTaken = false;

    QString Place() const { return QStringLiteral("%1:%2").arg(line).arg(column); }
};

/// XML settings: one element, or several one after the other.
class Fragment
{
public:
    Fragment() = default;

    /// Throws `FragmentError`.
    static Fragment Parse(const QString& text);

    /// The first element of the name; null for none.
    const FragmentPart* FindElement(const QString& name) const;

    /// What of the element an object has taken that writes this now: the element itself, and what has the same path.
    void MarkTaken(const FragmentPart& element, const QString& written);

    /// What nobody has taken, without what lies within it and without what holds something that was taken.
    std::vector<const FragmentPart*> NotTaken() const;

private:
    void FindEnds();

    std::vector<FragmentPart> m_parts; ///< in the order of the text
    std::vector<std::size_t> m_ends;   ///< of each, the first one that doesn't lie within it
};

} // namespace ReportTool

#endif
