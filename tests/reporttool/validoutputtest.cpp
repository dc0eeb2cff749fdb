// Whatever files hold, what other programs read is valid: UTF-8, JSON without half a surrogate pair, XML.

#include "samples.h"
#include "toolrun.h"

#include "support/choices.h"
#include "support/composedinput.h"
#include "support/recordelements.h"
#include "support/vectors.h"

#include <gtest/gtest.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QXmlStreamReader>

namespace {

using Support::Choices;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

/// A row of the table of well-formed byte sequences of the Unicode standard: the first byte, the second one, and how many
/// come behind that.
struct SequenceRow
{
    int first;
    int last;
    int secondLow;
    int secondHigh;
    int others;
};

constexpr SequenceRow WELL_FORMED[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 0}, {0xE0, 0xE0, 0xA0, 0xBF, 1}, {0xE1, 0xEC, 0x80, 0xBF, 1},
    {0xED, 0xED, 0x80, 0x9F, 1}, {0xEE, 0xEF, 0x80, 0xBF, 1}, {0xF0, 0xF0, 0x90, 0xBF, 2},
    {0xF1, 0xF3, 0x80, 0xBF, 2}, {0xF4, 0xF4, 0x80, 0x8F, 2},
};

/// 0 where none begins.
int SizeOfSequence(const QByteArray& bytes, int from)
{
    const auto isBetween = [&bytes](int index, int low, int high) {
        return index < bytes.size() && uchar(bytes.at(index)) >= low && uchar(bytes.at(index)) <= high;
    };
    if (isBetween(from, 0x00, 0x7F))
        return 1;
    for (const SequenceRow& row : WELL_FORMED) {
        if (!isBetween(from, row.first, row.last) || !isBetween(from + 1, row.secondLow, row.secondHigh))
            continue;
        const int size = 2 + row.others;
        int read = 2;
        while (read < size && isBetween(from + read, 0x80, 0xBF))
            ++read;
        return read == size ? size : 0;
    }
    return 0;
}

/// -1 where all of it is well-formed.
qint64 FirstWrongByte(const QByteArray& bytes)
{
    for (int i = 0; i < bytes.size();) {
        const int size = SizeOfSequence(bytes, i);
        if (size == 0)
            return i;
        i += size;
    }
    return -1;
}

void ExpectUtf8(const QByteArray& bytes, const char* what)
{
    const qint64 wrong = FirstWrongByte(bytes);
    EXPECT_EQ(wrong, -1) << what << ": " << bytes.mid(static_cast<int>(wrong) - 40, 80).constData();
}

