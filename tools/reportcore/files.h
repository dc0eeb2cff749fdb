#ifndef REPORTCORE_FILES_H
#define REPORTCORE_FILES_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>

class QIODevice;

namespace ReportCore {

/// No report comes near this size: an area of a million points takes half of it as XML.
constexpr qint64 INPUT_CEILING = qint64(256) * 1024 * 1024;

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

/// Everything that the file or standard input holds. Throws `UnusableFile` when it cannot be read or holds
/// more than `INPUT_CEILING` bytes.
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
