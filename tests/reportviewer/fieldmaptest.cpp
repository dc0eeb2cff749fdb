#include "reporttool/samples.h"
#include "support/expect.h"

#include <reportviewer/contents.h>

#include <reportgenerator/reflection/reportfields.h>

#include <gtest/gtest.h>

namespace {

using ReportCore::FieldPath;
using ReportViewer::ContentsPointer;
using ReportViewer::FieldMap;
using ReportViewer::Span;

ContentsPointer Read(const QByteArray& bytes)
{
    return ReportViewer::ReadContents(bytes, [](const QString& /*step*/, int /*percent*/) {});
}

FieldPath PathOf(const char* text)
{
    return *text == '\0' ? FieldPath() : FieldPath::Parse(ReportCore::ReportInfo(), QString::fromUtf8(text));
}

QString PathTextAt(const FieldMap& fields, qint64 place)
{
    const auto path = fields.PathAt(place);
    return path ? path->Text() : QStringLiteral("outside");
}

/// Where a field stands in the plain form of the full report: its tag, its length and what it holds.
struct Row
{
    const char* path;
    qint64 begin;
    qint64 end;
    bool hasParts = false; ///< so that the places within belong to these
};

constexpr qint64 BODY = 0x2E;

constexpr Row ROWS[] = {
    {"", BODY, 0x154, true},
    {"frequency", 0x36, 0x8F, true},
    {"frequency.min", 0x3E, 0x56},
    {"frequency.max", 0x56, 0x6E},
    {"frequency.use", 0x6E, 0x77},
    {"frequency.value", 0x77, 0x8F},
    {"ifBandwidth", 0x8F, 0xAA, true},
    {"ifBandwidth.value", 0x97, 0xAA},
    {"area", 0xAA, 0x154, true},
    {"area.version", 0xB2, 0xC4},
    {"area.name", 0xC4, 0xDA},
    {"area.coordinate", 0xDA, 0x140, true},
    {"area.coordinate[1]", 0xE6, 0x113, true},
    {"area.coordinate[1].longitude", 0xEA, 0xFE},
    {"area.coordinate[1].latitude", 0xFE, 0x113},
    {"area.coordinate[2]", 0x113, 0x140, true},
    {"area.coordinate[2].longitude", 0x117, 0x12B},
    {"area.coordinate[2].latitude", 0x12B, 0x140},
    {"area.scriptId", 0x140, 0x154},
};

void ExpectRows(const FieldMap& fields, qint64 shift)
{
    for (const Row& row : ROWS) {
        const auto span = fields.Find(PathOf(row.path));
        ASSERT_TRUE(span.has_value()) << row.path;
        EXPECT_EQ(span->begin, row.begin + shift) << row.path;
        EXPECT_EQ(span->end, row.end + shift) << row.path;
        // Of what has parts, the tag or the length in front of them.
        const qint64 end = row.hasParts ? row.begin + 4 : row.end;
        for (qint64 place = row.begin; place < end; ++place)
            EXPECT_TEXT(PathTextAt(fields, place + shift), row.path) << place;
    }
}

TEST(FieldMap, EveryFieldOfThePlainFormHasItsBytesAndEveryByteItsField)
{
    const ContentsPointer contents = Read(ToolTest::FullPlain());
    ASSERT_TRUE(contents->file.IsGood());
    ExpectRows(contents->fields, 0);
    for (qint64 place = 0; place < BODY; ++place)
        EXPECT_TEXT(PathTextAt(contents->fields, place), "outside");
    EXPECT_TEXT(PathTextAt(contents->fields, 0x154), "outside");
}

TEST(FieldMap, ABinaryFileHasTheSameBehindItsSize)
{
    ExpectRows(Read(ToolTest::InFile(ToolTest::FullPlain()))->fields, 4);
}

TEST(FieldMap, ACompressedFormHasThemInWhatItUnpacksTo)
{
    const ContentsPointer contents = Read(ToolTest::FullCompressed());
    EXPECT_EQ(contents->unpacked, ToolTest::FullBody());
    ExpectRows(contents->fields, -BODY);
}

struct XmlRow
{
    const char* path;
    const char* text;
};

constexpr XmlRow XML_ROWS[] = {
    {"frequency.min", "Min=\"117975000.00\""},
    {"frequency.max", "Max=\"137000000.00\""},
    {"frequency.use", "Use=\"true\""},
    {"frequency.value", "121500000.00"},
    {"ifBandwidth", "<IFBandwidth>8333.33</IFBandwidth>"},
    {"ifBandwidth.value", "8333.33"},
    {"area.version", "Version=\"1.0\""},
    {"area.name", "<Name>Z\u00FCrichsee</Name>"},
    {"area.coordinate[1].longitude", "<Longitude>8.540000</Longitude>"},
    {"area.coordinate[1].latitude", "<Latitude>47.360000</Latitude>"},
    {"area.coordinate[2].longitude", "<Longitude>8.685000</Longitude>"},
    {"area.coordinate[2].latitude", "<Latitude>47.258000</Latitude>"},
    {"area.scriptId", "<ScriptID>VHF-1215</ScriptID>"},
};

TEST(FieldMap, EveryFieldOfXmlHasItsTextAndEveryCharacterItsField)
{
    const ContentsPointer contents = Read(ToolTest::FullXml());
    ASSERT_TRUE(contents->file.IsGood());
    for (const XmlRow& row : XML_ROWS) {
        const auto span = contents->fields.Find(PathOf(row.path));
        ASSERT_TRUE(span.has_value()) << row.path;
        EXPECT_TEXT(
            contents->text.mid(static_cast<int>(span->begin), static_cast<int>(span->end - span->begin)),
            row.text);
        const bool isObject = PathOf(row.path).Last().field->HasObjects();
        for (qint64 place = span->begin; place < span->end && !isObject; ++place)
            EXPECT_TEXT(PathTextAt(contents->fields, place), row.path);
    }
}

TEST(FieldMap, TagsOfXmlBelongToTheirObjects)
{
    const ContentsPointer contents = Read(ToolTest::FullXml());
    const auto pathAtText = [&contents](const char* text) {
        return PathTextAt(contents->fields, contents->text.indexOf(QString::fromUtf8(text)));
    };
    EXPECT_TEXT(pathAtText("<ReportBase>"), "");
    EXPECT_TEXT(pathAtText("</ReportBase>"), "");
    EXPECT_TEXT(pathAtText("<Frequency"), "frequency");
    EXPECT_TEXT(pathAtText("</Frequency>"), "frequency");
    EXPECT_TEXT(pathAtText("<Area"), "area");
    EXPECT_TEXT(pathAtText("</Area>"), "area");
    EXPECT_TEXT(pathAtText("<Coordinate>"), "area.coordinate[1]");
    EXPECT_TEXT(pathAtText("</Coordinate>"), "area.coordinate[1]");
    EXPECT_TEXT(PathTextAt(contents->fields, 0), "outside");

    const auto all = contents->fields.Find(PathOf("area.coordinate"));
    ASSERT_TRUE(all.has_value());
    EXPECT_EQ(all->begin, contents->text.indexOf(QStringLiteral("<Coordinate>")));
    EXPECT_EQ(all->end, contents->text.lastIndexOf(QStringLiteral("</Coordinate>")) + 13);
}

TEST(FieldMap, OfAnElementThatComesTwiceTheLastOneCounts)
{
    const ContentsPointer contents = Read("<ReportBase><IFBandwidth>1.00</IFBandwidth><Frequency>3.00</"
                                          "Frequency><IFBandwidth>2.00</IFBandwidth>"
                                          "</ReportBase>");
    const auto span = contents->fields.Find(PathOf("ifBandwidth.value"));
    ASSERT_TRUE(span.has_value());
    EXPECT_EQ(span->begin, contents->text.indexOf(QStringLiteral("2.00")));
    EXPECT_TEXT(PathTextAt(contents->fields, contents->text.indexOf(QStringLiteral("1.00"))),
                "ifBandwidth.value");
}

TEST(FieldMap, OfAnObjectThatComesTwiceEachPartIsFound)
{
    const ContentsPointer contents =
        Read("<ReportBase><Area Version=\"1.0\"><Name>a</Name>"
             "<Coordinate><Longitude>8</Longitude><Latitude>47</Latitude></Coordinate></Area>"
             "<Frequency>3.00</Frequency><Area Version=\"1.0\"><Name>b</Name></Area></ReportBase>");
    const auto textOf = [&contents](const std::optional<Span>& span) {
        return !span ? QString()
                     : contents->text.mid(static_cast<int>(span->begin),
                                          static_cast<int>(span->end - span->begin));
    };
    const auto placeOf = [&contents](const char* text) {
        return contents->text.indexOf(QLatin1String(text));
    };
    EXPECT_TEXT(textOf(contents->fields.Find(PathOf("area.coordinate[1].longitude"))),
                "<Longitude>8</Longitude>");
    EXPECT_TEXT(textOf(contents->fields.Find(PathOf("area.name"))), "<Name>b</Name>");
    EXPECT_TEXT(textOf(contents->fields.SpanAt(placeOf("8</Long"))), "<Longitude>8</Longitude>");
    EXPECT_TEXT(textOf(contents->fields.SpanAt(placeOf("a</Name"))), "<Name>a</Name>");
    EXPECT_TEXT(textOf(contents->fields.SpanAt(placeOf("<Frequency"))), "<Frequency>3.00</Frequency>");
    EXPECT_TEXT(textOf(contents->fields.SpanAt(placeOf("</ReportBase"))), contents->text);
    EXPECT_FALSE(contents->fields.Find(PathOf("area.scriptId")).has_value());
}

TEST(FieldMap, WhatIsUnknownBelongsToWhatHoldsIt)
{
    const ContentsPointer contents = Read(
        "<ReportBase><Frequency>3.00</Frequency><Colour><Frequency>5.00</Frequency></Colour></ReportBase>");
    EXPECT_TEXT(PathTextAt(contents->fields, contents->text.indexOf(QStringLiteral("<Colour"))), "");
    EXPECT_TEXT(PathTextAt(contents->fields, contents->text.indexOf(QStringLiteral("5.00"))), "");
    EXPECT_EQ(contents->fields.Find(PathOf("frequency.value"))->begin,
              contents->text.indexOf(QStringLiteral("3.00")));
}

TEST(FieldMap, HasNothingOfWhatDoesNotStandThere)
{
    const ContentsPointer contents = Read("<ReportBase><Frequency>3.00</Frequency></ReportBase>");
    EXPECT_FALSE(contents->fields.Find(PathOf("area")).has_value());
    EXPECT_FALSE(contents->fields.Find(PathOf("frequency.min")).has_value());
    EXPECT_FALSE(contents->fields.Find(PathOf("area.coordinate[1].latitude")).has_value());
    EXPECT_FALSE(FieldMap().Find(FieldPath()).has_value());
    EXPECT_FALSE(FieldMap().PathAt(0).has_value());
    EXPECT_FALSE(FieldMap().SpanAt(0).has_value());
}

TEST(FieldMap, EveryTruncationHasTheFieldsThatAreLeft)
{
    const QByteArray whole = ToolTest::FullPlain();
    for (int size = 0; size < whole.size(); ++size) {
        const ContentsPointer contents = Read(whole.left(size));
        for (const Row& row : ROWS) {
            const auto span = contents->fields.Find(PathOf(row.path));
            if (row.end <= size && !row.hasParts) {
                ASSERT_TRUE(span.has_value()) << row.path << " of " << size;
                EXPECT_EQ(span->begin, row.begin);
                EXPECT_EQ(span->end, row.end);
            } else if (row.begin >= size) {
                EXPECT_FALSE(span.has_value()) << row.path << " of " << size;
            }
        }
    }
}

} // namespace
