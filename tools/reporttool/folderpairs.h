#ifndef REPORTTOOL_FOLDERPAIRS_H
#define REPORTTOOL_FOLDERPAIRS_H

#include <QtCore/QString>

#include <vector>

namespace ReportTool {

/// A file that is in one of two folders, or in both under the same name.
struct FilePair
{
    QString name; ///< without the folder, its parts joined by slashes

    // Empty where it isn't there.

    QString left;
    QString right;
};

/// The files of two folders and the folders in them, in the order of their names; `pattern` as of `FilesBelow`. A folder
/// that cannot be searched stands in the place of what is in it, on either side. Throws `UnusableFile` when that is one
/// of the two.
std::vector<FilePair> PairsOf(const QString& left, const QString& right, const QString& pattern);

} // namespace ReportTool

#endif
