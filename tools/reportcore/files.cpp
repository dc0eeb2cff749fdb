#include <reportcore/files.h>

#include <reportcore/outputfile.h>
#include <reportcore/platform.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <atomic>

namespace ReportCore {

namespace {

using Index = decltype(QByteArray().size());

constexpr qint64 CHUNK = BYTES_IN_MIB;

std::atomic<qint64> ceiling = USUAL_CEILING;

[[noreturn]] void RefuseDirectory(const QString& name)
{
    throw UnusableFile{name, QStringLiteral("is a directory")};
}

void RequireOpen(bool isOpen, const QFileDevice& file, const QString& name)
{
    if (!isOpen)
        throw UnusableFile{name, file.errorString()};
}

void RequireBelowCeiling(qint64 size, const QString& name)
{
    if (size > Ceiling())
        throw UnusableFile{name, QStringLiteral("holds more than %1 bytes").arg(Ceiling())};
}

void OpenForReading(QFile& file, const QString& name)
{
    if (IsStandardStream(name)) {
        if (!IsOpen(STANDARD_INPUT))
            throw UnusableFile{name, QStringLiteral("is not open")};
        RequireOpen(file.open(STANDARD_INPUT, QIODevice::ReadOnly | QIODevice::Unbuffered), file, name);
        return;
    }
    const QString device = DevicePath(name);
    if (!device.isEmpty()) {
        const QString error = OpenDevice(file, device);
        if (!error.isEmpty())
            throw UnusableFile{name, error};
        return;
    }
    // Whoever reads many files asks about those only that cannot be opened.
    if (file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return;
    const QFileInfo info(name);
    if (!info.exists())
        throw UnusableFile{name, QStringLiteral("no such file")};
    if (info.isDir() && info.isReadable())
        RefuseDirectory(name);
    throw UnusableFile{name, file.errorString()};
}

/// Reads up to `room` bytes more, and returns whether there were any.
bool ReadPiece(QFile& file, qint64 room, QByteArray& bytes, const QString& name)
{
    const auto size = bytes.size();
    bytes.resize(size + static_cast<Index>(room));
    const qint64 count = file.read(bytes.data() + size, room);
    if (count < 0 || file.error() != QFileDevice::NoError)
        throw UnusableFile{name, file.errorString()};
    bytes.resize(size + static_cast<Index>(count));
    return count > 0;
}

} // namespace

qint64 Ceiling()
{
    return ceiling;
}

void SetCeiling(qint64 bytes)
{
    ceiling = bytes;
}

bool IsStandardStream(const QString& name)
{
    return name == QLatin1String("-");
}

bool IsSameFile(const QString& left, const QString& right)
{
    if (IsStandardStream(left) || IsStandardStream(right))
        return false;
    const QString path = QFileInfo(left).canonicalFilePath();
    return !path.isEmpty() && path == QFileInfo(right).canonicalFilePath();
}

QByteArray ReadInput(const QString& name)
{
    return ReadInput(name, nullptr);
}

QByteArray ReadInput(const QString& name, const ReadingProgress& progress)
{
    QFile file(name);
    OpenForReading(file, name);
    const qint64 size = file.size();
    RequireBelowCeiling(size, name);
    // The size is only a hint: pipes have none, and files of the kernel claim to be empty. Room for more shows that it
    // was right.
    QByteArray bytes;
    qint64 room = size > 0 ? size + 1 : CHUNK;
    while (ReadPiece(file, progress ? std::min(room, CHUNK) : room, bytes, name)) {
        RequireBelowCeiling(bytes.size(), name);
        room = bytes.size() <= size ? size + 1 - bytes.size() : CHUNK;
        if (progress)
            progress(bytes.size(), size);
    }
    return bytes;
}

void WriteOutput(const QString& name, const QByteArray& bytes, Terminals terminals)
{
    OutputFile file(name, terminals);
    file.Write(bytes);
    file.Commit();
}

void WriteAll(QIODevice& device, const QByteArray& bytes, const QString& name)
{
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 count = device.write(bytes.constData() + written, bytes.size() - written);
        if (count <= 0)
            throw UnusableFile{name, device.errorString()};
        written += count;
    }
}

} // namespace ReportCore
