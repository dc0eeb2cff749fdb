#ifndef REPORTCORE_PLATFORM_H
#define REPORTCORE_PLATFORM_H

// What the operating systems have different. Where nothing is said of a system, it needs nothing of the kind.

#include <QtCore/QIODevice>
#include <QtCore/QString>

#include <memory>

class QFile;

namespace ReportCore {

/// Whether people look at what is written there.
bool IsTerminal(const QIODevice& device);

// The numbers under which a program finds its standard streams open.

constexpr int STANDARD_INPUT = 0;
constexpr int STANDARD_OUTPUT = 1;
constexpr int STANDARD_ERROR = 2;

/// Keeps the place of each standard stream that isn't open, so that no file gets into it. Called before anything else is
/// opened.
void HoldStandardStreams();

/// Whether the stream is open for reading, or those for output for writing.
bool IsOpen(int stream);

/// Lets the standard streams carry bytes as they are, and Ctrl-C wait while an object of `FileBeingReplaced`
/// lives. Called once, at the start.
void PreparePlatform();

/// A standard stream for writing, without a buffer; null if it isn't open. What goes to a console of Windows is taken
/// for UTF-8 and shown as that text, whatever the console's code page is.
std::unique_ptr<QIODevice> OpenForOutput(int stream);

/// The path of a device that on Windows has a name of its own in every folder, such as NUL and CON; empty for names of
/// files.
QString DevicePath(const QString& name);

/// Opens such a device for reading, without a buffer. Returns what the system says to it if that fails, else nothing.
QString OpenDevice(QFile& file, const QString& path);

/// As `OpenForOutput`, for such a device. Throws `UnusableFile` with the given name if that fails.
std::unique_ptr<QIODevice> OpenDeviceForOutput(const QString& path, const QString& name);

/// While it lives, a file beside another one is about to take that one's place. Windows ends a program at Ctrl-C without
/// clearing up after it, so that is put off until then.
class FileBeingReplaced
{
public:
    FileBeingReplaced();
    ~FileBeingReplaced();
    FileBeingReplaced(const FileBeingReplaced&) = delete;
    FileBeingReplaced& operator=(const FileBeingReplaced&) = delete;
};

} // namespace ReportCore

#endif
