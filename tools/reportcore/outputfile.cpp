#include <reportcore/outputfile.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace ReportCore {

namespace {

// No file has a buffer: what a QSaveFile writes only by commit() may get lost there without an error.
constexpr auto MODE = QIODevice::WriteOnly | QIODevice::Unbuffered;

void RequireOpen(bool isOpen, const QFileDevice& file, const QString& name)
{
    if (!isOpen)
        throw UnusableFile{name, file.errorString()};
}

std::unique_ptr<QIODevice> OpenStandardOutput(const QString& name)
{
    std::unique_ptr<QIODevice> output = OpenForOutput(STANDARD_OUTPUT);
    if (!output)
        throw UnusableFile{name, QStringLiteral("is not open")};
    return output;
}

template <class File>
std::unique_ptr<QIODevice> OpenFile(const QString& name)
{
    auto file = std::make_unique<File>(name);
    RequireOpen(file->open(MODE), *file, name);
    return file;
}

} // namespace

OutputFile::OutputFile(const QString& name, Terminals terminals) : m_name(name)
{
    const QString device = DevicePath(name);
    const QFileInfo info(name);
    if (IsStandardStream(name)) {
        m_file = OpenStandardOutput(name);
    } else if (!device.isEmpty()) {
        m_file = OpenDeviceForOutput(device, name);
    } else if (info.isDir()) {
        throw UnusableFile{name, QStringLiteral("is a directory")};
    } else if (!info.exists() || info.isFile()) {
        m_isBeingReplaced.emplace();
        m_file = OpenFile<QSaveFile>(name);
    } else {
        m_file = OpenFile<QFile>(name);
    }
    if (terminals == Terminals::Refused && IsTerminal(*m_file))
        throw UnusableFile{name, QStringLiteral("is a terminal; --force writes bytes to it all the same")};
}

OutputFile::~OutputFile() = default;

void OutputFile::Write(const QByteArray& bytes)
{
    WriteAll(*m_file, bytes, m_name);
}

void OutputFile::Commit()
{
    auto* const replacing = qobject_cast<QSaveFile*>(m_file.get());
    if (replacing && !replacing->commit())
        throw UnusableFile{m_name, replacing->errorString()};
}

} // namespace ReportCore
