#include "samples.h"
#include "toolrun.h"

#include "support/records.h"
#include "support/vectors.h"

#include <gtest/gtest.h>

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace {

using Support::ByteArray;
using Support::Bytes;
using Support::Element;
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

ToolRun ShowInput(const QByteArray& input)
{
    return RunTool({"show", "-"}, {input, {}, {}});
}

/// What `show --json` tells of one report.
QJsonObject JsonOf(const QByteArray& input)
{
    const ToolRun run = RunTool({"show", "--json", "-"}, {input, {}, {}});
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(run.output, &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    EXPECT_EQ(document.array().size(), 1);
    return document.array().at(0).toObject();
}

QJsonObject ObjectAt(const QJsonObject& json, const char* key)
{
    return json.value(QLatin1String(key)).toObject();
}

bool IsNull(const QJsonObject& json, const char* key)
{
    return json.contains(QLatin1String(key)) && json.value(QLatin1String(key)).isNull();
}

double NumberAt(const QJsonObject& json, const char* key)
{
    EXPECT_TRUE(json.value(QLatin1String(key)).isDouble()) << key;
    return json.value(QLatin1String(key)).toDouble();
}

QString TextAt(const QJsonObject& json, const char* key)
{
    EXPECT_TRUE(json.value(QLatin1String(key)).isString()) << key;
    return json.value(QLatin1String(key)).toString();
}

/// An area of so many points, from 1 east 1 north on in steps of a degree.
QByteArray AreaOfPoints(int count)
{
    QByteArray xml = "<ReportBase><Area Version=\"1.0\"><Name>Line</Name>";
    for (int i = 1; i <= count; ++i) {
        const QByteArray number = QByteArray::number(i);
        xml += "<Coordinate><Longitude>" + number + "</Longitude><Latitude>" + number +
               "</Latitude></Coordinate>";
    }
    return xml + "</Area></ReportBase>";
}

// --- For people

TEST(ToolShow, TellsAllFieldsOfAReport)
{
    const ToolRun run = ShowInput(FullPlain());
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_TEXT(run.Output(), "-:\n"
                              "    form:              plain representation\n"
                              "    size:              340 bytes\n"
                              "    name:              \"ReportBase\"\n"
                              "    frequency:\n"
                              "        value:         121500000\n"
                              "        min:           117975000\n"
                              "        max:           137000000\n"
                              "        use:           true\n"
                              "    IF bandwidth:\n"
                              "        value:         8333.33\n"
                              "        min:           not set\n"
                              "        max:           not set\n"
                              "    area:\n"
                              "        name:          \"Zürichsee\"\n"
                              "        version:       \"1.0\"\n"
                              "        script ID:     \"VHF-1215\"\n"
                              "        longitude:     8.54 to 8.685\n"
                              "        latitude:      47.258 to 47.36\n"
                              "        coordinates:   2\n"
                              "            1:         8.54 47.36\n"
                              "            2:         8.685 47.258\n"
                              "    problems:          none\n");
}

TEST(ToolShow, TellsTheSameInEveryLocale)
{
    const ToolRun plain = RunTool({"show", "-"}, {FullPlain(), {}, QStringLiteral("C")});
    EXPECT_TEXT(plain.Output(), ShowInput(FullPlain()).Output());
}

TEST(ToolShow, NamesTheFormOfEveryFile)
{
    const Scratch scratch;
    const ToolRun run =
        RunTool({"show", scratch.Write("a", FullXml()), scratch.Write("b", FullPlain()),
                 scratch.Write("c", FullCompressed()), scratch.Write("d", InFile(FullPlain())),
                 scratch.Write("e", InFile(FullCompressed()))});
    EXPECT_EQ(run.exitCode, 0);
    const QStringList lines =
        run.Output().split(QLatin1Char('\n')).filter(QStringLiteral("    form:              "));
    EXPECT_TEXT(lines.join(QLatin1Char('\n')),
                "    form:              XML\n"
                "    form:              plain representation\n"
                "    form:              compressed representation\n"
                "    form:              binary file with a plain representation\n"
                "    form:              binary file with a compressed representation");
    EXPECT_TRUE(run.Output().contains(QStringLiteral("\n\n%1:\n").arg(scratch.Path("b"))));
}

TEST(ToolShow, TellsWhatAnIncompleteReportHasAndWhatItLacks)
{
    const ToolRun run = ShowInput("<ReportBase><Frequency Use=\"no\">x</Frequency><Area Version=\"1.0\">\n"
                                  "<Coordinate><Longitude>200</Longitude></Coordinate></Area></ReportBase>");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_TEXT(
        run.Output(),
        "-:\n"
        "    form:              XML\n"
        "    size:              137 bytes\n"
        "    name:              \"ReportBase\"\n"
        "    frequency:\n"
        "        value:         0\n"
        "        min:           not set\n"
        "        max:           not set\n"
        "        use:           true\n"
        "    IF bandwidth:      not present\n"
        "    area:\n"
        "        name:          not set\n"
        "        version:       \"1.0\"\n"
        "        script ID:     not set\n"
        "        longitude:     none\n"
        "        latitude:      none\n"
        "        coordinates:   1\n"
        "            1:         200 not set  (invalid)\n"
        "    problems:          3\n"
        "        OutOfRangeException: Parameters for m_longitude are not set within range (-180, 180) in "
        "'Coordinate'. (line 2, column 24: area.coordinate[1].longitude = \"200\")\n"
        "        OutOfRangeException: Area: Please set Name properly. (line 1, column 46: area.name)\n"
        "        OutOfRangeException: Coordinate: Please set Latitude properly. "
        "(line 2, column 1: area.coordinate[1].latitude)\n");
}

TEST(ToolShow, TellsWhatComesBeforeTheDamage)
{
    const ToolRun run = ShowInput("<ReportBase><Frequency>5.00</Frequency><Area Version=\"1.0\"><Name>Lake");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.output.contains("        value:         5\n"));
    EXPECT_TRUE(
        run.output.contains("        RGException:   Premature end of document. (line 1, column 70)\n"));
}

TEST(ToolShow, TellsTheLittleThatIsKnownOfNoReport)
{
    const ToolRun run = ShowInput("hello");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "-:\n"
                              "    form:              unknown\n"
                              "    size:              5 bytes\n"
                              "    name:              none\n"
                              "    frequency:         not present\n"
                              "    IF bandwidth:      not present\n"
                              "    area:              not present\n"
                              "    problems:          1\n"
                              "        UnknownForm:   not a report in any known form\n");
}

