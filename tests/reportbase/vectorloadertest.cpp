#include "support/bytes.h"
#include "support/expect.h"
#include "support/vectors.h"

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <string>

namespace {

using Support::Bytes;
using Support::Vector;

Vector Parse(const char* text)
{
    return Support::ParseVector(QByteArray(text), QStringLiteral("some.hex"));
}

/// Why the loader refuses a file; empty when it takes it.
std::string Refusal(const char* text)
{
    try {
        Parse(text);
    } catch (const Support::VectorError& error) {
        return error.what();
    }
    return {};
}

bool Mentions(const std::string& text, const char* part)
{
    return text.find(part) != std::string::npos;
}

#define EXPECT_REFUSED(text, reason)                                                                         \
    EXPECT_TRUE(Mentions(Refusal(text), reason)) << "refusal: '" << Refusal(text) << "'"

} // namespace

TEST(VectorLoader, ReadsBytesKindsMeaningsAndDepths)
{
    const Vector vector =
        Parse("# a comment\n"
              "\n"
              "0000  8a ff 57 b3                                      tag: value\n"
              "0004  00 00 00 05                                      length: bytes of value\n"
              "0008  01                                                 bool: true\n"
              "0009  31 32 33 34                                        text: \"1234\"\n");
    ASSERT_EQ(vector.fields.size(), 4u);
    EXPECT_EQ(vector.fields[0].kind, "tag");
    EXPECT_EQ(vector.fields[0].meaning, "value");
    EXPECT_EQ(vector.fields[0].Number(), 0x8aff57b3u);
    EXPECT_EQ(vector.fields[0].depth, 0);
    EXPECT_EQ(vector.fields[3].offset, 9);
    EXPECT_EQ(vector.fields[3].depth, 1);
    EXPECT_EQ(vector.fields[3].bytes, "1234");
    EXPECT_BYTES(vector.Data(), QByteArray("\x8a\xff\x57\xb3\0\0\0\x05\x01"
                                           "1234",
                                           13));
}

TEST(VectorLoader, JoinsContinuedLinesIntoOneField)
{
    const Vector vector =
        Parse("0000  61 62 63 64 65 66 67 68 69 6a 6b 6c 6d 6e 6f 70  text: \"abcdefghijklmnop\"\n"
              "0010  71                                               ... \"q\"\n");
    ASSERT_EQ(vector.fields.size(), 1u);
    EXPECT_EQ(vector.fields[0].bytes, "abcdefghijklmnopq");
}

TEST(VectorLoader, TakesANullSizeWithNothingBelowIt)
{
    EXPECT_EQ(Refusal("0000  ff ff ff ff                                      size: no name at all (null)\n"),
              "");
}

TEST(VectorLoader, RefusesAnOffsetThatDoesNotAddUp)
{
    EXPECT_REFUSED("0000  01                                               bool: true\n"
                   "0002  01                                               bool: true\n",
                   "some.hex:2: the offset should be 1");
    EXPECT_REFUSED("00g0  01                                               bool: true\n", "no offset");
    EXPECT_REFUSED("0000 01                                                bool: true\n", "no offset");
}

TEST(VectorLoader, RefusesBytesThatAreNotPairsOfLowerCaseDigits)
{
    EXPECT_REFUSED("0000  0                                                bool: true\n", "no 1 to 16 bytes");
    EXPECT_REFUSED("0000  0A                                               bytes: ten\n", "no 1 to 16 bytes");
    EXPECT_REFUSED("0000  01  02                                           bytes: two\n", "no 1 to 16 bytes");
    EXPECT_REFUSED("0000  0102                                             bytes: two\n", "no 1 to 16 bytes");
    EXPECT_REFUSED("0000                                                   bytes: none\n",
                   "no 1 to 16 bytes");
    EXPECT_REFUSED("0000  00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f 10  bytes: too many\n",
                   "reach into the meaning");
}

TEST(VectorLoader, RefusesALineWithoutAProperMeaning)
{
    EXPECT_REFUSED("0000  01\n", "no meaning");
    EXPECT_REFUSED("0000  01                                               yes\n", "not 'kind: what it is'");
    EXPECT_REFUSED("0000  01                                               bool: \n",
                   "not 'kind: what it is'");
    EXPECT_REFUSED("0000  01                                               boolean: true\n", "unknown kind");
    EXPECT_REFUSED("0000  01                                                bool: true\n", "not indented");
    EXPECT_REFUSED("0000  01                                               tag: value\n", "takes four bytes");
}

