#ifndef TESTS_SUPPORT_SCRATCHFILE_H
#define TESTS_SUPPORT_SCRATCHFILE_H

// One file that is written anew again and again, by tests and fuzz targets that need very many.

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace Support {

/// Its path, the same each time in a process.
QString ScratchPath();

/// A path in a folder that doesn't exist.
QString MissingPath();

void WriteScratch(const QByteArray& content);

/// Null when there is no file.
QByteArray ReadScratch();

void RemoveScratch();

} // namespace Support

#endif
