#include "samples.h"
#include "toolrun.h"

#include "support/records.h"
#include "support/vectors.h"

#include <gtest/gtest.h>

#include <QtCore/QRegularExpression>

#include <string>

namespace {

using Support::ByteArray;
using Support::Bytes;
using Support::Element;
using Support::ElementOfLength;
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
namespace Tag = Support::Tag;

/// What `check` prints for standard input.
ToolRun CheckInput(const QByteArray& input)
{
    return RunTool({"check", "--no-warnings", "-"}, {input, {}, {}});
}

/// Expects a report with these problems, each "Place: Name: text".
void ExpectProblems(const QByteArray& input, std::initializer_list<const char*> problems)
{
    QByteArray expected;
    for (const char* problem : problems)
        expected += QByteArray("-:") + problem + "\n";
    const ToolRun run = CheckInput(input);
    EXPECT_EQ(run.exitCode, problems.size() == 0 ? 0 : 1);
    EXPECT_TEXT(run.Output(), QString::fromUtf8(expected));
    EXPECT_TEXT(run.Errors(), "");
}

void ExpectGood(const QByteArray& input)
{
    ExpectProblems(input, {});
}

QByteArray Utf16(const QByteArray& ascii, bool bigEndian)
{
    QByteArray bytes;
    for (const char character : ascii) {
        bytes += bigEndian ? '\0' : character;
        bytes += bigEndian ? character : '\0';
    }
    return bytes;
}

// --- Good reports

TEST(ToolCheck, GoodReportsOfEveryFormGiveNothing)
{
    const Scratch scratch;
    const ToolRun run =
        RunTool({"check", "--no-warnings", scratch.Write("a", FullXml()), scratch.Write("b", FullPlain()),
                 scratch.Write("c", FullCompressed()), scratch.Write("d", InFile(FullPlain())),
                 scratch.Write("e", InFile(FullCompressed()))});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "5 files: 5 good, 0 invalid, 0 unreadable\n");
}

TEST(ToolCheck, NameOfTheFileDoesNotMatter)
{
    const Scratch scratch;
    EXPECT_EQ(RunTool({"check", scratch.Write("report.xml", FullCompressed())}).exitCode, 0);
    EXPECT_EQ(RunTool({"check", scratch.Write("report.bin", FullXml())}).exitCode, 0);
}

