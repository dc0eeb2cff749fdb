#include "support/bytes.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace Support {
namespace {

constexpr std::size_t BYTES_PER_ROW = 16;
constexpr std::size_t STORED_BLOCK_MAX = 0xffff;
constexpr std::uint32_t NULL_SIZE = 0xffffffff;
constexpr std::uint32_t ADLER_MODULUS = 65521;

std::string Formatted(const char* format, unsigned long long number)
{
    char text[32];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

std::string MostSignificantFirst(std::uint64_t number, int width)
{
    std::string bytes;
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
        bytes += static_cast<char>((number >> shift) & 0xff);
    return bytes;
}

std::string Spelled32(long long value)
{
    if (value < INT32_MIN || value > static_cast<long long>(UINT32_MAX))
        throw std::out_of_range("not a number of 32 bits: " + std::to_string(value));
    return MostSignificantFirst(static_cast<std::uint64_t>(value) & 0xffffffffu, 4);
}

std::string Hex(std::string_view bytes)
{
    std::string text;
    for (const char byte : bytes) {
        if (!text.empty())
            text += ' ';
        text += Formatted("%02llx", static_cast<unsigned char>(byte));
    }
    return text;
}

std::string Readable(std::string_view bytes)
{
    std::string text;
    for (const char byte : bytes)
        text += byte >= 0x20 && byte < 0x7f ? byte : '.';
    return text;
}

std::string Row(std::string_view bytes, std::size_t offset)
{
    if (offset >= bytes.size())
        return "(end)";
    const std::string_view row = bytes.substr(offset, BYTES_PER_ROW);
    std::string text = Hex(row);
    text.resize(3 * BYTES_PER_ROW, ' ');
    return text + Readable(row);
}

std::string Joined(const Bytes& bytes)
{
    std::string joined;
    for (const Bytes::Piece& piece : bytes.Pieces())
        joined += piece.bytes;
    return joined;
}

/// Which piece holds the byte at `offset`.
std::string MeaningAt(const Bytes& bytes, std::size_t offset)
{
    std::size_t end = 0;
    for (const Bytes::Piece& piece : bytes.Pieces()) {
        const std::size_t begin = end;
        end += piece.bytes.size();
        if (offset < end)
            return piece.meaning + ", byte " + std::to_string(offset - begin) + " of " +
                   std::to_string(piece.bytes.size());
    }
    return "behind the end";
}

std::size_t FirstDifference(std::string_view left, std::string_view right)
{
    const auto difference = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    return static_cast<std::size_t>(difference.first - left.begin());
}

::testing::AssertionResult CompareBytes(const char* actualExpression, const char* expectedExpression,
                                        std::string_view actual, std::string_view expected,
                                        const Bytes* meaning)
{
    if (actual == expected)
        return ::testing::AssertionSuccess();

    const std::size_t offset = FirstDifference(actual, expected);
    const std::size_t row = offset - offset % BYTES_PER_ROW;
    ::testing::AssertionResult failure = ::testing::AssertionFailure();
    failure << actualExpression << " (" << actual.size() << " bytes) differs from " << expectedExpression
            << " (" << expected.size() << " bytes) from offset " << offset << " ("
            << Formatted("0x%04llx", offset) << ") on\n";
    if (meaning != nullptr)
        failure << "  in        " << MeaningAt(*meaning, offset) << "\n";
    failure << "  row       " << Formatted("0x%04llx", row) << std::string(2 + 3 * (offset - row), ' ')
            << "vv\n"
            << "  actual    0x    "
            << "  " << Row(actual, row) << "\n"
            << "  expected  0x    "
            << "  " << Row(expected, row);
    if (meaning != nullptr)
        failure << "\nexpected:\n" << meaning->Annotated();
    return failure;
}

std::string_view View(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

std::string Adler32(std::string_view bytes)
{
    std::uint32_t sum = 1;
    std::uint32_t sumOfSums = 0;
    for (const char byte : bytes) {
        sum = (sum + static_cast<unsigned char>(byte)) % ADLER_MODULUS;
        sumOfSums = (sumOfSums + sum) % ADLER_MODULUS;
    }
    return MostSignificantFirst((static_cast<std::uint64_t>(sumOfSums) << 16) | sum, 4);
}

std::string LeastSignificantFirst16(std::size_t number)
{
    return {static_cast<char>(number & 0xff), static_cast<char>((number >> 8) & 0xff)};
}

Bytes Frame(std::u16string_view marker, std::u16string_view name)
{
    return String(marker) + String(name);
}

} // namespace

Bytes::Bytes(const std::string& bytes, const std::string& meaning, int depth)
    : m_pieces{{bytes, meaning, depth}}
{
}

Bytes& Bytes::operator+=(const Bytes& other)
{
    const std::vector<Piece> pieces = other.m_pieces; // other may be this
    m_pieces.insert(m_pieces.end(), pieces.begin(), pieces.end());
    return *this;
}

Bytes Bytes::Deeper() const
{
    Bytes deeper = *this;
    for (Piece& piece : deeper.m_pieces)
        ++piece.depth;
    return deeper;
}

QByteArray Bytes::Data() const
{
    const std::string joined = Joined(*this);
    return QByteArray(joined.data(), static_cast<int>(joined.size()));
}

int Bytes::Size() const
{
    std::size_t size = 0;
    for (const Piece& piece : m_pieces)
        size += piece.bytes.size();
    return static_cast<int>(size);
}

std::string Bytes::Annotated() const
{
    std::string text;
    std::size_t offset = 0;
    for (const Piece& piece : m_pieces) {
        for (std::size_t begin = 0; begin < piece.bytes.size(); begin += BYTES_PER_ROW) {
            std::string row = Hex(std::string_view(piece.bytes).substr(begin, BYTES_PER_ROW));
            row.resize(3 * BYTES_PER_ROW + 1, ' ');
            text += Formatted("%04llx", offset + begin) + "  " + row +
                    std::string(static_cast<std::size_t>(2 * piece.depth), ' ') +
                    (begin == 0 ? piece.meaning : std::string("...")) + "\n";
        }
        offset += piece.bytes.size();
    }
    return text;
}

void PrintTo(const Bytes& bytes, std::ostream* stream)
{
    *stream << bytes.Size() << " bytes\n" << bytes.Annotated();
}

Bytes Raw(std::string_view bytes, const std::string& meaning)
{
    return {std::string(bytes), meaning};
}

Bytes Byte(int value, const std::string& meaning)
{
    if (value < 0 || value > 0xff)
        throw std::out_of_range("not a byte: " + std::to_string(value));
    return {std::string(1, static_cast<char>(value)), meaning};
}

Bytes Bool(bool value)
{
    return {std::string(1, value ? '\1' : '\0'), value ? "bool: true" : "bool: false"};
}

Bytes Int32(long long value, const std::string& meaning)
{
    return {Spelled32(value), meaning + ": " + std::to_string(value)};
}

Bytes Double(double value, const std::string& meaning)
{
    std::uint64_t bits = 0;
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof bits);
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", value);
    return {MostSignificantFirst(bits, 8), meaning + ": " + text};
}

Bytes String(std::u16string_view text)
{
    std::string bytes;
    std::string shown;
    for (const char16_t unit : text) {
        bytes += MostSignificantFirst(unit, 2);
        shown += unit >= 0x20 && unit < 0x7f ? static_cast<char>(unit) : '?';
    }
    Bytes string(Spelled32(static_cast<long long>(bytes.size())), "size of text");
    if (!bytes.empty())
        string += Bytes(bytes, "text: \"" + shown + "\"", 1);
    return string;
}

Bytes NullString()
{
    return {Spelled32(NULL_SIZE), "size of text: null"};
}

Bytes ByteArray(std::string_view bytes)
{
    Bytes array(Spelled32(static_cast<long long>(bytes.size())), "size of bytes");
    if (!bytes.empty())
        array += Bytes(std::string(bytes), "bytes: \"" + Readable(bytes) + "\"", 1);
    return array;
}

Bytes NullByteArray()
{
    return {Spelled32(NULL_SIZE), "size of bytes: null"};
}

Bytes ByteArrayOf(const Bytes& content)
{
    return Bytes(Spelled32(content.Size()), "size of bytes") + content.Deeper();
}

Bytes Element(long long tag, const Bytes& payload)
{
    return ElementOfLength(tag, payload.Size(), payload);
}

Bytes ElementOfLength(long long tag, long long length, const Bytes& payload)
{
    const std::string spelled = Spelled32(tag);
    return Bytes(spelled, "tag: " + Hex(spelled)) + BodyOfLength(length, payload);
}

Bytes Body(const Bytes& elements)
{
    return BodyOfLength(elements.Size(), elements);
}

Bytes BodyOfLength(long long length, const Bytes& elements)
{
    const std::string meaning = length == elements.Size()
                                    ? "length: " + std::to_string(length)
                                    : "length: " + std::to_string(length) + ", wrong on purpose, there are " +
                                          std::to_string(elements.Size());
    return Bytes(Spelled32(length), meaning) + elements.Deeper();
}

Bytes Representation(std::u16string_view name, const Bytes& elements)
{
    return RepresentationOfLength(name, elements.Size(), elements);
}

Bytes RepresentationOfLength(std::u16string_view name, long long length, const Bytes& elements)
{
    return Frame(u"IRGObject", name) + ElementOfLength(1, length, elements);
}

Bytes CompressedRepresentation(std::u16string_view name, const Bytes& elements)
{
    return Frame(u"IRGObjectQCompress", name) + ByteArrayOf(Stored(Element(1, elements)));
}

Bytes Stored(const Bytes& content)
{
    const std::string bytes = Joined(content);
    Bytes data(Spelled32(static_cast<long long>(bytes.size())), "bytes when uncompressed");
    data += Bytes("\x78\x01", "zlib: header");

    std::size_t begin = 0;
    do {
        const std::size_t size = std::min(bytes.size() - begin, STORED_BLOCK_MAX);
        const bool isLast = begin + size == bytes.size();
        data += Bytes(std::string(1, isLast ? '\1' : '\0'),
                      isLast ? "zlib: last block, stored" : "zlib: block, stored");
        data += Bytes(LeastSignificantFirst16(size), "zlib: size of the block, low byte first");
        data += Bytes(LeastSignificantFirst16(~size), "zlib: its complement");
        if (isLast && begin == 0)
            data += content.Deeper();
        else
            data += Bytes(bytes.substr(begin, size), "zlib: part of the content", 1);
        begin += size;
    } while (begin < bytes.size());

    return data + Bytes(Adler32(bytes), "zlib: Adler-32");
}

Bytes BinaryFile(const Bytes& representation)
{
    return ByteArrayOf(representation);
}

::testing::AssertionResult SameBytes(const char* actualExpression, const char* expectedExpression,
                                     const QByteArray& actual, const Bytes& expected)
{
    const std::string expectedBytes = Joined(expected);
    return CompareBytes(actualExpression, expectedExpression, View(actual), expectedBytes, &expected);
}

::testing::AssertionResult SameBytes(const char* actualExpression, const char* expectedExpression,
                                     const QByteArray& actual, const QByteArray& expected)
{
    return CompareBytes(actualExpression, expectedExpression, View(actual), View(expected), nullptr);
}

::testing::AssertionResult SameBytes(const char* actualExpression, const char* expectedExpression,
                                     const Bytes& actual, const Bytes& expected)
{
    return SameBytes(actualExpression, expectedExpression, actual.Data(), expected);
}

} // namespace Support