TEST(ToolShow, ShowsOnlyTheFirstPointsUnlessAskedForAll)
{
    const QByteArray xml = AreaOfPoints(12);
    const ToolRun some = ShowInput(xml);
    EXPECT_TRUE(some.output.contains("        coordinates:   12\n"
                                     "            1:         1 1\n"
                                     "            2:         2 2\n"
                                     "            3:         3 3\n"
                                     "            4:         4 4\n"
                                     "            ...:       8 more (--all shows them)\n"
                                     "    problems:          none\n"));
    EXPECT_TRUE(some.output.contains("        longitude:     1 to 12\n"));

    const ToolRun all = RunTool({"show", "--all", "-"}, {xml, {}, {}});
    EXPECT_TRUE(all.output.contains("            11:        11 11\n"
                                    "            12:        12 12\n"
                                    "    problems:          none\n"));
    EXPECT_FALSE(all.output.contains("more"));
}

TEST(ToolShow, TextsAreShownWithoutControlCharacters)
{
    const ToolRun run = ShowInput(Plain(NamedArea("a\n\x1B[2J\"b\\\xE2\x80\x8B")));
    EXPECT_TRUE(run.output.contains("        name:          \"a\\n\\u001b[2J\\\"b\\\\\\u200b\"\n"))
        << run.output.toStdString();
}

TEST(ToolShow, GreatestExitCodeOfSeveralFilesCounts)
{
    const Scratch scratch;
    const QString good = scratch.Write("good", FullPlain());
    const QString empty = scratch.Write("empty", {});
    EXPECT_EQ(RunTool({"show", good, good}).exitCode, 0);
    EXPECT_EQ(RunTool({"show", empty, good}).exitCode, 1);
    const ToolRun run = RunTool({"show", scratch.Path("missing"), empty, good});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Errors(), QStringLiteral("reporttool: %1: no such file\n").arg(scratch.Path("missing")));
    EXPECT_TRUE(run.Output().contains(good));
}

