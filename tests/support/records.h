#ifndef TESTS_SUPPORT_RECORDS_H
#define TESTS_SUPPORT_RECORDS_H

// What tests of the record-based classes need again and again: the tags of their elements, and their stream
// operations without the lines that a stream takes each time.
//
//     EXPECT_BYTES(BodyOf(frequency), Element(1, Element(Tag::FREQUENCY_VALUE, ByteArray("1.00"))));
//     EXPECT_EQ(ReadElements(frequency, Element(Tag::FREQUENCY_VALUE, ByteArray("1.00"))), 0);
//     EXPECT_BYTES(RawFormOf(frequency), Byte(1) + Double(1.0));
//     EXPECT_EQ(ReadRawForm(frequency, Byte(1) + Double(1.0)), 0);
//     EXPECT_TEXT(ReadElement(frequency, "<Frequency>1</Frequency>"), "</Frequency>");

#include "support/bytes.h"
#include "support/expect.h"

#include <reportgenerator/reportbase/irgobject.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QString>

#include <functional>
#include <string>
#include <vector>

namespace Support {

namespace Tag {

// Frequency and IFBandwidth share the tags of what they have in common.
constexpr long long FREQUENCY_MIN = 0x4ecb4e58;
constexpr long long FREQUENCY_MAX = 0x6e8dd7f5;
constexpr long long FREQUENCY_USE = 0xaa39c731;
constexpr long long FREQUENCY_VALUE = 0x8aff57b3;

constexpr long long COORDINATE_LONGITUDE = 0x247e7491;
constexpr long long COORDINATE_LATITUDE = 0xcb2f4b76;

constexpr long long AREA_VERSION = 0xccfedfa1;
constexpr long long AREA_NAME = 0x8c9fbca8;
constexpr long long AREA_COORDINATES = 0x6f69083f;
constexpr long long AREA_SCRIPT_ID = 0xc22211a9;

constexpr long long REPORT_FREQUENCY = 0xcf452ada;
constexpr long long REPORT_IF_BANDWIDTH = 0xca8f8c7c;
constexpr long long REPORT_AREA = 0xa838be37;

/// Borne by no element.
constexpr long long UNKNOWN = 0x11223344;

} // namespace Tag

/// What `write` puts on a stream of the version that all representations use.
QByteArray Written(const std::function<void(QDataStream&)>& write);

/// What `GetBinary` writes.
QByteArray BodyOf(const REPORTGENERATOR::IRGObject& object, int tag = 1, bool withTag = true);

/// What `GetXml` writes on a writer that doesn't indent.
QString UnindentedXmlOf(const REPORTGENERATOR::IRGObject& object);

/// Reads `bytes` as a body of `length` bytes. Returns how many bytes of them are left unread.
int ReadElements(REPORTGENERATOR::IRGObject& object, int length, const Bytes& bytes);

/// Reads `elements` as a body of their length.
int ReadElements(REPORTGENERATOR::IRGObject& object, const Bytes& elements);

template <class Object>
QByteArray RawFormOf(const Object& object)
{
    return Written(
        [&object](QDataStream& stream) { object.GetVersionSpecificBinaryWithoutValidation(stream); });
}

/// Returns how many bytes are left unread.
template <class Object>
int ReadRawForm(Object& object, const QByteArray& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_4_6);
    object.SetVersionSpecificBinaryWithoutValidation(stream);
    return static_cast<int>(stream.device()->bytesAvailable());
}

template <class Object>
int ReadRawForm(Object& object, const Bytes& bytes)
{
    return ReadRawForm(object, bytes.Data());
}

/// Has the object process the first element in `xml`, as a holder does: without a reset and without a check
/// afterwards. Returns the token on which the reader was left: "<name>", "</name>", "text", "end", or
/// "error".
QString ReadElement(REPORTGENERATOR::IRGObject& object, const QString& xml);

/// What Qt's reader says about malformed XML.
QString XmlErrorOf(const QString& xml);

struct NamedNumber
{
    std::string name;
    double value;
};

/// Numbers that a careless comparison, a text or a check takes for another: the zeros, the ends of the
/// range of `double`, what is no number, and the numbers that mean "not set" elsewhere, with their
/// neighbours.
std::vector<NamedNumber> OddNumbers();

/// A text that a reader of numbers has to take or to refuse.
struct NumberText
{
    QString text;
    double number; ///< 0 for a text that is not a number
};
std::vector<NumberText> NumberTexts();

/// The bits of a number, which tell apart what `==` doesn't: the zeros, and a NaN from any other number.
quint64 BitsOf(double number);

} // namespace Support

#endif
