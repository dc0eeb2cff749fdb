#include <reporttool/filelist.h>

#include <reporttool/namepattern.h>

#include <reportcore/filenames.h>
#include <reportcore/files.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <algorithm>

namespace ReportTool {

namespace {

constexpr char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";

bool ComesBefore(const QFileInfo& left, const QFileInfo& right)
{
    return left.fileName() < right.fileName();
}

/// Those that fit the pattern, or all without one.
void TakeFiles(const QString& folder, const NamePattern* pattern, QStringList& files)
{
    const QDir dir(folder);
    if (!dir.isReadable()) {
        // Whoever reads it says why it cannot be read.
        files << folder;
        return;
    }
    QFileInfoList entries =
        dir.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::NoSort);
    std::sort(entries.begin(), entries.end(), ComesBefore);
    for (const QFileInfo& entry : entries) {
        if (entry.isDir() && !entry.isSymLink())
            TakeFiles(entry.filePath(), pattern, files);
        else if (entry.isFile() && (!pattern || pattern->Fits(entry.fileName())))
            files << entry.filePath();
    }
}

} // namespace

QStringList FilesBelow(const QString& folder, const QString& pattern)
{
    QStringList files;
    const NamePattern names(pattern);
    TakeFiles(folder, pattern.isNull() ? nullptr : &names, files);
    return files;
}

QStringList WithoutFolders(const QStringList& names, const QString& pattern)
{
    QStringList files;
    for (const QString& name : names) {
        if (!ReportCore::IsStandardStream(name) && QFileInfo(name).isDir())
            files << FilesBelow(name, pattern);
        else
            files << name;
    }
    return files;
}

QStringList NamesIn(const QByteArray& list, bool hasNuls)
{
    QStringList names;
    const bool hasMark = !hasNuls && list.startsWith(BYTE_ORDER_MARK);
    const QByteArray rest = hasMark ? list.mid(int(sizeof BYTE_ORDER_MARK) - 1) : list;
    for (QByteArray name : rest.split(hasNuls ? '\0' : '\n')) {
        if (!hasNuls && name.endsWith('\r'))
            name.chop(1);
        if (!name.isEmpty())
            names << ReportCore::FileNameOf(name);
    }
    return names;
}

} // namespace ReportTool
