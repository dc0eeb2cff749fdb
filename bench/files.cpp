#include "files.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>

#include <stdexcept>

namespace Bench {

namespace {

/// In memory where that can be had, so that no disk has a say in what is measured.
QString Folder()
{
    const QString memory = QStringLiteral("/dev/shm");
    const QString parent = QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
    return parent + QStringLiteral("/reportbase-bench-XXXXXX");
}

void Open(QFile& file, QIODevice::OpenMode mode)
{
    if (!file.open(mode))
        throw std::runtime_error("cannot open " + file.fileName().toStdString());
}

} // namespace

QString PathFor(const std::string& contender, qsizetype coordinates)
{
    static const QTemporaryDir folder(Folder());
    return folder.filePath(QString::fromStdString(contender) + QString::number(coordinates));
}

void WriteFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    Open(file, QIODevice::WriteOnly);
    if (file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}

QByteArray ReadFile(const QString& path)
{
    QFile file(path);
    Open(file, QIODevice::ReadOnly);
    return file.readAll();
}

} // namespace Bench
