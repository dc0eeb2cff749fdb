#ifndef REPORTCORE_FILES_H
#define REPORTCORE_FILES_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>

class QIODevice;

namespace ReportCore {

constexpr qint64 BYTES_IN_MIB = qint64(1024) * 1024;

/// What a file may hold, unless somebody sets another ceiling: an area of a million points takes half of it as XML.
constexpr qint64 USUAL_CEILING = 256 * BYTES_IN_MIB;

/// No text of Qt 5 has more characters than this.
constexpr qint64 HIGHEST_CEILING = 1023 * BYTES_IN_MIB;

/// Most that a file may hold, be it read or written, and most that compressed data may hold by their own account.
qint64 Ceiling();

/// Sets it for the whole program. Not while files are being read.
void SetCeiling(qint64 bytes);

/// A file that cannot be read or written; the text is for people.
struct UnusableFile
{
    QString file;
    QString text;
};

/// Whether a terminal is a place to write to. Bytes that are no text may change what it shows from then on.
enum class Terminals
{
    Taken,
    Refused
};

/// Whether a name on the command line, "-", stands for standard input or output.
bool IsStandardStream(const QString& name);

/// Whether two names lead to the same file. Standard streams are no files.
bool IsSameFile(const QString& left, const QString& right);

/// Everything that the file or standard input holds. Throws `UnusableFile` when it cannot be read or holds
/// more than `Ceiling()` bytes.
QByteArray ReadInput(const QString& name);

/// Told how many bytes have been read and how many there seem to be. What it throws ends the reading.
using ReadingProgress = std::function<void(qint64 read, qint64 size)>;

/// The same in pieces, for files that take a while.
QByteArray ReadInput(const QString& name, const ReadingProgress& progress);

/// Puts `bytes` in place of what the file holds, or sends them to standard output. Until all is written the
/// bytes stand in a temporary file beside it, so that a failure leaves the old file as it is; only devices
/// and pipes are written to directly. Throws `UnusableFile`.
void WriteOutput(const QString& name, const QByteArray& bytes, Terminals terminals = Terminals::Taken);

/// Writes all bytes or throws `UnusableFile` with the given name.
void WriteAll(QIODevice& device, const QByteArray& bytes, const QString& name);

} // namespace ReportCore

#endif
