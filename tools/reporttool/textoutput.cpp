#include <reporttool/textoutput.h>

#include <reportcore/files.h>
#include <reportcore/platform.h>

#include <QtCore/QFileDevice>

namespace ReportTool {

namespace {

constexpr int PENDING_BYTES = 64 * 1024;

} // namespace

TextOutput::TextOutput(QIODevice& device, const QString& name) : m_device(device), m_name(name) {}

void TextOutput::Line(const QString& text)
{
    Text(text);
    Bytes(QByteArrayLiteral("\n"));
}

void TextOutput::Text(const QString& text)
{
    Bytes(text.toUtf8());
}

void TextOutput::Bytes(const QByteArray& bytes)
{
    m_pending += bytes;
    if (m_pending.size() >= PENDING_BYTES)
        Flush();
}

bool TextOutput::IsTerminal() const
{
    return qobject_cast<const QFileDevice*>(&m_device) != nullptr && ReportCore::IsTerminal(m_device);
}

void TextOutput::Flush()
{
    // What could not be written is dropped: the next message is to say so, not to try again.
    const QByteArray bytes = m_pending;
    m_pending.clear();
    ReportCore::WriteAll(m_device, bytes, m_name);
}

} // namespace ReportTool
