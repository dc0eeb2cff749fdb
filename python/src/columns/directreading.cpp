#include "directreading.h"

#include <reportcore/files.h>

#include <reportgenerator/reportbase/records/checking.h>
#include <reportgenerator/reportbase/records/fastelements.h>
#include <reportgenerator/reportbase/records/fastxml.h>

#include <QtCore/QByteArray>
#include <QtCore/QtEndian>

#include <cstring>

namespace ReportColumns {

using REPORTGENERATOR::ByteRange;
using REPORTGENERATOR::ReportBaseData;
using REPORTGENERATOR::Schema;
using REPORTGENERATOR::XmlScanner;

namespace wire = REPORTGENERATOR::wire;

namespace {

constexpr char DECLARATION[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
constexpr std::size_t DECLARATION_SIZE = sizeof DECLARATION - 1;

bool ReadXml(const char* begin, const char* end, ReportBaseData& data)
{
    const auto size = static_cast<std::size_t>(end - begin);
    if (size >= DECLARATION_SIZE && std::memcmp(begin, DECLARATION, DECLARATION_SIZE) == 0)
        begin += DECLARATION_SIZE;
    return REPORTGENERATOR::ReadDocument(XmlScanner<char>(begin, end), data);
}

/// A root element with nothing behind it.
bool ReadRoot(ByteRange range, ReportBaseData& data)
{
    qint32 tag = 0;
    qint32 length = 0;
    return range.TakeWord(tag) && tag == wire::ROOT_TAG && range.TakeWord(length) && length > 0 &&
           length == range.Left() && REPORTGENERATOR::ReadRecord(range, data);
}

bool ReadCompressed(ByteRange range, ReportBaseData& data)
{
    ByteRange packed = {};
    if (!range.TakeCounted(packed) || range.Left() > 0 || packed.Left() < wire::WORD_SIZE)
        return false;
    const qint64 claimed = qFromBigEndian<quint32>(packed.next);
    if (claimed > ReportCore::Ceiling())
        return false;
    const QByteArray body = REPORTGENERATOR::IRGObject::UncompressBinary(
        QByteArray::fromRawData(packed.next, static_cast<int>(packed.Left())));
    return body.size() == claimed && ReadRoot({body.constData(), body.constData() + body.size()}, data);
}

bool ReadRepresentation(ByteRange range, ReportBaseData& data)
{
    ByteRange marker = {};
    ByteRange objectName = {};
    if (!range.TakeText(marker) || !range.TakeText(objectName) ||
        !objectName.HoldsText(Schema<ReportBaseData>::NAME))
        return false;
    if (marker.HoldsText(wire::PLAIN_MARKER))
        return ReadRoot(range, data);
    return marker.HoldsText(wire::COMPRESSED_MARKER) && ReadCompressed(range, data);
}

bool ReadBinary(ByteRange range, ReportBaseData& data)
{
    ByteRange content = range;
    ByteRange representation = {};
    const bool isFile = content.TakeCounted(representation) && content.Left() == 0;
    return ReadRepresentation(isFile ? representation : range, data);
}

/// No size of a text begins with such a byte, since the text would be too long.
bool LooksLikeText(char first)
{
    return first != '\0';
}

} // namespace

bool ReadDirectly(const char* bytes, std::size_t size, ReportBaseData& data)
{
    if (size == 0 || size > static_cast<std::size_t>(ReportCore::Ceiling()))
        return false;
    const char* const end = bytes + size;
    const bool isRead = LooksLikeText(*bytes) ? ReadXml(bytes, end, data) : ReadBinary({bytes, end}, data);
    return isRead && REPORTGENERATOR::AreFieldsGood(data, Schema<ReportBaseData>::FIELDS);
}

} // namespace ReportColumns
