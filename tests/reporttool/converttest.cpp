#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace {

using ToolTest::FullBody;
using ToolTest::FullCompressed;
using ToolTest::FullPlain;
using ToolTest::FullXml;
using ToolTest::InFile;
using ToolTest::NamedArea;
using ToolTest::NamedAreaXml;
using ToolTest::Plain;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char OLD_CONTENT[] = "what was there before";

/// Marker, object name and size in front of the compressed data of a report.
constexpr int FRAME_OF_COMPRESSED = 4 + 36 + 4 + 20 + 4;

/// What a compressed representation of a report holds; a failed expectation if it is none.
QByteArray BodyOf(const QByteArray& compressed)
{
    EXPECT_BYTES(compressed.left(FRAME_OF_COMPRESSED - 4), FullCompressed().left(FRAME_OF_COMPRESSED - 4));
    const QByteArray data = compressed.mid(FRAME_OF_COMPRESSED);
    EXPECT_BYTES(compressed.mid(FRAME_OF_COMPRESSED - 4, 4),
                 Support::Int32(static_cast<long long>(data.size())).Data());
    return qUncompress(data);
}

/// Converts with these arguments and expects success without a word. Returns what was written.
QByteArray Converted(const QByteArray& input, std::initializer_list<const char*> options)
{
    const Scratch scratch;
    QStringList arguments{QStringLiteral("convert"), scratch.Write("in", input), scratch.Path("out")};
    for (const char* option : options)
        arguments << QLatin1String(option);
    const ToolRun run = ToolTest::RunProgram(QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL), arguments, {});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_EQ(scratch.Names(), QStringList({QStringLiteral("in"), QStringLiteral("out")}));
    return scratch.Read("out");
}

TEST(ToolConvert, WritesEveryFormFromEveryForm)
{
    for (const QByteArray& input :
         {FullXml(), FullPlain(), FullCompressed(), InFile(FullPlain()), InFile(FullCompressed())}) {
        EXPECT_BYTES(Converted(input, {"--to", "xml"}), FullXml());
        EXPECT_BYTES(Converted(input, {"--to", "plain"}), FullPlain());
        EXPECT_BYTES(BodyOf(Converted(input, {"--to", "compressed"})), FullBody());
        EXPECT_BYTES(Converted(input, {"--to", "file"}), InFile(FullPlain()));
    }
}

TEST(ToolConvert, TakesEveryLevel)
{
    for (const char* level : {"-1", "0", "1", "2", "3", "4", "5", "6", "7", "8", "9"})
        EXPECT_BYTES(BodyOf(Converted(FullXml(), {"--to", "compressed", "--level", level})), FullBody())
            << level;
}

TEST(ToolConvert, LevelDecidesAboutTheSize)
{
    const QByteArray stored = Converted(FullXml(), {"--to", "compressed", "--level", "0"});
    EXPECT_BYTES(stored.mid(FRAME_OF_COMPRESSED), FullCompressed().mid(FRAME_OF_COMPRESSED));
    EXPECT_LT(Converted(FullXml(), {"--to", "compressed", "--level=9"}).size(), stored.size());
}

TEST(ToolConvert, BinaryFileWithALevelIsCompressed)
{
    const QByteArray file = Converted(FullXml(), {"--to", "file", "--level", "-1"});
    EXPECT_BYTES(file.left(4), Support::Int32(static_cast<long long>(file.size() - 4)).Data());
    EXPECT_BYTES(BodyOf(file.mid(4)), FullBody());
}

TEST(ToolConvert, StandardStreamsCarryBytesAsTheyAre)
{
    const ToolRun toFile = RunTool({"convert", "-", "-", "--to", "file"}, {FullXml(), {}, {}});
    EXPECT_EQ(toFile.exitCode, 0);
    EXPECT_BYTES(toFile.output, InFile(FullPlain()));
    EXPECT_TEXT(toFile.Errors(), "");

    const ToolRun toXml = RunTool({"convert", "-", "-", "--to", "xml"}, {toFile.output, {}, {}});
    EXPECT_BYTES(toXml.output, FullXml());
}

TEST(ToolConvert, InputMayBeReplacedByItsOwnConversion)
{
    const Scratch scratch;
    const QString path = scratch.Write("report", FullXml());
    EXPECT_EQ(RunTool({"convert", path, path, "--to", "plain"}).exitCode, 0);
    EXPECT_BYTES(scratch.Read("report"), FullPlain());
}

#ifdef Q_OS_UNIX
TEST(ToolConvert, LinkStaysALink)
{
    const Scratch scratch;
    const QString in = scratch.Write("in", FullXml());
    const QString target = scratch.Write("target", OLD_CONTENT);
    ASSERT_TRUE(QFile::link(target, scratch.Path("link")));
    EXPECT_EQ(RunTool({"convert", in, scratch.Path("link"), "--to", "plain"}).exitCode, 0);
    EXPECT_TRUE(QFileInfo(scratch.Path("link")).isSymLink());
    EXPECT_BYTES(scratch.Read("target"), FullPlain());
}
#endif

// --- Nothing is written

