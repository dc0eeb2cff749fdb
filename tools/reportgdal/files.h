#ifndef REPORTGDAL_FILES_H
#define REPORTGDAL_FILES_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <string>
#include <vector>

namespace ReportGdal {

// Files as GDAL has them, those in archives, in memory and on servers too. Their names are bytes.

/// The name as texts have it.
QString TextOf(const std::string& name);

bool IsFolder(const std::string& name);

/// The name of a file in a folder.
std::string NameIn(const std::string& folder, const std::string& name);

/// Told the name of each file of a folder, in any order, until it returns false. Throws `UnusableFile`.
using TakeName = std::function<bool(const std::string& name)>;
void ForEachFile(const std::string& folder, bool isRecursive, const TakeName& take);

/// The files of a folder in the order of their names, each folder's files together, as reporttool takes them. Throws
/// `UnusableFile`.
std::vector<std::string> FilesOf(const std::string& folder, bool isRecursive);

/// All that the file holds, or as much of it as is asked for. Throws `UnusableFile` for one that cannot be read or holds
/// more than `ReportCore::Ceiling()`.
QByteArray ReadBytes(const std::string& name);
QByteArray ReadBeginning(const std::string& name, int size);

/// Puts the bytes into the file. Until all are written they stand in another one beside it. Throws `UnusableFile`.
void WriteBytes(const std::string& name, const QByteArray& bytes);

} // namespace ReportGdal

#endif
