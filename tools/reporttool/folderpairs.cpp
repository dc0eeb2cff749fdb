#include <reporttool/folderpairs.h>

#include <reporttool/filelist.h>

#include <reportcore/files.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QStringList>

#include <algorithm>
#include <functional>
#include <map>

namespace ReportTool {

namespace {

constexpr QLatin1Char SLASH('/');

/// As `FilesBelow` orders them: a folder's files stand where the folder does.
struct ComesBefore
{
    bool operator()(const QString& left, const QString& right) const
    {
        return std::lexicographical_compare(
            left.begin(), left.end(), right.begin(), right.end(),
            [](QChar a, QChar b) { return (a == SLASH ? QChar() : a) < (b == SLASH ? QChar() : b); });
    }
};

using Pairs = std::map<QString, FilePair, ComesBefore>;

/// The files below a folder, each with the rest of its path.
void TakeSide(const QString& folder, const QString& pattern, QString FilePair::*side, Pairs& pairs)
{
    const QString path = QDir(folder).path();
    const auto above = path.endsWith(SLASH) ? path.size() : path.size() + 1;
    for (const QString& file : FilesBelow(folder, pattern)) {
        if (file == folder)
            ReportCore::ReadInput(folder); // says why it cannot be searched
        FilePair& pair = pairs[file.mid(above)];
        pair.name = file.mid(above);
        pair.*side = file;
    }
}

bool IsFolder(const QString& path)
{
    return !path.isEmpty() && QFileInfo(path).isDir();
}

} // namespace

std::vector<FilePair> PairsOf(const QString& left, const QString& right, const QString& pattern)
{
    Pairs all;
    TakeSide(left, pattern, &FilePair::left, all);
    TakeSide(right, pattern, &FilePair::right, all);
    std::vector<FilePair> pairs;
    QString unsearched;
    for (const auto& [name, pair] : all) {
        if (!unsearched.isNull() && name.startsWith(unsearched))
            continue;
        unsearched = IsFolder(pair.left) || IsFolder(pair.right) ? name + SLASH : QString();
        pairs.push_back(pair);
    }
    return pairs;
}

} // namespace ReportTool
