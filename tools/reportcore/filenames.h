#ifndef REPORTCORE_FILENAMES_H
#define REPORTCORE_FILENAMES_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace ReportCore {

/// Has Qt keep the bytes of file names that are no UTF-8, where it can be told how to read them; elsewhere such files are
/// not found. Printable texts show such a byte as "\udcfc". Called once, before Qt is told the arguments.
void KeepOddFileNames();

/// The bytes that a file's name has in a list of names, and back.
QByteArray FileNameBytes(const QString& name);
QString FileNameOf(const QByteArray& bytes);

/// The same bytes, but for control characters, which are escapes: a name with a line break leaves a line whole.
QByteArray FileNameInLine(const QString& name);

} // namespace ReportCore

#endif
