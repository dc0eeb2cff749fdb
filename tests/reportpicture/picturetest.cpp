#include "reporttool/toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QXmlStreamReader>

namespace {

using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char LAKE[] =
    R"(<ReportBase><Frequency>121500000.00</Frequency><IFBandwidth>25000</IFBandwidth><Area><Name>Lake &lt;1&gt;</Name>)"
    "<Coordinate><Longitude>9</Longitude><Latitude>47.5</Latitude></Coordinate>"
    "<Coordinate><Longitude>10</Longitude><Latitude>47.5</Latitude></Coordinate>"
    "<Coordinate><Longitude>9.5</Longitude><Latitude>48</Latitude></Coordinate></Area></ReportBase>";

class ToolPicture : public testing::Test
{
protected:
    ToolPicture()
    {
        m_scratch.Write("lake.xml", LAKE);
        m_scratch.Write("empty.xml", "<ReportBase/>");
        m_scratch.Write("bad.xml", "<ReportBase><Area><Name>a</Name></Area></ReportBase>");
    }

    ToolRun Run(ToolTest::Arguments arguments, const QByteArray& input = {}) const
    {
        return RunTool(arguments, ToolTest::PlainLocale(input, m_scratch.Folder()));
    }

    const Scratch m_scratch;
};

constexpr char PNG_SIGNATURE[] = "\x89PNG\r\n\x1a\n";

/// Width and height stand behind the signature and the head of the first chunk, four bytes each.
void ExpectPng(const QByteArray& bytes, const char* size)
{
    EXPECT_TRUE(bytes.startsWith(PNG_SIGNATURE));
    EXPECT_EQ(bytes.mid(16, 8).toHex(), QByteArray(size));
}

TEST_F(ToolPicture, PngHasTheSizeThatIsAskedFor)
{
    const ToolRun run = Run({"export", "lake.xml", "--to", "png"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "");
    ExpectPng(run.output, "000004b000000384");

    EXPECT_EQ(Run({"export", "lake.xml", "--to", "png", "--size", "300x200", "-o", "out.png"}).exitCode, 0);
    ExpectPng(m_scratch.Read("out.png"), "0000012c000000c8");
}

#ifdef REPORTGENERATOR_TEST_SVG
/// The texts of a picture, one in a line.
QStringList TextsOf(const QByteArray& svg)
{
    QStringList texts;
    QXmlStreamReader reader(svg);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == QLatin1String("text"))
            texts << reader.readElementText().trimmed();
    }
    EXPECT_FALSE(reader.hasError());
    return texts;
}

