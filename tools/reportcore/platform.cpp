#include <reportcore/platform.h>

#include <reportcore/files.h>

#include <QtCore/QFile>

#ifdef Q_OS_WIN
#    include <QtCore/QDir>

#    include <algorithm>
#    include <mutex>
#    include <string>

#    include <fcntl.h>
#    include <io.h>
#    include <windows.h>
#else
#    include <initializer_list>

#    include <fcntl.h>
#    include <unistd.h>
#endif

namespace ReportCore {

#ifdef Q_OS_WIN

namespace {

/// A console takes a limited number of characters at a time.
constexpr int CONSOLE_CHARACTERS = 8 * 1024;

const wchar_t* Wide(const QString& text)
{
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

/// Held while a file is being replaced, and for good by whoever ends the program.
std::mutex& Replacing()
{
    static std::mutex mutex;
    return mutex;
}

/// Called in a thread of its own, which Windows starts for that. The next handler ends the program.
BOOL WINAPI WaitForTheFile(DWORD /*event*/)
{
    Replacing().lock();
    return FALSE;
}

/// How many bytes at the end begin a character of UTF-8 and don't end it.
int UnfinishedBytes(const QByteArray& bytes)
{
    const int longest = std::min(3, static_cast<int>(bytes.size()));
    for (int count = 1; count <= longest; ++count) {
        const auto byte = static_cast<unsigned char>(bytes.at(bytes.size() - count));
        if (byte < 0x80)
            return 0;
        if (byte >= 0xC0) {
            const int needed = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
            return count < needed ? count : 0;
        }
    }
    return 0;
}

class Console : public QIODevice
{
public:
    explicit Console(HANDLE handle) : m_handle(handle) { open(WriteOnly | Unbuffered); }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* /*bytes*/, qint64 /*size*/) override { return -1; }

    qint64 writeData(const char* bytes, qint64 size) override
    {
        m_pending.append(bytes, static_cast<int>(size));
        const int unfinished = UnfinishedBytes(m_pending);
        const QString text = QString::fromUtf8(m_pending.constData(), m_pending.size() - unfinished);
        m_pending = m_pending.right(unfinished);
        for (int begin = 0; begin < text.size(); begin += CONSOLE_CHARACTERS) {
            const auto count =
                static_cast<DWORD>(std::min(CONSOLE_CHARACTERS, static_cast<int>(text.size()) - begin));
            DWORD written = 0;
            if (WriteConsoleW(m_handle, text.utf16() + begin, count, &written, nullptr) == 0) {
                setErrorString(qt_error_string());
                return -1;
            }
        }
        return size;
    }

private:
    HANDLE m_handle;
    QByteArray m_pending;
};

} // namespace

void PreparePlatform()
{
    for (const int stream : {STANDARD_INPUT, STANDARD_OUTPUT, STANDARD_ERROR})
        _setmode(stream, _O_BINARY);
    SetConsoleCtrlHandler(WaitForTheFile, TRUE);
}

QString DevicePath(const QString& name)
{
    // Windows itself tells which names are devices: such a name becomes a path below \\.\ .
    const QString native = QDir::toNativeSeparators(name);
    std::wstring full(MAX_PATH, L'\0');
    const DWORD length =
        GetFullPathNameW(Wide(native), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length == 0 || length > full.size())
        return {};
    full.resize(length);
    const QString path = QString::fromStdWString(full);
    return path.startsWith(QLatin1String("\\\\.\\")) ? path : QString();
}

QString OpenDevice(QFile& file, const QString& path)
{
    // By way of the C library, which knows the end of a pipe from an error.
    const int number = _wopen(Wide(path), _O_RDONLY | _O_BINARY);
    if (number < 0)
        return qt_error_string();
    if (!file.open(number, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return file.errorString();
    return {};
}

std::unique_ptr<QIODevice> OpenDeviceForOutput(const QString& path, const QString& name)
{
    // Only what may be read too says of itself that it is a console, and CON never may.
    const bool isConsole = path.compare(QLatin1String("\\\\.\\CON"), Qt::CaseInsensitive) == 0;
    const int number =
        isConsole ? _wopen(L"CONOUT$", _O_RDWR | _O_BINARY) : _wopen(Wide(path), _O_WRONLY | _O_BINARY);
    if (number < 0)
        throw UnusableFile{name, qt_error_string()};
    // A console stays open until the program ends.
    std::unique_ptr<QIODevice> device = OpenForOutput(number);
    if (!device)
        throw UnusableFile{name, qt_error_string()};
    return device;
}

FileBeingReplaced::FileBeingReplaced()
{
    Replacing().lock();
}

FileBeingReplaced::~FileBeingReplaced()
{
    Replacing().unlock();
}

#else

void PreparePlatform() {}

QString DevicePath(const QString& /*name*/)
{
    return {};
}

QString OpenDevice(QFile& /*file*/, const QString& /*path*/)
{
    return {};
}

std::unique_ptr<QIODevice> OpenDeviceForOutput(const QString& /*path*/, const QString& /*name*/)
{
    return nullptr;
}

FileBeingReplaced::FileBeingReplaced() = default;

FileBeingReplaced::~FileBeingReplaced() = default;

#endif

#ifdef Q_OS_WIN

namespace {

HANDLE HandleOf(int stream)
{
    return reinterpret_cast<HANDLE>(_get_osfhandle(stream)); // NOLINT
}

bool IsConsole(HANDLE handle)
{
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0;
}

} // namespace

void HoldStandardStreams() {}

bool IsOpen(int /*stream*/)
{
    return true;
}

#else

void HoldStandardStreams()
{
    for (const int stream : {STANDARD_INPUT, STANDARD_OUTPUT, STANDARD_ERROR}) {
        // The lowest free number is taken; what is open the wrong way round is of no use to anybody.
        if (fcntl(stream, F_GETFL) < 0)
            open("/dev/null", stream == STANDARD_INPUT ? O_WRONLY : O_RDONLY);
    }
}

bool IsOpen(int stream)
{
    const int flags = fcntl(stream, F_GETFL);
    return flags >= 0 && (flags & O_ACCMODE) != (stream == STANDARD_INPUT ? O_WRONLY : O_RDONLY);
}

#endif

bool IsTerminal(const QIODevice& device)
{
    const auto* const file = qobject_cast<const QFileDevice*>(&device);
#ifdef Q_OS_WIN
    // The C library takes NUL for a terminal, too.
    return file ? IsConsole(HandleOf(file->handle())) : dynamic_cast<const Console*>(&device) != nullptr;
#else
    return file && isatty(file->handle()) != 0;
#endif
}

std::unique_ptr<QIODevice> OpenForOutput(int stream)
{
#ifdef Q_OS_WIN
    if (IsConsole(HandleOf(stream)))
        return std::make_unique<Console>(HandleOf(stream));
#endif
    auto file = std::make_unique<QFile>();
    if (!IsOpen(stream) || !file->open(stream, QIODevice::WriteOnly | QIODevice::Unbuffered))
        return nullptr;
    return file;
}

} // namespace ReportCore
