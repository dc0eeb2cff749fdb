#include "support/bytes.h"
#include "support/expect.h"

#include <reportgenerator/reportbase/irgobject.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <string>
#include <vector>

namespace {

using REPORTGENERATOR::IRGObject;
using Support::Bytes;
using Support::Int32;
using Support::NullString;
using Support::Raw;
using Support::Stored;
using Support::String;
using Support::Text;

constexpr int LEAST_LEVEL = -1;
constexpr int GREATEST_LEVEL = 9;
constexpr int MEGABYTE = 1024 * 1024;

/// A megabyte that compresses badly and has every byte value.
QByteArray Noise()
{
    QByteArray bytes(MEGABYTE, '\0');
    unsigned int state = 12345;
    for (char& byte : bytes) {
        state = state * 1664525u + 1013904223u;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

std::vector<QByteArray> ByteSamples()
{
    return {QByteArray("x"),       QByteArray("\0", 1),       QByteArray("text with text with text"),
            QByteArray(5, '\xff'), QByteArray(MEGABYTE, 'a'), Noise()};
}

std::vector<QString> TextSamples()
{
    return {QStringLiteral(""),
            Text("x"),
            Text("Zürich € 😀"),
            QString(3, QChar(0)),
            QString(1, QChar(0xD800)),
            QString(QChar(0xFEFF)) + Text("behind a byte order mark"),
            QString(MEGABYTE / 2, QLatin1Char('a'))};
}

} // namespace

TEST(Compression, BytesComeBackFromEveryLevel)
{
    for (const QByteArray& sample : ByteSamples()) {
        for (int level = LEAST_LEVEL; level <= GREATEST_LEVEL; ++level) {
            SCOPED_TRACE(level);
            const QByteArray compressed = IRGObject::Compress(sample, level);
            EXPECT_BYTES(compressed.left(4), Int32(static_cast<int>(sample.size())));
            EXPECT_TRUE(IRGObject::UncompressBinary(compressed) == sample);
        }
    }
}

TEST(Compression, BytesAreCompressedAsQtDoes)
{
    for (int level = LEAST_LEVEL - 1; level <= GREATEST_LEVEL + 1; ++level) {
        SCOPED_TRACE(level);
        const QByteArray sample("text with text with text");
        EXPECT_BYTES(IRGObject::Compress(sample, level), qCompress(sample, level));
    }
}

TEST(Compression, LevelReachesZlib)
{
    const QByteArray sample(MEGABYTE, 'a');
    EXPECT_GT(IRGObject::Compress(sample, 0).size(), MEGABYTE);
    EXPECT_LT(IRGObject::Compress(sample, 1).size(), MEGABYTE / 100);
    EXPECT_LT(IRGObject::Compress(sample, 9).size(), IRGObject::Compress(sample, 1).size());

    const QString text(MEGABYTE / 2, QLatin1Char('a'));
    EXPECT_GT(IRGObject::Compress(text, 0).size(), MEGABYTE);
    EXPECT_LT(IRGObject::Compress(text, 9).size(), MEGABYTE / 100);
}

TEST(Compression, EmptyAndNullBytesComeBackEmpty)
{
    for (int level = LEAST_LEVEL; level <= GREATEST_LEVEL; ++level) {
        SCOPED_TRACE(level);
        for (const QByteArray& sample : {QByteArray(), QByteArray("")}) {
            const QByteArray compressed = IRGObject::Compress(sample, level);
            EXPECT_BYTES(compressed, Int32(0));
            EXPECT_TRUE(IRGObject::UncompressBinary(compressed).isEmpty());
        }
    }
}

TEST(Compression, TextsComeBackFromEveryLevel)
{
    for (const QString& sample : TextSamples()) {
        for (int level = LEAST_LEVEL; level <= GREATEST_LEVEL; ++level) {
            SCOPED_TRACE(level);
            const QString text = IRGObject::UncompressString(IRGObject::Compress(sample, level));
            EXPECT_TRUE(text == sample);
            EXPECT_FALSE(text.isNull());
        }
    }
}

TEST(Compression, NullTextComesBackNull)
{
    for (int level = LEAST_LEVEL; level <= GREATEST_LEVEL; ++level)
        EXPECT_TRUE(IRGObject::UncompressString(IRGObject::Compress(QString(), level)).isNull());
}

TEST(Compression, TextIsCompressedInItsSerialisedForm)
{
    for (int level = LEAST_LEVEL; level <= GREATEST_LEVEL; ++level) {
        SCOPED_TRACE(level);
        EXPECT_BYTES(qUncompress(IRGObject::Compress(Text("Zürich"), level)), String(u"Zürich"));
        EXPECT_BYTES(qUncompress(IRGObject::Compress(QStringLiteral(""), level)), String(u""));
        EXPECT_BYTES(qUncompress(IRGObject::Compress(QString(), level)), NullString());
        EXPECT_BYTES(IRGObject::Compress(Text("Zürich"), level), qCompress(String(u"Zürich").Data(), level));
    }
}

TEST(Compression, DataOfAnyPackerAreUncompressed)
{
    const Bytes content = Raw("text with text with text");
    EXPECT_BYTES(IRGObject::UncompressBinary(Stored(content).Data()), content);
    EXPECT_TEXT(IRGObject::UncompressString(Stored(String(u"Zürich")).Data()), "Zürich");

    const Bytes large = Raw(std::string(200000, 'x'));
    EXPECT_TRUE(IRGObject::UncompressBinary(Stored(large).Data()) == large.Data());
}

TEST(Compression, DamagedDataComeBackEmpty)
{
    const std::string good = Stored(Raw("content")).Data().toStdString();
    std::string wrongHeader = good;
    wrongHeader[4] = 'y';
    std::string wrongChecksum = good;
    wrongChecksum.back() = static_cast<char>(wrongChecksum.back() ^ 1);
    const std::vector<std::string> damaged = {
        "",
        "a",
        "abc",
        std::string(4, '\0'),
        std::string("\0\0\0\x07", 4),
        std::string("\0\0\0\x07", 4) + "x",
        std::string("\0\0\0\x07no zlib data", 16),
        wrongHeader,
        wrongChecksum,
        good.substr(0, good.size() - 4),
        good.substr(0, 6),
        std::string(100, '\xff'),
    };
    for (const std::string& data : damaged) {
        SCOPED_TRACE(Raw(data).Annotated());
        EXPECT_TRUE(IRGObject::UncompressBinary(Raw(data).Data()).isEmpty());
        EXPECT_TRUE(IRGObject::UncompressString(Raw(data).Data()).isEmpty());
    }
}

TEST(Compression, LengthPrefixNeedNotBeTrue)
{
    const Bytes content = Raw("text with text with text");
    const QByteArray zlib = Stored(content).Data().mid(4);
    for (const long long prefix : {0LL, 1LL, 23LL, 25LL, 1000000LL, 0x10000000LL, 0x7fffffdfLL}) {
        SCOPED_TRACE(prefix);
        EXPECT_BYTES(IRGObject::UncompressBinary(Int32(prefix).Data() + zlib), content);
    }
}

/// More than a byte array holds.
TEST(Compression, AbsurdLengthPrefixGivesNothing)
{
    const QByteArray zlib = Stored(Raw("text with text with text")).Data().mid(4);
    for (const long long prefix : {0x7fffffe0LL, 0x7fffffffLL, 0x80000000LL, 0xfffffff0LL, 0xffffffffLL}) {
        SCOPED_TRACE(prefix);
        EXPECT_TRUE(IRGObject::UncompressBinary(Int32(prefix).Data() + zlib).isEmpty());
    }
}

TEST(Compression, TextThatIsCutOffOrLiesAboutItsSizeComesBackEmpty)
{
    for (const Bytes& content : {Raw("\x01"), Int32(6) + Raw("ab"), Int32(3) + Raw("abc"),
                                 Int32(0x7ffffffe) + Raw("abcd"), Int32(-2) + Raw("abcd")}) {
        SCOPED_TRACE(content.Annotated());
        EXPECT_TRUE(IRGObject::UncompressString(Stored(content).Data()).isEmpty());
    }
}

TEST(Compression, BytesBehindTheTextAreNotLookedAt)
{
    EXPECT_TEXT(IRGObject::UncompressString(Stored(String(u"text") + Raw("rest")).Data()), "text");
}
