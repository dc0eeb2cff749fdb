#ifndef REPORTTOOL_FILELIST_H
#define REPORTTOOL_FILELIST_H

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace ReportTool {

/// The files of a folder and the folders in it, each folder's in the order of their names. `pattern` is a `NamePattern`
/// for the name without its folder; null for all. Links to folders are not followed.
QStringList FilesBelow(const QString& folder, const QString& pattern);

/// Folders among the names are replaced by their files, the others stay as they are.
QStringList WithoutFolders(const QStringList& names, const QString& pattern);

/// The names in a list: one a line, or each with a NUL behind it. Empty ones don't count, nor does a byte order mark in
/// front of lines.
QStringList NamesIn(const QByteArray& list, bool hasNuls);

} // namespace ReportTool

#endif