#ifdef Q_OS_LINUX
TEST(ToolShow, TellsWhenStandardOutputIsFull)
{
    const ToolRun run =
        ToolTest::RunProgram(QStringLiteral("/bin/sh"),
                             {QStringLiteral("-c"), QStringLiteral("exec \"$0\" show - >/dev/full"),
                              QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL)},
                             ToolTest::PlainLocale(FullPlain()));
    EXPECT_UNUSABLE(run, "standard output: No space left on device");
}
#endif

// --- As JSON

TEST(ToolShowJson, HoldsAllValues)
{
    for (const QByteArray& input : {FullXml(), FullPlain(), FullCompressed(), InFile(FullPlain())}) {
        const QJsonObject json = JsonOf(input);
        EXPECT_TEXT(TextAt(json, "file"), "-");
        EXPECT_TRUE(IsNull(json, "error"));
        EXPECT_EQ(NumberAt(json, "size"), input.size());
        EXPECT_TEXT(TextAt(json, "name"), "ReportBase");
        EXPECT_TRUE(json.value(QLatin1String("valid")).toBool(false));
        EXPECT_TRUE(json.value(QLatin1String("problems")).isArray());
        EXPECT_TRUE(json.value(QLatin1String("problems")).toArray().isEmpty());

        const QJsonObject frequency = ObjectAt(json, "frequency");
        EXPECT_EQ(NumberAt(frequency, "value"), 121500000.0);
        EXPECT_EQ(NumberAt(frequency, "min"), 117975000.0);
        EXPECT_EQ(NumberAt(frequency, "max"), 137000000.0);
        EXPECT_TRUE(frequency.value(QLatin1String("use")).toBool(false));

        const QJsonObject bandwidth = ObjectAt(json, "ifBandwidth");
        EXPECT_EQ(NumberAt(bandwidth, "value"), 8333.33);
        EXPECT_TRUE(IsNull(bandwidth, "min"));
        EXPECT_TRUE(IsNull(bandwidth, "max"));

        const QJsonObject area = ObjectAt(json, "area");
        EXPECT_TEXT(TextAt(area, "name"), "Zürichsee");
        EXPECT_TEXT(TextAt(area, "version"), "1.0");
        EXPECT_TEXT(TextAt(area, "scriptId"), "VHF-1215");
        const QJsonObject bounds = ObjectAt(area, "bounds");
        EXPECT_EQ(NumberAt(bounds, "west"), 8.54);
        EXPECT_EQ(NumberAt(bounds, "east"), 8.685);
        EXPECT_EQ(NumberAt(bounds, "south"), 47.258);
        EXPECT_EQ(NumberAt(bounds, "north"), 47.36);
        const QJsonArray points = area.value(QLatin1String("coordinates")).toArray();
        ASSERT_EQ(points.size(), 2);
        EXPECT_EQ(NumberAt(points.at(0).toObject(), "longitude"), 8.54);
        EXPECT_EQ(NumberAt(points.at(1).toObject(), "latitude"), 47.258);
    }
}

TEST(ToolShowJson, NamesTheForm)
{
    EXPECT_TEXT(TextAt(JsonOf(FullXml()), "form"), "xml");
    EXPECT_TEXT(TextAt(JsonOf(FullPlain()), "form"), "plain");
    EXPECT_TEXT(TextAt(JsonOf(FullCompressed()), "form"), "compressed");
    EXPECT_TRUE(IsNull(JsonOf(FullCompressed()), "representation"));
    EXPECT_TEXT(TextAt(JsonOf(InFile(FullPlain())), "form"), "file");
    EXPECT_TEXT(TextAt(JsonOf(InFile(FullPlain())), "representation"), "plain");
    EXPECT_TEXT(TextAt(JsonOf(InFile(FullCompressed())), "representation"), "compressed");
    EXPECT_TEXT(TextAt(JsonOf("?"), "form"), "unknown");
}