/// Strict readers refuse half of a pair, as which an escape of a surrogate counts here: pairs stand there as they are.
void ExpectJson(const QByteArray& bytes, const char* what)
{
    ExpectUtf8(bytes, what);
    QJsonParseError error;
    QJsonDocument::fromJson(bytes, &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << what << ": " << error.errorString().toStdString();
    for (int i = 0; i + 3 < bytes.size(); ++i) {
        if (bytes.at(i) != '\\')
            continue;
        EXPECT_FALSE(bytes.at(i + 1) == 'u' && (bytes.at(i + 2) | 0x20) == 'd' && bytes.at(i + 3) > '7')
            << what << ": " << bytes.mid(i - 40, 80).constData();
        ++i;
    }
}

void ExpectJsonLines(const QByteArray& bytes, const char* what)
{
    for (const QByteArray& line : bytes.split('\n')) {
        if (!line.isEmpty())
            ExpectJson(line, what);
    }
}

void ExpectXml(const QByteArray& bytes, const char* what)
{
    ExpectUtf8(bytes, what);
    QXmlStreamReader reader(bytes);
    while (!reader.atEnd())
        reader.readNext();
    EXPECT_FALSE(reader.hasError()) << what << ": " << reader.errorString().toStdString();
}

/// In UTF-16, least significant byte first.
QByteArray Utf16(const QString& text)
{
    QByteArray bytes = "\xFF\xFE";
    for (const QChar character : text) {
        bytes += static_cast<char>(character.cell());
        bytes += static_cast<char>(character.row());
    }
    return bytes;
}

QString NamedXml(const QString& name)
{
    return QString::fromUtf8(ToolTest::NamedAreaXml("?")).replace(QLatin1Char('?'), name);
}

/// Names that few writers can cope with, each half of a surrogate pair among them.
QVector<QByteArray> OddTexts()
{
    const QChar high(0xD800);
    const QChar low(0xDFFF);
    const QString pair = QString(QChar(0xD83D)) + QChar(0xDE00);
    QVector<QByteArray> files;
    for (const QString& name : {QString(high), QString(low), QString(low) + high, pair + high, high + pair,
                                QStringLiteral("\\") + high, QStringLiteral("\\\\") + low,
                                QStringLiteral("\\ud800"), QStringLiteral("\",\n;\t]]&gt;"),
                                QString(QChar(0xFFFE)), QString(QChar(0x7F)) + QChar(0x85) + QChar(0x2028)})
        files << Utf16(NamedXml(name));
    for (const char* name : {"\x01\x1b[31m", "\xff\xfe", "\xed\xa0\x80", "\xef\xbf\xbf", "a\"\r\n,b"})
        files << ToolTest::Plain(ToolTest::NamedArea(name));
    files << (Support::String(u"IRGObject") + Support::String(u"\xD800?\xDC00")).Data();
    files << ToolTest::Plain(Support::AreaElement(Support::Version(u"1\xD800")));
    return files;
}

/// The golden vectors, and what the fuzz targets are fed with.
QVector<QByteArray> DamagedFiles()
{
    QVector<QByteArray> files = OddTexts();
    for (const QString& path : Support::VectorFiles()) {
        if (!path.startsWith(QLatin1String("reportbase/")))
            continue;
        if (path.endsWith(QLatin1String(".xml")))
            files << Support::LoadXmlVector(path).toUtf8();
        else if (path.endsWith(QLatin1String("hex")))
            files << Support::LoadVector(path).Data();
    }
    for (quint64 seed = 1; seed <= 500; ++seed) {
        Choices choices(seed);
        if (seed % 2 == 0) {
            const QString xml = Support::ComposeXml(Support::Kind::Report, choices);
            files << Support::Mutated(Support::ComposeXmlFile(xml, choices), choices);
        } else {
            files << Support::Mutated(
                Support::ComposeRepresentation(Support::Kind::Report, choices.OneIn(4), choices), choices);
        }
    }
    return files;
}

/// A folder of these files.
class ToolValidOutput : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_scratch = new Scratch;
        int number = 0;
        for (const QByteArray& bytes : DamagedFiles())
            s_scratch->Write(QByteArray::number(++number).constData(), bytes);
    }

    static void TearDownTestSuite()
    {
        delete s_scratch;
        s_scratch = nullptr;
    }

    static QByteArray OutputOf(ToolTest::Arguments arguments)
    {
        const ToolRun run = RunTool(arguments, {{}, s_scratch->Folder(), {}});
        EXPECT_EQ(run.exitCode, 1) << run.errors.left(500).constData();
        EXPECT_GT(run.output.size(), 1000);
        ExpectUtf8(run.errors, "errors");
        return run.output;
    }

    static QByteArray Exported(const char* format)
    {
        return OutputOf({"export", "-r", ".", "--discard", "--to", format});
    }

    static Scratch* s_scratch;
};

Scratch* ToolValidOutput::s_scratch = nullptr;

} // namespace

TEST_F(ToolValidOutput, JsonIsThat)
{
    ExpectJson(OutputOf({"show", "--json", "-r", "."}), "show");
    ExpectJson(OutputOf({"show", "--json", "--all-reports", "-r", "."}), "show --all-reports");
    ExpectJsonLines(OutputOf({"check", "--json", "--strict", "-r", "."}), "check");
    ExpectJsonLines(OutputOf({"list", "--json", "-r", "."}), "list");
    ExpectJson(Exported("geojson"), "geojson");
    ExpectJsonLines(Exported("geojsonl"), "geojsonl");
}

TEST_F(ToolValidOutput, TextsAreUtf8)
{
    ExpectUtf8(OutputOf({"show", "--map", "--dump", "-r", "."}), "show");
    ExpectUtf8(OutputOf({"check", "--strict", "-r", "."}), "check");
    ExpectUtf8(OutputOf({"list", "-r", "."}), "list");
    ExpectUtf8(OutputOf({"list", "--csv", "-r", "."}), "list --csv");
    for (const char* format : {"csv", "csv-points", "wkt"})
        ExpectUtf8(Exported(format), format);
}

TEST_F(ToolValidOutput, XmlIsWellFormed)
{
    for (const char* format : {"kml", "gpx"})
        ExpectXml(Exported(format), format);
}

TEST(ToolJsonOfOddTexts, HasAReplacementForHalfAPairAndKeepsTheRest)
{
    const QString pair = QString(QChar(0xD83D)) + QChar(0xDE00);
    const ToolRun run = RunTool({"show", "--json", "-"},
                                {Utf16(NamedXml(QStringLiteral("\\") + QChar(0xD800) + pair)), {}, {}});
    EXPECT_TRUE(run.output.contains("\"name\": \"\\\\\\ufffd\xF0\x9F\x98\x80\"")) << run.output.constData();
}

TEST(ToolJsonOfOddTexts, IsNoFormForThemThatKeepsThem)
{
    const Scratch scratch;
    scratch.Write("in", Utf16(NamedXml(QString(QChar(0xD800)))));
    const ToolRun run = RunTool({"convert", "in", "out", "--to", "json"}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(), "reporttool: out: this form would not keep the name of the area\n");
}
