// What is read takes memory in proportion to the input, whatever the input claims, on both ways.

#include "support/allocations.h"
#include "support/expect.h"
#include "support/pathforms.h"
#include "support/paths.h"
#include "support/records.h"

#include <reportgenerator/reportbase/area.h>

#include <gtest/gtest.h>

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using Support::Allocations;
using Support::Choices;
using Support::CodePath;
using Support::Kind;
using Support::Traveller;
using Support::Way;

constexpr int SOME_BYTES = 100000;

// Memory for each byte of input, at most.

/// Of what the library writes itself, text or bytes.
constexpr qint64 OWN_FORM = 16;

/// Of lists whose coordinates are as short as can be: an object for every few bytes of input, and twice the
/// room while the list grows.
constexpr qint64 SHORTEST_ITEMS = 64;

/// Of elements in one another, for each of which Qt's reader remembers some.
constexpr qint64 DEEPEST_ELEMENTS = 256;

/// Of data that claim to be packed as tightly as zlib can.
constexpr qint64 TIGHTEST_DATA = 1100;

/// For whatever doesn't grow: buffers of readers and streams.
constexpr qint64 FIXED = 1 << 17;

struct Case
{
    const char* name;
    std::function<QByteArray(int size)> make; ///< an input of about so many bytes
    std::function<void(CodePath& codePath, Traveller& traveller, const QByteArray& input)> read;
    qint64 perByte;
};

void PrintTo(const Case& value, std::ostream* stream)
{
    *stream << value.name;
}

void ReadText(CodePath& codePath, Traveller& traveller, const QByteArray& input)
{
    Support::ReadXmlString(codePath, traveller, QString::fromUtf8(input), false);
}

void ReadFile(CodePath& codePath, Traveller& traveller, const QByteArray& input)
{
    Support::ReadXmlFile(codePath, traveller, input, Choices(QByteArray()));
}

void ReadReader(CodePath& codePath, Traveller& traveller, const QByteArray& input)
{
    Support::ReadByReader(codePath, traveller, input, Choices(QByteArray()));
}

void ReadArray(CodePath& codePath, Traveller& traveller, const QByteArray& input)
{
    Support::ReadArray(codePath, traveller, input);
}

void ReadBody(CodePath& codePath, Traveller& traveller, const QByteArray& input)
{
    Support::ReadBody(codePath, traveller, input, static_cast<int>(input.size()), Choices(QByteArray()));
}

void ReadRaw(CodePath& codePath, Traveller& traveller, const QByteArray& input)
{
    Support::ReadRaw(codePath, traveller, input, Choices(QByteArray()));
}

void ReadBinaryFile(CodePath& codePath, Traveller& traveller, const QByteArray& input)
{
    const QByteArray file = Support::Written([&](QDataStream& stream) { stream << input; });
    Support::ReadBinaryFile(codePath, traveller, file, Choices(QByteArray()));
}

// --- Inputs

Area Points(int count)
{
    QVector<Coordinate> points(count);
    Choices choices(1);
    for (Coordinate& point : points)
        Support::Fill(point, choices);
    Area area;
    area.SetName(QStringLiteral("many"));
    area.SetCoordinate(points);
    return area;
}

QByteArray GoodXml(int size)
{
    constexpr int POINT = 120;
    return Points(size / POINT).GetXmlString().toUtf8();
}

QByteArray GoodPlain(int size)
{
    constexpr int POINT = 50;
    return Points(size / POINT).GetBinaryRepresentationAsQByteArray();
}

QByteArray GoodRaw(int size)
{
    constexpr int POINT = 17;
    return Support::RawFormOf(Points(size / POINT));
}

/// Begins as an area with a name does; then comes what is hostile.
QByteArray XmlOf(const QByteArray& piece, int size)
{
    return QByteArray("<Area Version=\"1.0\"><Name>a</Name>") + piece.repeated(size / piece.size()) +
           QByteArray("</Area>");
}

QByteArray DeepXml(int size)
{
    return QByteArray("<Area Version=\"0.9\">") + QByteArray("<a>").repeated(size / 3);
}