TEST(ToolShowJson, HoldsAllPointsWithoutBeingAsked)
{
    const QJsonObject area = ObjectAt(JsonOf(AreaOfPoints(12)), "area");
    const QJsonArray points = area.value(QLatin1String("coordinates")).toArray();
    ASSERT_EQ(points.size(), 12);
    EXPECT_EQ(NumberAt(points.at(11).toObject(), "longitude"), 12.0);
}

TEST(ToolShowJson, GivesWhatIsNoNumberAsText)
{
    const QJsonObject frequency = ObjectAt(
        JsonOf("<ReportBase><Frequency Min=\"-inf\" Max=\"inf\">nan</Frequency></ReportBase>"), "frequency");
    EXPECT_TEXT(TextAt(frequency, "min"), "-inf");
    EXPECT_TEXT(TextAt(frequency, "max"), "inf");
    EXPECT_TEXT(TextAt(frequency, "value"), "nan");
    EXPECT_TRUE(IsNull(frequency, "use"));
}

TEST(ToolShowJson, ListsTheProblemsWithTheirLines)
{
    const QJsonObject json = JsonOf("<ReportBase>\n<Area Version=\"1.0\">\n<Extra/></Area></ReportBase>");
    EXPECT_FALSE(json.value(QLatin1String("valid")).toBool(true));
    const QJsonArray problems = json.value(QLatin1String("problems")).toArray();
    ASSERT_EQ(problems.size(), 3);
    const QJsonObject first = problems.at(0).toObject();
    EXPECT_TEXT(TextAt(first, "name"), "InvalidXmlException");
    EXPECT_TEXT(TextAt(first, "text"), "Unknown Tag 'Extra' in 'Area'.");
    EXPECT_EQ(NumberAt(first, "line"), 3.0);
    EXPECT_EQ(NumberAt(first, "column"), 1.0);
    EXPECT_TRUE(IsNull(first, "offset"));
    EXPECT_TEXT(TextAt(first, "path"), "area");
    EXPECT_TRUE(IsNull(first, "value"));
    const QJsonObject second = problems.at(1).toObject();
    EXPECT_EQ(NumberAt(second, "line"), 2.0);
    EXPECT_TEXT(TextAt(second, "path"), "area.name");
    EXPECT_TRUE(IsNull(ObjectAt(json, "area"), "name"));
    EXPECT_TRUE(IsNull(ObjectAt(json, "area"), "bounds"));
    EXPECT_TRUE(IsNull(ObjectAt(json, "area"), "coordinates"));
}

TEST(ToolShowJson, HasTheSameKeysForEveryFile)
{
    const Scratch scratch;
    const ToolRun run = RunTool({"show", "--json", scratch.Write("full", FullPlain()),
                                 scratch.Write("no", "x"), scratch.Path("missing")});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Errors(), QStringLiteral("reporttool: %1: no such file\n").arg(scratch.Path("missing")));
    const QJsonArray json = QJsonDocument::fromJson(run.output).array();
    ASSERT_EQ(json.size(), 3);
    const QStringList keys = json.at(0).toObject().keys();
    EXPECT_TEXT(keys.join(QLatin1Char(' ')),
                "area error file form frequency ifBandwidth name problems representation size valid");
    EXPECT_EQ(json.at(1).toObject().keys(), keys);
    EXPECT_EQ(json.at(2).toObject().keys(), keys);
    EXPECT_TEXT(TextAt(json.at(2).toObject(), "error"), "no such file");
    EXPECT_TRUE(IsNull(json.at(2).toObject(), "valid"));
}

// --- With a dump

/// What `show --dump` writes behind the description.
QString DumpOf(const QByteArray& input)
{
    const QString output = RunTool({"show", "--dump", "-"}, {input, {}, {}}).Output();
    const auto begin = output.indexOf(QLatin1String("\n\n"));
    return begin < 0 ? QString() : output.mid(begin + 2);
}

/// The lines of a golden vector that stand for bytes.
QString LinesOfVector(const char* path)
{
    const Support::Vector vector = Support::LoadVector(QLatin1String(path));
    QFile file(QStringLiteral(REPORTGENERATOR_TEST_VECTORS) + QLatin1Char('/') + vector.path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QString lines;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        if (!line.isEmpty() && !line.startsWith(QLatin1Char('#')))
            lines += line + QLatin1Char('\n');
    }
    return lines;
}

