#include <reportcore/exporting/deferredoutput.h>

#include <reportcore/files.h>

namespace ReportCore {

namespace {

constexpr int BYTES_IN_MEMORY = 8 * 1024 * 1024;

} // namespace

void DeferredOutput::Append(const QByteArray& bytes)
{
    m_size += bytes.size();
    m_latest += bytes;
    if (m_latest.size() >= BYTES_IN_MEMORY)
        Store();
}

void DeferredOutput::TakeAll(const std::function<void(const QByteArray& bytes)>& take)
{
    if (m_file.isOpen() && !m_file.seek(0))
        throw UnusableFile{m_file.fileName(), m_file.errorString()};
    for (qint64 left = m_size - m_latest.size(); left > 0;) {
        const QByteArray piece = m_file.read(BYTES_IN_MEMORY);
        if (piece.isEmpty())
            throw UnusableFile{m_file.fileName(), m_file.errorString()};
        take(piece);
        left -= piece.size();
    }
    take(m_latest);
}

void DeferredOutput::Store()
{
    if (!m_file.isOpen() && !m_file.open())
        throw UnusableFile{m_file.fileTemplate(), m_file.errorString()};
    WriteAll(m_file, m_latest, m_file.fileName());
    m_latest.clear();
}

} // namespace ReportCore