QByteArray ManyAttributes(int size)
{
    QByteArray xml("<Area Version=\"1.0\"");
    const QByteArray value(100, 'x');
    for (int i = 0; xml.size() < size; ++i)
        xml += " a" + QByteArray::number(i) + "=\"" + value + "\"";
    return xml + QByteArray("><Name>a</Name></Area>");
}

QByteArray ExpandingEntities(int size)
{
    QByteArray xml("<!DOCTYPE a [<!ENTITY e0 \"xxxxxxxxxx\">");
    for (int i = 1; xml.size() < size; ++i) {
        const QByteArray inner = "&e" + QByteArray::number(i - 1) + ";";
        xml += "<!ENTITY e" + QByteArray::number(i) + " \"" + inner.repeated(8) + "\">";
    }
    return xml + QByteArray("]><Area Version=\"1.0\"><Name>&e9;</Name></Area>");
}

QByteArray ElementOf(long long tag, qint32 length, const QByteArray& payload)
{
    return Support::Written([&](QDataStream& stream) {
        stream << static_cast<qint32>(tag) << length;
        stream.writeRawData(payload.constData(), static_cast<int>(payload.size()));
    });
}

QByteArray Word(qint32 value)
{
    return Support::Written([value](QDataStream& stream) { stream << value; });
}

constexpr qint32 MOST = 0x7fffffff;

/// Coordinates of which nothing is there but their length.
QByteArray EmptyPoints(int size)
{
    const QByteArray bodies(size, '\0');
    return ElementOf(Support::Tag::AREA_COORDINATES, 4 + size, Word(size / 4) + bodies);
}

QByteArray MorePointsThanFollow(int size)
{
    return ElementOf(Support::Tag::AREA_COORDINATES, size, Word(MOST) + QByteArray(size, '\0'));
}

QByteArray LongerArrayThanFollows(int size)
{
    return ElementOf(Support::Tag::AREA_NAME, MOST, Word(MOST) + QByteArray(size, 'x'));
}

QByteArray LongerTextThanFollows(int size)
{
    return ElementOf(Support::Tag::AREA_VERSION, MOST, Word(MOST - 1) + QByteArray(size, 'x'));
}

QByteArray ManyUnknown(int size)
{
    return ElementOf(Support::Tag::UNKNOWN, 0, QByteArray()).repeated(size / 8);
}

QByteArray RawWithMorePointsThanFollow(int size)
{
    const QByteArray begin = Support::Written([](QDataStream& stream) {
        stream << quint8(3) << QStringLiteral("1.0") << QStringLiteral("n") << MOST;
    });
    return begin + QByteArray(size, '\3');
}

/// Data that claim to be as large as can be.
QByteArray ClaimingMost(int size)
{
    return Support::Written([size](QDataStream& stream) {
        stream << QStringLiteral("IRGObjectQCompress") << QStringLiteral("Area")
               << Word(MOST - 64) + QByteArray(size, 'x');
    });
}

/// The data themselves grow by a factor of a thousand: it is their unpacked size that counts.
QByteArray Packed(const QByteArray& elements)
{
    const QByteArray body = ElementOf(1, static_cast<qint32>(elements.size()), elements);
    return Support::Written([&](QDataStream& stream) {
        stream << QStringLiteral("IRGObjectQCompress") << QStringLiteral("Area") << qCompress(body);
    });
}

qint64 PeakOf(Way way, const Case& reading, const QByteArray& input, bool validates)
{
    CodePath codePath(way);
    const std::unique_ptr<Traveller> traveller = codePath.New(Kind::Area);
    traveller->Object().SetValidate(validates);
    // What is printed and thrown is not the matter here.
    const Support::QtMessages messages(codePath.Transcript());
    const Allocations allocations;
    reading.read(codePath, *traveller, input);
    return allocations.Peak();
}

class BothPathsMemory : public ::testing::TestWithParam<Case>
{
};