TEST(ToolShowDump, IsTheHandWrittenAnnotationOfAPlainRepresentation)
{
    EXPECT_TEXT(DumpOf(FullPlain()), LinesOfVector("reportbase/frequency_bandwidth_area.hex"));
}

TEST(ToolShowDump, IndentsTheContentOfABinaryFile)
{
    const Bytes frequency = Element(Tag::REPORT_FREQUENCY, Element(Tag::FREQUENCY_USE, Support::Bool(false)));
    EXPECT_TEXT(
        DumpOf(InFile(Plain(frequency))),
        "0000  00 00 00 47                                      size: representation, bytes that follow\n"
        "0004  00 00 00 12                                        size: marker, bytes of UTF-16 that follow\n"
        "0008  00 49 00 52 00 47 00 4f 00 62 00 6a 00 65 00 63      text: \"IRGObjec\"\n"
        "0018  00 74                                                ... \"t\"\n"
        "001a  00 00 00 14                                        size: object name, bytes of UTF-16 that "
        "follow\n"
        "001e  00 52 00 65 00 70 00 6f 00 72 00 74 00 42 00 61      text: \"ReportBa\"\n"
        "002e  00 73 00 65                                          ... \"se\"\n"
        "0032  00 00 00 01                                        tag: root\n"
        "0036  00 00 00 11                                        length: bytes of elements\n"
        "003a  cf 45 2a da                                          tag: frequency\n"
        "003e  00 00 00 09                                          length: bytes of frequency\n"
        "0042  aa 39 c7 31                                            tag: use\n"
        "0046  00 00 00 01                                            length: bytes of use\n"
        "004a  00                                                       bool: false\n");
}

TEST(ToolShowDump, AddsTheUncompressedFieldsWithOffsetsOfTheirOwn)
{
    const Bytes frequency = Element(Tag::REPORT_FREQUENCY, Element(Tag::FREQUENCY_USE, Support::Bool(true)));
    // Stored data: prefix, two bytes of zlib's header, five of the block's, the body, four of the checksum.
    EXPECT_TEXT(
        DumpOf(Support::CompressedRepresentation(u"ReportBase", frequency).Data())

            .section(QLatin1Char('\n'), 7, 8),
        "0040  00 00 00 28                                      size: compressed data, bytes that follow\n"
        "0044  00 00 00 19                                        prefix: bytes when uncompressed");
    EXPECT_TEXT(DumpOf(Support::CompressedRepresentation(u"ReportBase", frequency).Data())
                    .section(QLatin1String("# uncompressed\n"), 1),
                "0000  00 00 00 01                                      tag: root\n"
                "0004  00 00 00 11                                      length: bytes of elements\n"
                "0008  cf 45 2a da                                        tag: frequency\n"
                "000c  00 00 00 09                                        length: bytes of frequency\n"
                "0010  aa 39 c7 31                                          tag: use\n"
                "0014  00 00 00 01                                          length: bytes of use\n"
                "0018  01                                                     bool: true\n");
}

/// The dump from the first element on.
QString ElementsOf(const Bytes& elements)
{
    return DumpOf(Plain(elements)).section(QLatin1String("bytes of elements\n"), 1);
}

TEST(ToolShowDump, MarksALengthThatIsLongerThanWhatThereIs)
{
    EXPECT_TEXT(
        ElementsOf(Support::ElementOfLength(Tag::REPORT_FREQUENCY, 1000,
                                            Element(Tag::FREQUENCY_USE, Support::Bool(true)))),
        "0036  cf 45 2a da                                        tag: frequency\n"
        "003a  00 00 03 e8                                        length!: bytes of frequency: 1000 claimed, "
        "9 left\n"
        "003e  aa 39 c7 31                                          tag: use\n"
        "0042  00 00 00 01                                          length: bytes of use\n"
        "0046  01                                                     bool: true\n");
}

TEST(ToolShowDump, MarksANegativeLengthAndWhatFollowsItIsStillShown)
{
    EXPECT_TEXT(
        ElementsOf(Support::ElementOfLength(0x11223344, -1, Support::Raw("ab"))),
        "0036  11 22 33 44                                        tag: unknown element\n"
        "003a  ff ff ff ff                                        length!: bytes of unknown element: -1 "
        "claimed, 2 left\n"
        "003e  61 62                                                bytes: payload\n");
}

