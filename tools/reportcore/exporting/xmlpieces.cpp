#include <reportcore/exporting/xmlpieces.h>

namespace ReportCore {

namespace {

bool IsWritable(QChar character)
{
    const ushort code = character.unicode();
    return code >= 0x20 ? code < 0xFFFE : code == '\t' || code == '\n' || code == '\r';
}

} // namespace

XmlPieces::XmlPieces(int depth)
{
    m_buffer.open(QIODevice::WriteOnly);
    m_writer.setDevice(&m_buffer);
    m_writer.setAutoFormatting(true);
    m_writer.setAutoFormattingIndent(1);
    if (depth == 0)
        return;
    const QString element = QStringLiteral("a");
    for (int i = 0; i <= depth; ++i)
        m_writer.writeStartElement(element);
    m_writer.writeEndElement();
    Take();
}

QByteArray XmlPieces::Take()
{
    QByteArray piece = m_buffer.data();
    m_buffer.close();
    m_buffer.setData(QByteArray());
    m_buffer.open(QIODevice::WriteOnly);
    return piece;
}

QString XmlText(QString text)
{
    for (QString::size_type i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        if (character.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
        else if (character.isSurrogate() || !IsWritable(character))
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

} // namespace ReportCore