/// Expects that converting `input` ends with 1, tells these lines and leaves the file as it is.
void ExpectRefusal(const QByteArray& input, const char* form, const QString& errors)
{
    const Scratch scratch;
    scratch.Write("in", input);
    scratch.Write("out", OLD_CONTENT);
    const ToolRun run = RunTool({"convert", "in", "out", "--to", form}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), errors);
    EXPECT_BYTES(scratch.Read("out"), QByteArray(OLD_CONTENT));
    EXPECT_EQ(scratch.Names(), QStringList({QStringLiteral("in"), QStringLiteral("out")}));
}

TEST(ToolConvert, InvalidReportLeavesTheOldFile)
{
    ExpectRefusal("", "xml",
                  QStringLiteral("reporttool: in: UnknownForm: not a report in any known form (empty)\n"));
    ExpectRefusal(
        "<ReportBase><Area/></ReportBase>", "plain",
        QStringLiteral(
            "reporttool: in:1:13: OutOfRangeException: Area: Please set Name properly. (area.name)\n"
            "reporttool: in:1:13: OutOfRangeException: Area: Please set Coordinate properly. "
            "(area.coordinate)\n"));
    ExpectRefusal(
        FullPlain().left(100), "file",
        QStringLiteral("reporttool: in:0x32: BinaryParsingException: Frequency::SetBinary(...): Length error "
                       "occurred during processing of binary representation\n"
                       "reporttool: in:0x32: LengthMismatch: length of elements: 286 claimed, 46 left\n"));
}

TEST(ToolConvert, TextThatAFormCannotHoldLeavesTheOldFile)
{
    // XML has no way to write a control character.
    ExpectRefusal(Plain(NamedArea("a\x01z")), "xml",
                  QStringLiteral("reporttool: out: this form would not keep the name of the area\n"));
    // The readers of the binary form take U+FEFF at the start for a byte order mark.
    ExpectRefusal(NamedAreaXml("&#xFEFF;a"), "plain",
                  QStringLiteral("reporttool: out: this form would not keep the name of the area\n"));
}

TEST(ToolConvert, FileThatCannotBeWrittenEndsWithTwo)
{
    const Scratch scratch;
    const QString in = scratch.Write("in", FullXml());
    const ToolRun run = RunTool({"convert", in, scratch.Path("missing/out"), "--to", "xml"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.Errors().startsWith(QStringLiteral("reporttool: %1: ").arg(scratch.Path("missing/out"))));
    EXPECT_UNUSABLE(RunTool({"convert", in, scratch.Folder(), "--to", "xml"}),
                    scratch.Folder() + QStringLiteral(": is a directory"));
    EXPECT_EQ(scratch.Names(), QStringList(QStringLiteral("in")));
}

TEST(ToolConvert, FileThatCannotBeReadLeavesTheOldFile)
{
    const Scratch scratch;
    const QString out = scratch.Write("out", OLD_CONTENT);
    const QString missing = scratch.Path("missing");
    EXPECT_UNUSABLE(RunTool({"convert", missing, out, "--to", "xml"}),
                    missing + QStringLiteral(": no such file"));
    EXPECT_BYTES(scratch.Read("out"), QByteArray(OLD_CONTENT));
}

#ifdef Q_OS_LINUX
TEST(ToolConvert, WriteThatFailsHalfwayLeavesTheOldFile)
{
    // No file may grow beyond a block of 512 bytes, and the XML of the report is longer. An instrumented
    // program can't write its profile either, which it need not tell.
    const Scratch scratch;
    scratch.Write("in", FullXml());
    scratch.Write("out", OLD_CONTENT);
    ASSERT_GT(FullXml().size(), 512);
    const ToolRun run =
        ToolTest::RunProgram(QStringLiteral("/bin/sh"),
                             {QStringLiteral("-c"),
                              QStringLiteral("export LC_ALL=C GCOV_ERROR_FILE=/dev/null; trap '' XFSZ; "
                                             "ulimit -f 1; exec \"$0\" convert in out --to xml"),
                              QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL)},
                             ToolTest::PlainLocale({}, scratch.Folder()));
    EXPECT_UNUSABLE(run, "out: File too large");
    EXPECT_BYTES(scratch.Read("out"), QByteArray(OLD_CONTENT));
    EXPECT_EQ(scratch.Names(), QStringList({QStringLiteral("in"), QStringLiteral("out")}));
}

TEST(ToolConvert, DeviceIsWrittenToAndNotReplaced)
{
    const Scratch scratch;
    const QString in = scratch.Write("in", FullXml());
    EXPECT_UNUSABLE(RunTool({"convert", in, "/dev/full", "--to", "xml"}, ToolTest::PlainLocale()),
                    "/dev/full: No space left on device");
    EXPECT_EQ(RunTool({"convert", in, "/dev/null", "--to", "xml"}).exitCode, 0);
    for (const char* device : {"/dev/full", "/dev/null"}) {
        const QFileInfo info(QString::fromLatin1(device));
        EXPECT_TRUE(info.exists() && !info.isFile()) << device;
    }
}

TEST(ToolConvert, FullStandardOutputEndsWithTwo)
{
    const ToolRun run = ToolTest::RunProgram(QStringLiteral("/bin/sh"),
                                             {QStringLiteral("-c"),
                                              QStringLiteral("exec \"$0\" convert - - --to xml >/dev/full"),
                                              QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL)},
                                             ToolTest::PlainLocale(FullXml()));
    EXPECT_UNUSABLE(run, "-: No space left on device");
}
#endif

} // namespace
