#ifndef TESTS_SUPPORT_BYTES_H
#define TESTS_SUPPORT_BYTES_H

// Payloads composed from named pieces, broken ones included.
//
//     Bytes good = Representation(u"Frequency", Element(MIN, ByteArray("1.00")) + Element(VALUE,
//     ByteArray("2.00"))); Bytes bad = RepresentationOfLength(u"Frequency", 999, Element(VALUE,
//     ByteArray("2.00"))); QByteArray input = bad.Data();
//     EXPECT_RG_THROW(frequency.SetBinaryRepresentation(input), …);
//     EXPECT_BYTES(frequency.GetBinaryRepresentationAsQByteArray(), good);
//
// All numbers are spelled most significant byte first, here and by hand: nothing of this uses QDataStream,
// zlib or the library under test, so that it can say what they have to produce. Numbers of 32 bits may be
// given as signed or unsigned (-1962977357 and 0x8AFF57B3 are the same tag); others throw std::out_of_range.
//
// A failing EXPECT_BYTES names the offset of the first difference, both byte rows and the piece it lies in.

#include "support/printers.h"

#include <gtest/gtest.h>

#include <QtCore/QByteArray>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace Support {

/// Bytes that know what they stand for.
class Bytes
{
public:
    struct Piece
    {
        std::string bytes;
        std::string meaning;
        int depth; ///< how many lengths stand around the piece
    };

    Bytes() = default;
    Bytes(const std::string& bytes, const std::string& meaning, int depth = 0);

    Bytes& operator+=(const Bytes& other);
    friend Bytes operator+(Bytes left, const Bytes& right) { return left += right; }

    /// The same bytes one level deeper.
    Bytes Deeper() const;

    QByteArray Data() const;
    int Size() const;
    const std::vector<Piece>& Pieces() const { return m_pieces; }

    /// Lines of offset, bytes and meaning.
    std::string Annotated() const;

private:
    std::vector<Piece> m_pieces;
};

void PrintTo(const Bytes& bytes, std::ostream* stream);

// --- Values -----------------------------------------------------------------------------------------------

Bytes Raw(std::string_view bytes, const std::string& meaning = "bytes");
Bytes Byte(int value, const std::string& meaning = "byte");
Bytes Bool(bool value);
Bytes Int32(long long value, const std::string& meaning = "number");

/// A 64-bit IEEE number.
Bytes Double(double value, const std::string& meaning = "double");

/// A serialised QString: its size in bytes, then UTF-16.
Bytes String(std::u16string_view text);

/// A serialised null QString: the size 0xFFFFFFFF and nothing else.
Bytes NullString();

/// A serialised QByteArray: its size, then the bytes.
Bytes ByteArray(std::string_view bytes);

/// A serialised null QByteArray.
Bytes NullByteArray();

/// A serialised QByteArray that holds `content`.
Bytes ByteArrayOf(const Bytes& content);

// --- Elements and bodies ----------------------------------------------------------------------------------

/// Tag, length, payload: a field of an object, or a member object with its elements as payload.
Bytes Element(long long tag, const Bytes& payload);

/// An element that claims `length` bytes, whatever it has.
Bytes ElementOfLength(long long tag, long long length, const Bytes& payload);

/// Length and elements, without a tag, as an area holds its coordinates.
Bytes Body(const Bytes& elements);
Bytes BodyOfLength(long long length, const Bytes& elements);

// --- Representations --------------------------------------------------------------------------------------

/// The plain representation: marker, object name, root tag 1, root length, elements.
Bytes Representation(std::u16string_view name, const Bytes& elements);

/// The same with a root length of its own.
Bytes RepresentationOfLength(std::u16string_view name, long long length, const Bytes& elements);

/// The compressed representation, its data packed as by `Stored`.
Bytes CompressedRepresentation(std::u16string_view name, const Bytes& elements);

/// Compressed data that decode to `content`: the four-byte length prefix, then a zlib stream of stored
/// blocks. It can be read everywhere; zlib itself packs tighter, so compare what is written by uncompressing
/// it.
Bytes Stored(const Bytes& content);

/// A binary file: one serialised QByteArray that holds a representation.
Bytes BinaryFile(const Bytes& representation);

// --- Comparison -------------------------------------------------------------------------------------------

::testing::AssertionResult SameBytes(const char* actualExpression, const char* expectedExpression,
                                     const QByteArray& actual, const Bytes& expected);
::testing::AssertionResult SameBytes(const char* actualExpression, const char* expectedExpression,
                                     const QByteArray& actual, const QByteArray& expected);
::testing::AssertionResult SameBytes(const char* actualExpression, const char* expectedExpression,
                                     const Bytes& actual, const Bytes& expected);

} // namespace Support

/// Compares a QByteArray with Bytes or with a QByteArray.
#define EXPECT_BYTES(actual, expected) EXPECT_PRED_FORMAT2(::Support::SameBytes, actual, expected)
#define ASSERT_BYTES(actual, expected) ASSERT_PRED_FORMAT2(::Support::SameBytes, actual, expected)

#endif
