#include <reporttool/textoutput.h>

#include <reportcore/filenames.h>
#include <reportcore/files.h>
#include <reportcore/platform.h>

#include <reportgenerator/reflection/texts.h>

#include <QtCore/QFileDevice>

namespace ReportTool {

namespace {

constexpr int PENDING_BYTES = 64 * 1024;

} // namespace

TextOutput::TextOutput(QIODevice& device, const QString& name)
    : m_device(device), m_name(name),
      m_isTerminal(qobject_cast<const QFileDevice*>(&device) != nullptr && ReportCore::IsTerminal(device))
{
}

TextOutput::TextOutput(QIODevice& device, const TextOutput& other)
    : m_device(device), m_name(other.m_name), m_isTerminal(other.m_isTerminal)
{
}

void TextOutput::Line(const QString& text)
{
    Text(text);
    Bytes(QByteArrayLiteral("\n"));
}

void TextOutput::Text(const QString& text)
{
    Bytes(ReportCore::ToUtf8(text));
}

void TextOutput::FileName(const QString& file)
{
    if (IsTerminal())
        Text(ReportCore::Printable(file));
    else
        Bytes(ReportCore::FileNameBytes(file));
}

void TextOutput::FileNameInLine(const QString& file)
{
    if (IsTerminal())
        Text(ReportCore::Printable(file));
    else
        Bytes(ReportCore::FileNameInLine(file));
}

void TextOutput::Bytes(const QByteArray& bytes)
{
    m_pending += bytes;
    if (m_pending.size() >= PENDING_BYTES)
        Flush();
}

void TextOutput::Flush()
{
    // What could not be written is dropped: the next message is to say so, not to try again.
    const QByteArray bytes = m_pending;
    m_pending.clear();
    ReportCore::WriteAll(m_device, bytes, m_name);
}

} // namespace ReportTool