TEST(VectorLoader, RefusesAContinuationOfNothing)
{
    EXPECT_REFUSED("0000  01                                               ... more\n", "could continue");
    EXPECT_REFUSED("0000  01                                               bytes: one\n"
                   "0001  01                                                 ... more\n",
                   "could continue");
}

TEST(VectorLoader, RefusesALengthThatDiffersFromTheBytesBelowIt)
{
    EXPECT_REFUSED("0000  00 00 00 02                                      length: bytes\n"
                   "0004  01                                                 bool: true\n",
                   "the length at offset 0 is 2, there are 1");
    EXPECT_REFUSED("0000  00 00 00 00                                      size: bytes\n"
                   "0004  01                                                 bool: true\n",
                   "the size at offset 0 is 0, there are 1");
    EXPECT_REFUSED("0000  ff ff ff ff                                      size: null\n"
                   "0004  01                                                 bool: true\n",
                   "there are 1");
}

TEST(VectorLoader, RefusesACountThatDiffersFromTheEntriesBelowIt)
{
    EXPECT_REFUSED("0000  00 00 00 02                                      count: coordinates\n"
                   "0004  00 00 00 00                                        length: bytes of coordinate 1\n",
                   "the count at offset 0 is 2, there are 1");
}

TEST(VectorLoader, WantsAMarkOnWrongNumbersAndOnlyOnThem)
{
    EXPECT_EQ(Refusal("0000  00 00 00 02                                      length!: bytes\n"
                      "0004  01                                                 bool: true\n"),
              "");
    EXPECT_REFUSED("0000  00 00 00 01                                      length!: bytes\n"
                   "0004  01                                                 bool: true\n",
                   "marked as wrong");
}

TEST(VectorLoader, RefusesFilesThatAreEmptyOrEndOtherwise)
{
    EXPECT_REFUSED("# only a comment\n", "holds no bytes");
    EXPECT_REFUSED("0000  01                                               bool: true",
                   "end with a line feed");
    EXPECT_REFUSED("0000  01                                               bool: true\r\n",
                   "carriage return");
}

TEST(VectorLoader, TakesTheLastLineFeedOffAnXmlText)
{
    const QString path = QStringLiteral("some.xml");
    EXPECT_TEXT(Support::ParseXmlVector(QByteArray("\n<A/>\n"), path), "\n<A/>");
    EXPECT_TEXT(Support::ParseXmlVector(QByteArray("\n<A/>\n\n"), path), "\n<A/>\n");
    EXPECT_THROW(Support::ParseXmlVector(QByteArray("\n<A/>"), path), Support::VectorError);
    EXPECT_THROW(Support::ParseXmlVector(QByteArray("<A>\xff</A>\n"), path), Support::VectorError);
}

TEST(VectorLoader, ReadsNameAndTextOfAnError)
{
    const QString path = QStringLiteral("some.error");
    const Support::ExpectedError error = Support::ParseError(QByteArray("RGException\nwhat: it is\n"), path);
    EXPECT_TEXT(error.name, "RGException");
    EXPECT_TEXT(error.text, "what: it is");
    EXPECT_THROW(Support::ParseError(QByteArray("RGException\n"), path), Support::VectorError);
    EXPECT_THROW(Support::ParseError(QByteArray("RGException\none\ntwo\n"), path), Support::VectorError);
}

TEST(VectorLoader, RefusesAFileThatIsMissing)
{
    EXPECT_THROW(Support::LoadVector(QStringLiteral("frequency/no_such_case.hex")), Support::VectorError);
}

TEST(VectorLoader, ShowsOffsetRowsAndPieceOfTheFirstDifference)
{
    const Bytes expected = Support::Element(7, Support::ByteArray("1.00"));
    QByteArray actual = expected.Data();
    actual[13] = '5';
    const std::string message = SameBytes("actual", "expected", actual, expected).message();
    EXPECT_TRUE(Mentions(message, "from offset 13 (0x000d)")) << message;
    EXPECT_TRUE(Mentions(message, "bytes: \"1.00\", byte 1 of 4")) << message;
    EXPECT_TRUE(Mentions(message, "00 00 00 04 31 35 30 30")) << message;
    EXPECT_TRUE(Mentions(message, "00 00 00 04 31 2e 30 30")) << message;
}

