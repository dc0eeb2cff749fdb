// The program as users of Windows meet it.

#include "samples.h"
#include "toolrun.h"

#include "support/expect.h"
#include "support/recordelements.h"

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QString>

#ifdef Q_OS_WIN

#    include <windows.h>

#    include <atomic>
#    include <string>
#    include <thread>

namespace {

using ToolTest::FullPlain;
using ToolTest::FullXml;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char OLD_CONTENT[] = "old content";
constexpr char NOT_A_REPORT[] = ": UnknownForm: not a report in any known form (empty)\n";

/// Latin, Greek, Chinese, and a character that takes two of UTF-16: no code page has them all.
constexpr char ANY_CHARACTERS[] = "Zürich Ωμέγα 頻率 \xF0\x9F\x93\xA1";

const wchar_t* Wide(const QString& text)
{
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

/// A handle that is closed in the end.
class Handle
{
public:
    explicit Handle(HANDLE handle) : m_handle(handle) {}
    ~Handle() { Close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    HANDLE Get() const { return m_handle; }
    bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    void Close()
    {
        if (IsOpen())
            CloseHandle(m_handle);
        m_handle = INVALID_HANDLE_VALUE;
    }

private:
    HANDLE m_handle;
};

/// What another program has, which lets others do with the file what `sharing` says.
HANDLE HoldOpen(const QString& path, DWORD sharing)
{
    return CreateFileW(Wide(QDir::toNativeSeparators(path)), GENERIC_READ, sharing, nullptr, OPEN_EXISTING,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// Ended with 2 and one line that names the file and goes on with the system's own words.
void ExpectToldInWords(const ToolRun& run, const QString& name)
{
    const QString begin = QStringLiteral("reporttool: %1: ").arg(name);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TRUE(run.Errors().startsWith(begin)) << run.errors.toStdString();
    EXPECT_GT(run.Errors().trimmed().size(), begin.size() + 3) << run.errors.toStdString();
    EXPECT_EQ(run.Errors().count(QLatin1Char('\n')), 1);
    EXPECT_TRUE(run.Errors().endsWith(QLatin1Char('\n')));
}

// --- Names

TEST(ToolOnWindows, ArgumentsAndFileNamesMayHoldAnyCharacter)
{
    const Scratch scratch;
    const QString in = scratch.Write(ANY_CHARACTERS, {});
    EXPECT_TEXT(RunTool({"check", in}).Output(), in + QLatin1String(NOT_A_REPORT));

    scratch.Write(ANY_CHARACTERS, FullXml());
    const QString out = QString::fromUtf8(ANY_CHARACTERS) + QStringLiteral(".bin");
    const ToolRun run =
        RunTool({"convert", ANY_CHARACTERS, out, "--to", "plain"}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_BYTES(scratch.Read(out.toUtf8().constData()), FullPlain());
}

TEST(ToolOnWindows, BackslashesAndDriveLettersNameFiles)
{
    const Scratch scratch;
    ASSERT_TRUE(QDir(scratch.Folder()).mkdir(QStringLiteral("sub")));
    scratch.Write("sub/in.xml", FullXml());
    const QString folder = QDir::toNativeSeparators(scratch.Folder());
    ASSERT_EQ(folder.at(1), QLatin1Char(':'));

    const ToolRun whole = RunTool({"convert", folder + QStringLiteral("\\sub\\in.xml"),
                                   folder + QStringLiteral("\\sub/whole"), "--to", "plain"});
    EXPECT_EQ(whole.exitCode, 0) << whole.errors.toStdString();
    EXPECT_BYTES(scratch.Read("sub/whole"), FullPlain());

    // A drive without a backslash means the folder in which the program is on that drive.
    const ToolRun relative = RunTool(
        {"convert", "sub\\..\\sub\\in.xml", folder.left(2) + QStringLiteral("relative"), "--to", "plain"},
        {{}, scratch.Folder(), {}});
    EXPECT_EQ(relative.exitCode, 0) << relative.errors.toStdString();
    EXPECT_BYTES(scratch.Read("relative"), FullPlain());
    EXPECT_EQ(QDir(scratch.Path("sub")).entryList(QDir::Files),
              QStringList({QStringLiteral("in.xml"), QStringLiteral("whole")}));
}

TEST(ToolOnWindows, PathsMayBeLongerThan260Characters)
{
    const Scratch scratch;
    const QString folder = scratch.Path("") + QString(100, QLatin1Char('a')) + QLatin1Char('/') +
                           QString(100, QLatin1Char('b')) + QLatin1Char('/') + QString(100, QLatin1Char('c'));
    ASSERT_TRUE(QDir().mkpath(folder));
    QFile in(folder + QStringLiteral("/in.xml"));
    ASSERT_TRUE(in.open(QIODevice::WriteOnly));
    ASSERT_EQ(in.write(FullXml()), FullXml().size());
    in.close();

    const QString out = folder + QStringLiteral("/out");
    const ToolRun run = RunTool({"convert", in.fileName(), QDir::toNativeSeparators(out), "--to", "plain"});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    QFile written(out);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_BYTES(written.readAll(), FullPlain());
    EXPECT_EQ(RunTool({"check", out, in.fileName()}).exitCode, 0);
}

// --- Devices

TEST(ToolOnWindows, NulHoldsNothing)
{
    for (const char* name : {"NUL", "nul", "\\\\.\\NUL"}) {
        const ToolRun run = RunTool({"check", name});
        EXPECT_EQ(run.exitCode, 1) << name;
        EXPECT_TEXT(run.Output(), QString::fromLatin1(name) + QLatin1String(NOT_A_REPORT));
    }
}

TEST(ToolOnWindows, NulIsWrittenToAndNotReplaced)
{
    const Scratch scratch;
    scratch.Write("in", FullXml());
    for (const char* name : {"NUL", "nul", "\\\\.\\NUL"}) {
        const ToolRun run = RunTool({"convert", "in", name, "--to", "xml"}, {{}, scratch.Folder(), {}});
        EXPECT_EQ(run.exitCode, 0) << name << ": " << run.errors.toStdString();
    }
    EXPECT_EQ(scratch.Names(), QStringList(QStringLiteral("in")));
}

TEST(ToolOnWindows, NulAsStandardOutputIsNoTerminal)
{
    const Scratch scratch;
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.start(QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL),
                  {QStringLiteral("convert"), scratch.Write("in", FullXml()), QStringLiteral("-"),
                   QStringLiteral("--to"), QStringLiteral("plain")});
    ASSERT_TRUE(process.waitForFinished(60 * 1000));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
}

TEST(ToolOnWindows, ConIsNoFile)
{
    // With a console the report is shown there; without one that is told.
    const Scratch scratch;
    scratch.Write("in", FullXml());
    const ToolRun run = RunTool({"convert", "in", "CON", "--to", "xml"}, {{}, scratch.Folder(), {}});
    if (run.exitCode != 0)
        ExpectToldInWords(run, QStringLiteral("CON"));
    EXPECT_EQ(scratch.Names(), QStringList(QStringLiteral("in")));
}

TEST(ToolOnWindows, NamedPipeIsReadToItsEnd)
{
    const QString name = QStringLiteral("\\\\.\\pipe\\reporttool-test-%1").arg(GetCurrentProcessId());
    Handle server(CreateNamedPipeW(Wide(name), PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE | PIPE_WAIT, 1, 4096,
                                   4096, 0, nullptr));
    ASSERT_TRUE(server.IsOpen());
    const QByteArray bytes = FullPlain();
    std::thread writer([&server, &bytes] {
        if (ConnectNamedPipe(server.Get(), nullptr) != 0 || GetLastError() == ERROR_PIPE_CONNECTED) {
            DWORD written = 0;
            WriteFile(server.Get(), bytes.constData(), static_cast<DWORD>(bytes.size()), &written, nullptr);
            FlushFileBuffers(server.Get());
        }
        server.Close();
    });
    const ToolRun run = RunTool({"check", name});
    writer.join();
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_TEXT(run.Output(), "");
}

// --- Bytes

TEST(ToolOnWindows, NoByteBecomesTwoOrEndsTheInputOnItsWayThroughAPipe)
{
    // In text mode a line feed would get a carriage return, and 1A would be the end.
    const QByteArray bytes = ToolTest::Plain(ToolTest::NamedArea("a\n\x1A\r\n\nz"));
    const ToolRun plain = RunTool({"convert", "-", "-", "--to", "plain"}, {bytes, {}, {}});
    EXPECT_EQ(plain.exitCode, 0) << plain.errors.toStdString();
    EXPECT_BYTES(plain.output, bytes);
}

TEST(ToolOnWindows, LinesEndByALineFeedAlone)
{
    const Scratch scratch;
    const QString in = scratch.Write("in", FullPlain());
    EXPECT_EQ(RunTool({"convert", in, scratch.Path("out"), "--to", "xml"}).exitCode, 0);
    EXPECT_BYTES(scratch.Read("out"), FullXml());
    const ToolRun run = RunTool({"show", in});
    EXPECT_TRUE(run.output.contains('\n'));
    EXPECT_FALSE(run.output.contains('\r'));
}

// --- What can't be done

TEST(ToolOnWindows, FileThatAnotherProgramHoldsOpenIsToldAndLeft)
{
    const Scratch scratch;
    scratch.Write("in", FullXml());
    const QString out = scratch.Write("out", OLD_CONTENT);
    {
        const Handle held(HoldOpen(out, FILE_SHARE_READ));
        ASSERT_TRUE(held.IsOpen());
        ExpectToldInWords(RunTool({"convert", "in", "out", "--to", "xml"}, {{}, scratch.Folder(), {}}),
                          QStringLiteral("out"));
    }
    EXPECT_BYTES(scratch.Read("out"), QByteArray(OLD_CONTENT));
    EXPECT_EQ(scratch.Names(), QStringList({QStringLiteral("in"), QStringLiteral("out")}));
    EXPECT_EQ(RunTool({"convert", "in", "out", "--to", "xml"}, {{}, scratch.Folder(), {}}).exitCode, 0);
    EXPECT_BYTES(scratch.Read("out"), FullXml());
}

TEST(ToolOnWindows, FileThatAnotherProgramKeepsForItselfCannotBeRead)
{
    const Scratch scratch;
    const QString in = scratch.Write("in", FullXml());
    const Handle held(HoldOpen(in, 0));
    ASSERT_TRUE(held.IsOpen());
    ExpectToldInWords(RunTool({"check", in}), in);
}

TEST(ToolOnWindows, FileThatMayOnlyBeReadIsToldAndLeft)
{
    const Scratch scratch;
    scratch.Write("in", FullXml());
    const QString out = scratch.Write("out", OLD_CONTENT);
    ASSERT_TRUE(QFile::setPermissions(out, QFileDevice::ReadOwner | QFileDevice::ReadUser));
    ExpectToldInWords(RunTool({"convert", "in", "out", "--to", "xml"}, {{}, scratch.Folder(), {}}),
                      QStringLiteral("out"));
    EXPECT_BYTES(scratch.Read("out"), QByteArray(OLD_CONTENT));
    EXPECT_EQ(scratch.Names(), QStringList({QStringLiteral("in"), QStringLiteral("out")}));
    QFile::setPermissions(out, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

TEST(ToolOnWindows, InputBeyondTheCeilingIsRefused)
{
    const Scratch scratch;
    QFile large(scratch.Write("large", {}));
    ASSERT_TRUE(large.resize(qint64(256) * 1024 * 1024 + 1));
    EXPECT_UNUSABLE(RunTool({"check", large.fileName()}),
                    large.fileName() + QStringLiteral(": holds more than 268435456 bytes"));
}

/// Runs the program with a standard output that nobody reads any more.
ToolRun RunIntoClosedPipe(const QStringList& arguments, const QByteArray& input)
{
    HANDLE reading = INVALID_HANDLE_VALUE;
    HANDLE writing = INVALID_HANDLE_VALUE;
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    EXPECT_NE(CreatePipe(&reading, &writing, &inherited, 0), 0);
    CloseHandle(reading);

    QProcess process;
    process.setCreateProcessArgumentsModifier(
        [writing](QProcess::CreateProcessArguments* given) { given->startupInfo->hStdOutput = writing; });
    process.start(QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL), arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(60 * 1000));
    CloseHandle(writing);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

TEST(ToolOnWindows, ShowTellsWhenNobodyReadsStandardOutput)
{
    ExpectToldInWords(RunIntoClosedPipe({QStringLiteral("show"), QStringLiteral("-")}, FullPlain()),
                      QStringLiteral("standard output"));
}

TEST(ToolOnWindows, ConvertTellsWhenNobodyReadsStandardOutput)
{
    ExpectToldInWords(RunIntoClosedPipe({QStringLiteral("convert"), QStringLiteral("-"), QStringLiteral("-"),
                                         QStringLiteral("--to"), QStringLiteral("xml")},
                                        FullPlain()),
                      QStringLiteral("-"));
}

TEST(ToolOnWindows, ExportTellsWhenNobodyReadsStandardOutput)
{
    ExpectToldInWords(RunIntoClosedPipe({QStringLiteral("export"), QStringLiteral("-"),
                                         QStringLiteral("--to"), QStringLiteral("csv")},
                                        FullPlain()),
                      QStringLiteral("-"));
}

} // namespace

#endif