TEST_F(ToolPicture, SvgHoldsLegendDegreesAndScale)
{
    const ToolRun run = Run({"export", "lake.xml", "empty.xml", "--to", "svg", "--size", "800x600"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_TRUE(run.output.contains(R"(viewBox="0 0 800 600")"));
    const QStringList texts = TextsOf(run.output);
    for (const char* text : {"Lake <1>, frequency 121.5 MHz, IF bandwidth 25 kHz", "empty.xml, no area",
                             "9.4° E", "47.8° N", "20 km"})
        EXPECT_TRUE(texts.contains(QString::fromUtf8(text)))
            << text << " in " << texts.join(QLatin1Char('|')).toStdString();
}

TEST_F(ToolPicture, SvgHoldsTheReplacementForWhatXmlCannotHold)
{
    m_scratch.Write("odd.json",
                    R"({"frequency": {"value": 121.5e6}, "area": {"name": "a\u0001b\ufffec\u0008", )"
                    R"("coordinates": [{"longitude": 9, "latitude": 47.5}]}})");
    EXPECT_EQ(Run({"convert", "--from", "json", "odd.json", "odd", "--to", "plain"}).exitCode, 0);
    const ToolRun run = Run({"export", "odd", "--to", "svg"});
    EXPECT_EQ(run.exitCode, 0);
    const QStringList texts = TextsOf(run.output);
    EXPECT_TRUE(texts.contains(QString::fromUtf8("a\uFFFDb\uFFFDc\uFFFD, frequency 121.5 MHz")))
        << texts.join(QLatin1Char('|')).toStdString();
}

TEST_F(ToolPicture, SvgHoldsTheReplacementForHalfASurrogatePair)
{
    // In UTF-16, where a damaged text may have one.
    QByteArray bytes = "\xFE\xFF";
    for (const char byte :
         QByteArray("<ReportBase><Area Version=\"1.0\"><Name>?a</Name><Coordinate><Longitude>9"
                    "</Longitude><Latitude>47</Latitude></Coordinate></Area></ReportBase>")) {
        bytes += byte == '?' ? '\xDC' : '\0';
        bytes += byte == '?' ? '\0' : byte;
    }
    m_scratch.Write("odd", bytes);
    const ToolRun run = Run({"export", "odd", "--to", "svg"});
    EXPECT_EQ(run.exitCode, 0);
    const QStringList texts = TextsOf(run.output);
    EXPECT_TRUE(texts.contains(QString::fromUtf8("\uFFFDa"))) << texts.join(QLatin1Char('|')).toStdString();
}

TEST_F(ToolPicture, LegendOfManyReportsEndsWithTheirNumber)
{
    // Of 200 pixels 70 are for the legend: three rows of 20.
    const ToolRun run = Run({"export", "lake.xml", "lake.xml", "empty.xml", "lake.xml", "lake.xml", "--to",
                             "svg", "--size", "600x200"});
    const QStringList texts = TextsOf(run.output);
    EXPECT_EQ(texts.count(QStringLiteral("Lake <1>, frequency 121.5 MHz, IF bandwidth 25 kHz")), 2);
    EXPECT_TRUE(texts.contains(QStringLiteral("and 3 more")));
}
#else
TEST_F(ToolPicture, SvgIsRefusedWithoutQtSvg)
{
    EXPECT_UNUSABLE(Run({"export", "lake.xml", "--to", "svg"}),
                    "reportpicture was built without Qt Svg, so it draws png only\nTry 'reporttool --help'.");
}
#endif

TEST_F(ToolPicture, StandardInputReachesThePicture)
{
    const ToolRun run = Run({"export", "-", "--to", "png"}, LAKE);
    EXPECT_EQ(run.exitCode, 0);
    ExpectPng(run.output, "000004b000000384");
}

TEST_F(ToolPicture, FailuresAreThoseOfOtherFormats)
{
    const ToolRun run = Run({"export", "bad.xml", "missing.xml", "--to", "png", "-o", "out.png"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Errors(),
                "reporttool: bad.xml:1:13: OutOfRangeException: Area: Please set Coordinate properly. "
                "(area.coordinate)\n"
                "reporttool: missing.xml: no such file\n");
    EXPECT_EQ(m_scratch.Names().size(), 3);

    EXPECT_EQ(Run({"export", "bad.xml", "lake.xml", "--to", "png", "-o", "out.png"}).exitCode, 1);
    ExpectPng(m_scratch.Read("out.png"), "000004b000000384");
#ifdef Q_OS_LINUX
    EXPECT_UNUSABLE(Run({"export", "lake.xml", "--to", "png", "-o", "/dev/full"}),
                    "/dev/full: No space left on device");
#endif
}

TEST_F(ToolPicture, SizeIsTwoNumbersOfAPicture)
{
    const QString hint = QStringLiteral("\nTry 'reporttool --help'.");
    for (const char* size : {"300", "300x", "x300", "300x200x100", "99x300", "300x10001", "axb", "-300x200"})
        EXPECT_UNUSABLE(
            Run({"export", "lake.xml", "--to", "png", QStringLiteral("--size=") + QLatin1String(size)}),
            QStringLiteral("a size is WIDTHxHEIGHT, each from 100 to 10000 pixels") + hint);
    EXPECT_UNUSABLE(Run({"export", "lake.xml", "--to", "kml", "--size", "300x200"}),
                    QStringLiteral("--size is for pictures") + hint);
}

TEST_F(ToolPicture, WithoutTheProgramThatDrawsItIsToldWhatIsMissing)
{
    const QString tool = m_scratch.Path("tool");
    ASSERT_TRUE(QFile::copy(QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL), tool));
    const ToolRun run = ToolTest::RunProgram(
        tool,
        {QStringLiteral("export"), QStringLiteral("lake.xml"), QStringLiteral("--to"), QStringLiteral("png")},
        ToolTest::PlainLocale({}, m_scratch.Folder()));
    EXPECT_UNUSABLE(run, m_scratch.Path(REPORTGENERATOR_TEST_PICTURE_PROGRAM) +
                             QStringLiteral(": is not there, and draws the pictures"));
}

} // namespace
