#ifndef REPORTCORE_EXPORTING_XMLPIECES_H
#define REPORTCORE_EXPORTING_XMLPIECES_H

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QXmlStreamWriter>

namespace ReportCore {

/// Writes a document of XML that is taken away in pieces.
class XmlPieces
{
public:
    /// Of what stands in so many elements, behind another element there.
    explicit XmlPieces(int depth = 0);

    QXmlStreamWriter& Writer() { return m_writer; }

    /// What has been written since the last time.
    QByteArray Take();

private:
    QBuffer m_buffer;
    QXmlStreamWriter m_writer;
};

/// The text with U+FFFD for each character that XML has no way to write.
QString XmlText(const QString& text);

} // namespace ReportCore

#endif