TEST(ToolCheck, ExampleReportsAreGood)
{
    const QString folder = QStringLiteral(REPORTGENERATOR_TEST_EXAMPLES "/reports/");
    const ToolRun run = RunTool({"check", folder + QStringLiteral("airband_emergency_lake.xml"),
                                 folder + QStringLiteral("fm_broadcast_country.xml"),
                                 folder + QStringLiteral("hf_dsc_narrow.xml")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "3 files: 3 good, 0 invalid, 0 unreadable\n");
}

TEST(ToolCheck, XmlMayBeInAnyEncoding)
{
    const QByteArray area = NamedAreaXml("Lake");
    ExpectGood("\xEF\xBB\xBF" + area);
    ExpectGood("\n \t\r\n" + area);
    ExpectGood("\xFE\xFF" + Utf16(area, true));
    ExpectGood("\xFF\xFE" + Utf16(area, false));
    ExpectGood(Utf16(area, true));
    ExpectGood(Utf16(area, false));
    ExpectGood("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + NamedAreaXml("Z\xFCrich"));
}

TEST(ToolCheck, ReportMayStandWithinOtherXml)
{
    ExpectGood("<Tasks><Task><ReportBase><Frequency>1.00</Frequency></ReportBase></Task></Tasks>");
}

TEST(ToolCheck, ElementsOfANewerWriterAreNoProblem)
{
    ExpectGood(Plain(Element(0x11223344, ByteArray("new")) + NamedArea("Lake")));
    ExpectGood("<ReportBase><Antenna>1</Antenna><Frequency>1.00</Frequency></ReportBase>");
}

// --- What the library tells

TEST(ToolCheck, GivesTheLibrarysProblemsOfMalformedReports)
{
    for (const QString& path : Support::VectorFiles()) {
        if (!path.startsWith(QLatin1String("reportbase/malformed/")) ||
            path.endsWith(QLatin1String(".error")))
            continue;
        const QByteArray input = path.endsWith(QLatin1String(".xml")) ? Support::LoadXmlVector(path).toUtf8()
                                                                      : Support::LoadVector(path).Data();
        const Support::ExpectedError error =
            Support::LoadError(path.left(path.lastIndexOf(QLatin1Char('.'))) + QLatin1String(".error"));
        const ToolRun run = CheckInput(input);
        EXPECT_EQ(run.exitCode, 1) << path.toStdString();
        const QString problem =
            QRegularExpression::escape(QStringLiteral("%1: %2").arg(error.name, error.text));
        const QRegularExpression line(
            QStringLiteral("\\A-:(?:[0-9]+:[0-9]+|0x[0-9a-f]+): %1(?: \\([a-zA-Z.]+\\))?\n").arg(problem));
        EXPECT_TRUE(line.match(run.Output()).hasMatch())
            << path.toStdString() << ": " << run.output.toStdString();
        EXPECT_TEXT(run.Errors(), "");
    }
}

TEST(ToolCheck, GivesAllProblemsOfAReport)
{
    ExpectProblems(
        "<ReportBase><Area Version=\"1.0\">"
        "<Coordinate><Longitude>180.5</Longitude><Latitude>47</Latitude></Coordinate>"
        "<Coordinate><Longitude>8</Longitude></Coordinate>"
        "</Area></ReportBase>",
        {"1:56: OutOfRangeException: Parameters for m_longitude are not set within range (-180, 180) in "
         "'Coordinate'. (area.coordinate[1].longitude = \"180.5\")",
         "1:13: OutOfRangeException: Area: Please set Name properly. (area.name)",
         "1:109: OutOfRangeException: Coordinate: Please set Latitude properly. "
         "(area.coordinate[2].latitude)"});
}

TEST(ToolCheck, GivesWhatFrequencyAndBandwidthLack)
{
    ExpectProblems(
        Plain(Element(Tag::REPORT_FREQUENCY, Bytes()) + Element(Tag::REPORT_IF_BANDWIDTH, Bytes())),
        {"0x36: OutOfRangeException: Frequency: Please set Value properly. (frequency.value)",
         "0x3e: OutOfRangeException: IFBandwidth: Please set Value properly. (ifBandwidth.value)"});
}

TEST(ToolCheck, GivesTheReadersErrorOfMalformedXmlOnce)
{
    ExpectProblems("<ReportBase><Area Version=\"1.0\"><Name>Lake",
                   {"1:43: RGException: Premature end of document."});
    ExpectProblems("<ReportBase", {"1:12: RGException: Premature end of document."});
}

// --- What the library passes over

TEST(ToolCheck, RefusesWhatIsInNoKnownForm)
{
    ExpectProblems("", {" UnknownForm: not a report in any known form (empty)"});
    ExpectProblems("x", {" UnknownForm: not a report in any known form"});
    ExpectProblems(" \n", {" UnknownForm: not a report in any known form"});
    ExpectProblems("Frequency;121500000", {" UnknownForm: not a report in any known form"});
    ExpectProblems(QByteArray("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16),
                   {" UnknownForm: not a report in any known form"});
}

TEST(ToolCheck, RefusesAnUnknownMarker)
{
    const Bytes otherMarker = Support::String(u"IRGObjectZip") + Support::String(u"ReportBase");
    ExpectProblems(otherMarker.Data(), {" UnknownForm: not a report in any known form"});
    ExpectProblems(InFile(otherMarker.Data()), {" UnknownForm: not a report in any known form"});
}

TEST(ToolCheck, RefusesWhatHoldsNoReport)
{
    ExpectProblems("<Task><Frequency>1.00</Frequency></Task>",
                   {"1:1: NoReport: there is no element 'ReportBase' (\"Task\")"});
    ExpectProblems(
        Support::Representation(u"Frequency", Element(Tag::FREQUENCY_VALUE, ByteArray("1.00"))).Data(),
        {"0x1a: NoReport: this is an object 'Frequency'"});
}

TEST(ToolCheck, RefusesWhatStandsBehindTheEnd)
{
    // The report begins at 0 and takes 340 bytes as a plain representation, which are 0x154.
    ASSERT_EQ(FullPlain().size(), 0x154);
    ExpectProblems(FullPlain() + "x", {"0x154: TrailingData: 1 bytes behind the end"});
    ExpectProblems(InFile(FullPlain()) + "xy", {"0x158: TrailingData: 2 bytes behind the end"});
    ExpectProblems(InFile(FullPlain() + "xy"), {"0x158: TrailingData: 2 bytes behind the end"});
    // The reader has read the character, which is the 14th.
    ExpectProblems(FullXml() + "x", {"17:15: TrailingData: Extra content at end of document."});
    ExpectProblems("<Task><ReportBase/>", {"1:20: TrailingData: Premature end of document."});
}

TEST(ToolCheck, RefusesWhatStandsBehindTheEndOfCompressedData)
{
    const QByteArray whole = FullCompressed();
    const QString end = QString::number(whole.size(), 16);
    const QByteArray line = QStringLiteral("0x%1: TrailingData: 3 bytes behind the end").arg(end).toUtf8();
    ExpectProblems(whole + "xyz", {line.constData()});

    const Bytes inner = Support::Int32(1, "tag") + Support::Int32(0, "length") + Support::Raw("xyz");
    const Bytes data = Support::ByteArrayOf(Support::Stored(inner));
    ExpectProblems((Support::String(u"IRGObjectQCompress") + Support::String(u"ReportBase") + data).Data(),
                   {"uncompressed:0x8: TrailingData: 3 bytes behind the end"});
}

TEST(ToolCheck, RefusesATruncatedRepresentationThatTheLibraryWouldTake)
{
    // All lengths add up, only the last four bytes of the script identifier are missing.
    ExpectProblems(FullPlain().left(0x150),
                   {"0x14c: OutOfRangeException: Area: Please set ScriptID properly (origin: Setter). "
                    "(area.scriptId = \"VHF-\")",
                    "0x32: LengthMismatch: length of elements: 286 claimed, 282 left"});
}

TEST(ToolCheck, RefusesABinaryFileWhoseSizeIsWrong)
{
    const QByteArray file = InFile(FullPlain());
    ExpectProblems(file.left(file.size() - 0x122),
                   {"0x0: LengthMismatch: size of representation: 340 claimed, 50 left"});
    const QByteArray huge = QByteArray("\x7F\xFF\xFF\xFF") + file.mid(4);
    ExpectProblems(huge, {"0x0: LengthMismatch: size of representation: 2147483647 claimed, 340 left"});
}

TEST(ToolCheck, RefusesAnObjectNameThatIsCutOff)
{
    ExpectProblems(FullPlain().left(0x1E), {"0x16: LengthMismatch: size of object name: 20 claimed, 4 left"});
    ExpectProblems(FullPlain().left(0x18),
                   {"0x16: LengthMismatch: too few bytes for the size of object name"});
}

TEST(ToolCheck, RefusesAReportWithoutRootElement)
{
    ExpectProblems(FullPlain().left(0x2E), {"0x2e: LengthMismatch: too few bytes for a root element"});
}

TEST(ToolCheck, RefusesDamagedCompressedData)
{
    QByteArray damaged = FullCompressed();
    // The first byte of the zlib stream, behind two texts, a size and the prefix.
    const int firstByte = 4 + 36 + 4 + 20 + 4 + 4;
    damaged[firstByte] = '\xFF';
    ExpectProblems(damaged, {"0x48: DamagedData: compressed data that cannot be uncompressed"});
    ExpectProblems(
        (Support::String(u"IRGObjectQCompress") + Support::String(u"ReportBase") + ByteArray("ab")).Data(),
        {"0x44: DamagedData: too few bytes for compressed data"});
    ExpectProblems((Support::String(u"IRGObjectQCompress") + Support::String(u"ReportBase")).Data(),
                   {"0x40: LengthMismatch: too few bytes for the size of compressed data"});
}

TEST(ToolCheck, ClaimsOfTwoGigabytesAreNotBelieved)
{
    QByteArray claiming = FullCompressed();
    const int prefix = 4 + 36 + 4 + 20 + 4;
    claiming.replace(prefix, 4, "\x7F\xFF\xFF\x00", 4);
    ExpectProblems(claiming,
                   {"0x44: LengthMismatch: bytes when uncompressed: 2147483392 claimed, 294 there"});
    ExpectProblems(
        Support::RepresentationOfLength(u"ReportBase", 0x7FFFFFFF, Bytes()).Data(),
        {"0x32: BinaryParsingException: ReportBase::SetBinary(...): Length error occurred during processing "
         "of binary representation",
         "0x32: LengthMismatch: length of elements: 2147483647 claimed, 0 left"});
    ExpectProblems(Plain(Element(Tag::REPORT_FREQUENCY,
                                 ElementOfLength(Tag::FREQUENCY_VALUE, 8,
                                                 Support::Int32(0x7FFFFFFF) + Support::Raw("1.00")))),
                   {"0x46: LengthMismatch: size of value: 2147483647 claimed, 4 left (frequency.value)"});
}

TEST(ToolCheck, DataThatMayUncompressToMoreThanTheCeilingAreRefusedUnread)
{
    // 300000 bytes may become 1032 times as many.
    const Bytes data = Support::Int32(0x7FFFFFFF, "prefix") + Support::Raw(std::string(300000, '\0'));
    ExpectProblems(
        (Support::String(u"IRGObjectQCompress") + Support::String(u"ReportBase") + Support::ByteArrayOf(data))
            .Data(),
        {"0x48: TooLarge: 2147483647 bytes when uncompressed"});
}

TEST(ToolCheck, RefusesALengthThatTheLibraryTolerates)
{
    // The value's element is the last of all and holds a byte that nobody reads.
    const Bytes value = Element(Tag::FREQUENCY_VALUE, ByteArray("1.00") + Support::Raw("x"));
    ExpectProblems(Plain(Element(Tag::REPORT_FREQUENCY, value)),
                   {"0x4e: LengthMismatch: bytes that are no part of value (frequency.value)"});
}

// --- Several files

TEST(ToolCheck, GreatestExitCodeOfSeveralFilesCounts)
{
    const Scratch scratch;
    const QString good = scratch.Write("good", FullPlain());
    const QString empty = scratch.Write("empty", {});
    const QString missing = scratch.Path("missing");
    const QString line = empty + QStringLiteral(": UnknownForm: not a report in any known form (empty)\n");

    const ToolRun invalid = RunTool({"check", "--no-warnings", good, empty, good});
    EXPECT_EQ(invalid.exitCode, 1);
    EXPECT_TEXT(invalid.Output(), line);
    EXPECT_TEXT(invalid.Errors(), "3 files: 2 good, 1 invalid, 0 unreadable\n");

    const ToolRun unusable = RunTool({"check", "--no-warnings", missing, empty, good});
    EXPECT_EQ(unusable.exitCode, 2);
    EXPECT_TEXT(unusable.Output(), line);
    EXPECT_TEXT(unusable.Errors(), QStringLiteral("reporttool: %1: no such file\n"
                                                  "3 files: 1 good, 1 invalid, 1 unreadable\n")
                                       .arg(missing));
}

// --- Files that cannot be read

TEST(ToolCheck, EndsWithTwoWhenThereIsNothingToRead)
{
    const Scratch scratch;
    const QString missing = scratch.Path("missing");
    EXPECT_UNUSABLE(RunTool({"check", missing}), missing + QStringLiteral(": no such file"));
    EXPECT_UNUSABLE(RunTool({"check", ""}), ": no such file");
    EXPECT_UNUSABLE(RunTool({"check", scratch.Folder()}),
                    scratch.Folder() + QStringLiteral(": is a directory"));
}

#ifdef Q_OS_LINUX
TEST(ToolCheck, EndsWithTwoWhenReadingFails)
{
    EXPECT_UNUSABLE(RunTool({"check", "/proc/self/mem"}, ToolTest::PlainLocale()),
                    "/proc/self/mem: Input/output error");
}

TEST(ToolCheck, InputWithoutEndIsRefusedAtTheCeiling)
{
    EXPECT_UNUSABLE(RunTool({"check", "/dev/zero"}), "/dev/zero: holds more than 268435456 bytes");
}

TEST(ToolCheck, FilesThatClaimToBeEmptyAreReadAllTheSame)
{
    const ToolRun run = RunTool({"check", "/proc/version"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "/proc/version: UnknownForm: not a report in any known form\n");
}
#endif

#ifdef Q_OS_UNIX
TEST(ToolCheck, NamesAreShownWithoutControlCharacters)
{
    const Scratch scratch;
    const QString path = scratch.Write("a\nb", {});
    const ToolRun run = RunTool({"check", path});
    EXPECT_TEXT(run.Output(), scratch.Path("a\\nb") +
                                  QStringLiteral(": UnknownForm: not a report in any known form (empty)\n"));
}
#endif

} // namespace
