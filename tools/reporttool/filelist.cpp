#include <reporttool/filelist.h>

#include <reporttool/namepattern.h>

#include <reportcore/filenames.h>
#include <reportcore/files.h>

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <vector>

namespace ReportTool {

namespace {

constexpr char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";

/// With its name, which is cut out of its path each time that it is asked for.
struct Entry
{
    QString name;
    QFileInfo info;

    friend bool operator<(const Entry& left, const Entry& right) { return left.name < right.name; }
};

std::vector<Entry> EntriesOf(const QDir& folder)
{
    std::vector<Entry> entries;
    QDirIterator iterator(folder.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    while (iterator.hasNext()) {
        iterator.next();
        entries.push_back({iterator.fileName(), iterator.fileInfo()});
    }
    std::sort(entries.begin(), entries.end());
    return entries;
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
    for (const Entry& entry : EntriesOf(dir)) {
        if (entry.info.isDir() && !entry.info.isSymLink())
            TakeFiles(entry.info.filePath(), pattern, files);
        else if (entry.info.isFile() && (!pattern || pattern->Fits(entry.name)))
            files << entry.info.filePath();
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
