#ifndef REPORTCORE_INSPECT_SOURCETEXT_H
#define REPORTCORE_INSPECT_SOURCETEXT_H

#include <reportcore/problem.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <vector>

namespace ReportCore {

/// The text of a document, and the places in it. For one thread at a time.
class SourceText
{
public:
    SourceText() = default;
    explicit SourceText(const QByteArray& bytes);

    const QString& Text() const { return m_text; }

    /// Of a position in units of the text.
    FilePlace PlaceOf(qint64 position) const;

    /// Where the start tag begins that ends there.
    qint64 StartOfTag(qint64 end) const;

    /// An attribute as it stands in a start tag.
    struct Attribute
    {
        qint64 begin = 0;
        qint64 end = 0;
        qint64 valueBegin = 0;
    };

    /// The attribute of that name in the start tag between them; the tag itself where it isn't found.
    Attribute FindAttribute(qint64 begin, qint64 end, const QString& name) const;

private:
    void FindLines() const;

    QString m_text;

    // Found when a place is asked for first: where lines begin, and where a character takes a second unit.
    mutable std::vector<qint64> m_lines;
    mutable std::vector<qint64> m_secondUnits;
};

} // namespace ReportCore

#endif