TEST(VectorLoader, SeesBytesThatAreMissingOrTooMany)
{
    const Bytes expected = Support::Int32(1) + Support::Int32(2);
    EXPECT_TRUE(SameBytes("", "", expected.Data(), expected));
    EXPECT_FALSE(SameBytes("", "", expected.Data().left(7), expected));
    EXPECT_FALSE(SameBytes("", "", expected.Data() + '\0', expected));
}

TEST(VectorLoader, SpellsComposedBytesMostSignificantFirst)
{
    EXPECT_BYTES(Support::Int32(-1962977357).Data(), QByteArray("\x8a\xff\x57\xb3"));
    EXPECT_BYTES(Support::Int32(0x8AFF57B3).Data(), QByteArray("\x8a\xff\x57\xb3"));
    EXPECT_THROW(Support::Int32(0x100000000), std::out_of_range);
    EXPECT_BYTES(Support::Double(-45.25).Data(), QByteArray("\xc0\x46\xa0\0\0\0\0\0", 8));
    EXPECT_BYTES(Support::String(u"a\u20ac").Data(), QByteArray("\0\0\0\x04\0a\x20\xac", 8));
    EXPECT_BYTES(Support::NullString().Data(), QByteArray("\xff\xff\xff\xff"));
    EXPECT_BYTES(Support::ElementOfLength(1, -1, Support::Bool(true)).Data(),
                 QByteArray("\0\0\0\x01\xff\xff\xff\xff\x01", 9));
}

TEST(VectorLoader, PacksStoredDataThatQtUnpacks)
{
    for (const int size : {0, 1, 1000, 0xffff, 0x10000, 200000}) {
        std::string content;
        for (int i = 0; i < size; ++i)
            content += static_cast<char>(i * 7 + i / 251);
        const QByteArray packed = Support::Stored(Support::Raw(content)).Data();
        EXPECT_BYTES(qUncompress(packed), QByteArray(content.data(), size));
    }
}

TEST(VectorLoader, ComposesTheFrameThatTheVectorsHave)
{
    const Vector plain = Support::LoadVector(QStringLiteral("frequency/value_only.hex"));
    const Vector compressed = Support::LoadVector(QStringLiteral("frequency/value_only.zhex"));
    const Bytes elements = Support::Element(0x8AFF57B3, Support::ByteArray("433920000.00"));
    EXPECT_BYTES(Support::Representation(u"Frequency", elements), plain.ToBytes());
    EXPECT_BYTES(Support::CompressedRepresentation(u"Frequency", elements), compressed.ToBytes());
}

TEST(VectorFiles, AllHoldToTheirFormat)
{
    for (const QString& path : Support::VectorFiles()) {
        SCOPED_TRACE(path.toStdString());
        if (path.endsWith(QLatin1String("hex")))
            EXPECT_NO_THROW(Support::LoadVector(path));
        else if (path.endsWith(QLatin1String(".xml")))
            EXPECT_NO_THROW(Support::LoadXmlVector(path));
        else
            EXPECT_NO_THROW(Support::LoadError(path));
    }
}

TEST(VectorFiles, CompressedOnesHoldTheBodyOfThePlainOnes)
{
    int compared = 0;
    for (const QString& path : Support::VectorFiles()) {
        if (!path.endsWith(QLatin1String(".zhex")) || path.contains(QLatin1String("/read/")))
            continue;
        SCOPED_TRACE(path.toStdString());
        const Vector compressed = Support::LoadVector(path);
        const Vector plain = Support::LoadVector(path.left(path.size() - 4) + QLatin1String("hex"));

        const Support::Field& data = compressed.fields.at(4);
        ASSERT_EQ(data.kind, "size");
        const Support::Field& root = plain.fields.at(4);
        ASSERT_EQ(root.kind, "tag");
        EXPECT_BYTES(qUncompress(compressed.Data().mid(data.offset + 4)), plain.Data().mid(root.offset));
        ++compared;
    }
    EXPECT_GT(compared, 0);
}