TEST_P(BothPathsMemory, GrowsWithTheInputAndNoFaster)
{
    if (!Allocations::AreCounted())
        GTEST_SKIP() << Support::OTHER_ALLOCATOR;
    for (const int size : {1000, SOME_BYTES}) {
        const QByteArray input = GetParam().make(size);
        for (const bool validates : {true, false}) {
            for (const Way way : {Way::Plain, Way::Direct}) {
                const qint64 peak = PeakOf(way, GetParam(), input, validates);
                EXPECT_LE(peak, FIXED + GetParam().perByte * size)
                    << (way == Way::Plain ? "subclass, " : "own class, ") << size << " bytes";
            }
        }
    }
}

std::string CaseName(const ::testing::TestParamInfo<Case>& info)
{
    return info.param.name;
}

const std::vector<Case> CASES = {
    {"GoodXmlString", GoodXml, ReadText, OWN_FORM},
    {"GoodXmlFile", GoodXml, ReadFile, OWN_FORM},
    {"GoodXmlByReader", GoodXml, ReadReader, OWN_FORM},
    {"GoodPlain", GoodPlain, ReadArray, OWN_FORM},
    {"GoodBinaryFile", GoodPlain, ReadBinaryFile, OWN_FORM},
    {"GoodRaw", GoodRaw, ReadRaw, OWN_FORM},
    {"EmptyCoordinateElements", [](int size) { return XmlOf("<Coordinate/>", size); }, ReadText,
     SHORTEST_ITEMS},
    {"Comments", [](int size) { return XmlOf("<!---->", size); }, ReadText, OWN_FORM},
    {"References", [](int size) { return XmlOf("&#65;", size); }, ReadText, OWN_FORM},
    {"RepeatedNames", [](int size) { return XmlOf("<Name/>", size); }, ReadText, OWN_FORM},
    {"OpenedAgainAndAgain", [](int size) { return QByteArray("<Area ").repeated(size / 6); }, ReadText,
     OWN_FORM},
    {"DeepElements", DeepXml, ReadText, DEEPEST_ELEMENTS},
    {"ManyAttributes", ManyAttributes, ReadText, OWN_FORM},
    {"ExpandingEntities", ExpandingEntities, ReadText, SHORTEST_ITEMS},
    {"EmptyPoints", EmptyPoints, ReadBody, SHORTEST_ITEMS},
    {"MorePointsThanFollow", MorePointsThanFollow, ReadBody, SHORTEST_ITEMS},
    {"LongerArrayThanFollows", LongerArrayThanFollows, ReadBody, OWN_FORM},
    {"LongerTextThanFollows", LongerTextThanFollows, ReadBody, OWN_FORM},
    {"ManyUnknownElements", ManyUnknown, ReadBody, OWN_FORM},
    {"RawWithMorePointsThanFollow", RawWithMorePointsThanFollow, ReadRaw, SHORTEST_ITEMS},
    {"UnpackedMostClaimed", ClaimingMost, ReadArray, TIGHTEST_DATA},
    {"UnpackedEmptyPoints", [](int size) { return Packed(EmptyPoints(size)); }, ReadArray, SHORTEST_ITEMS},
    {"UnpackedMorePointsThanFollow", [](int size) { return Packed(MorePointsThanFollow(size)); }, ReadArray,
     SHORTEST_ITEMS},
};

INSTANTIATE_TEST_SUITE_P(Inputs, BothPathsMemory, ::testing::ValuesIn(CASES), CaseName);

/// The measure itself has to notice what is taken, and by whom.
TEST(BothPathsAllocations, AreSeen)
{
    if (!Allocations::AreCounted())
        GTEST_SKIP() << Support::OTHER_ALLOCATOR;
    const Allocations allocations;
    {
        const QByteArray bytes(SOME_BYTES, 'x');
        EXPECT_GE(allocations.Held(), bytes.size());
    }
    EXPECT_LT(allocations.Held(), SOME_BYTES);
    EXPECT_GE(allocations.Peak(), SOME_BYTES);
}

} // namespace