TEST(ToolShowDump, MarksWhatIsNoPartOfAnElement)
{
    EXPECT_TEXT(
        ElementsOf(Element(Tag::REPORT_FREQUENCY,
                           Element(Tag::FREQUENCY_USE, Support::Bool(true) + Support::Raw("xy")) +
                               Support::Raw("z"))),
        "0036  cf 45 2a da                                        tag: frequency\n"
        "003a  00 00 00 0c                                        length: bytes of frequency\n"
        "003e  aa 39 c7 31                                          tag: use\n"
        "0042  00 00 00 03                                          length: bytes of use\n"
        "0046  01                                                     bool: true\n"
        "0047  78 79                                                  bytes!: bytes that are no part of use\n"
        "0049  7a                                                   bytes!: too few bytes for an element\n");
}

TEST(ToolShowDump, MarksACountOfMoreCoordinatesThanThereAre)
{
    EXPECT_TEXT(
        ElementsOf(Element(Tag::REPORT_AREA, Element(Tag::AREA_NAME, Support::NullByteArray()) +
                                                 Element(Tag::AREA_COORDINATES,
                                                         Support::Int32(0x7FFFFFFF) + Support::Int32(0)))),
        "0036  a8 38 be 37                                        tag: area\n"
        "003a  00 00 00 1c                                        length: bytes of area\n"
        "003e  8c 9f bc a8                                          tag: name\n"
        "0042  00 00 00 04                                          length: bytes of name\n"
        "0046  ff ff ff ff                                            size: no name at all (null)\n"
        "004a  6f 69 08 3f                                          tag: coordinates\n"
        "004e  00 00 00 08                                          length: bytes of coordinates\n"
        "0052  7f ff ff ff                                            count: coordinates that follow\n"
        "0056  00 00 00 00                                              length: bytes of coordinate 1\n"
        "005a                                                           bytes!: 2147483647 coordinates "
        "claimed, 1 "
        "there\n");
}

TEST(ToolShowDump, MarksWhatStandsBehindTheEnd)
{
    const QString dump = DumpOf(FullPlain() + QByteArray(17, 'x'));
    EXPECT_TEXT(dump.section(QLatin1String("text: \"VHF-1215\"\n"), 1),
                "0154  78 78 78 78 78 78 78 78 78 78 78 78 78 78 78 78  bytes!: 17 bytes behind the end\n"
                "0164  78                                               ...\n");
}

TEST(ToolShowDump, CharactersAreNotTornApartAndControlCharactersNotShown)
{
    // Byte 16 would be the second one of the "ü".
    EXPECT_TEXT(
        ElementsOf(
            Element(Tag::REPORT_AREA, Element(Tag::AREA_NAME, ByteArray("0123456789abcd\x1B\xC3\xBC")))),
        "0036  a8 38 be 37                                        tag: area\n"
        "003a  00 00 00 1d                                        length: bytes of area\n"
        "003e  8c 9f bc a8                                          tag: name\n"
        "0042  00 00 00 15                                          length: bytes of name\n"
        "0046  00 00 00 11                                            size: name, bytes of UTF-8 that "
        "follow\n"
        "004a  30 31 32 33 34 35 36 37 38 39 61 62 63 64 1b             text: \"0123456789abcd\\u001b\"\n"
        "0059  c3 bc                                                    ... \"ü\"\n");
}

TEST(ToolShowDump, KnowsTheElementsOfOtherObjects)
{
    const QString dump = DumpOf(
        Support::Representation(u"Frequency", Element(Tag::FREQUENCY_USE, Support::Bool(true))).Data());
    EXPECT_TRUE(dump.contains(QLatin1String("tag: use\n")));
    EXPECT_TRUE(dump.contains(QLatin1String("bool: true\n")));
}

TEST(ToolShowDump, XmlHasNone)
{
    const ToolRun run = RunTool({"show", "--dump", "-"}, {NamedAreaXml("Lake"), {}, {}});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), ShowInput(NamedAreaXml("Lake")).Output());
}

} // namespace
