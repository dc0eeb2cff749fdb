#include <reportcore/exporting/xmlpieces.h>

#include <reportgenerator/reflection/texts.h>

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

QString XmlText(const QString& text)
{
    QString writable = WellFormed(text);
    for (QChar& character : writable) {
        if (!IsWritable(character))
            character = QChar::ReplacementCharacter;
    }
    return writable;
}

} // namespace ReportCore
