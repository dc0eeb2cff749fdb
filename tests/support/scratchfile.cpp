#include "support/scratchfile.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QIODevice>
#include <QtCore/QTemporaryDir>

#include <stdexcept>

namespace Support {
namespace {

/// In memory where the system offers that: files on a disk would take most of the time of a run.
QString FolderTemplate()
{
    const QString inMemory = QStringLiteral("/dev/shm");
    const QString folder = QFileInfo(inMemory).isWritable() ? inMemory : QDir::tempPath();
    return folder + QLatin1String("/reportbase-XXXXXX");
}

QString InScratchFolder(const QString& name)
{
    static const QTemporaryDir folder(FolderTemplate());
    if (!folder.isValid())
        throw std::runtime_error("no folder for temporary files");
    return folder.filePath(name);
}

} // namespace

QString ScratchPath()
{
    return InScratchFolder(QStringLiteral("scratch"));
}

QString MissingPath()
{
    return InScratchFolder(QStringLiteral("missing/scratch"));
}

void WriteScratch(const QByteArray& content)
{
    QFile file(ScratchPath());
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("the temporary file cannot be written");
}

QByteArray ReadScratch()
{
    QFile file(ScratchPath());
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    const QByteArray content = file.readAll();
    return content.isNull() ? QByteArray("") : content;
}

void RemoveScratch()
{
    QFile::remove(ScratchPath());
}

} // namespace Support
