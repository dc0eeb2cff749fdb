#include <reporttool/walk.h>

#include <reportgenerator/reportbase/forms/wirefacts.h>
#include <reportgenerator/reportbase/irgobject.h>

#include <utility>

namespace ReportTool {

namespace {

namespace wire = REPORTGENERATOR::wire;

bool IsSize(Kind kind)
{
    return kind == Kind::SizeOfBytes || kind == Kind::SizeOfUtf8 || kind == Kind::SizeOfUtf16;
}

/// Sizes have no sign, lengths have one.
qint64 Claimed(const Field& field)
{
    const quint32 word = field.bytes.Word();
    return IsSize(field.kind) ? qint64(word) : qint64(static_cast<qint32>(word));
}

bool IsNull(const Field& field)
{
    return IsSize(field.kind) && field.bytes.Word() == wire::NULL_SIZE;
}

QString ClaimedAndLeft(qint64 claimed, qint64 left)
{
    return QStringLiteral("%1 claimed, %2 left").arg(claimed).arg(left);
}

QString WhatFollows(const Field& field, const char* what)
{
    const QLatin1String name(field.name);
    if (IsNull(field))
        return QStringLiteral("no %1 at all (null)").arg(name);
    return QStringLiteral("%1, %2 that follow").arg(name, QLatin1String(what));
}

QString DescribeSound(const Field& field)
{
    const QLatin1String name(field.name);
    switch (field.kind) {
    case Kind::Length:
        return field.number == 0 ? QStringLiteral("bytes of %1").arg(name)
                                 : QStringLiteral("bytes of %1 %2").arg(name).arg(field.number);
    case Kind::SizeOfBytes:
        return WhatFollows(field, "bytes");
    case Kind::SizeOfUtf8:
        return WhatFollows(field, "bytes of UTF-8");
    case Kind::SizeOfUtf16:
        return WhatFollows(field, "bytes of UTF-16");
    case Kind::Bool:
        return field.bytes.At(0) != 0 ? QStringLiteral("true") : QStringLiteral("false");
    default:
        return name;
    }
}

} // namespace

Walk::Walk(const QByteArray& bytes, bool isBinaryFile, Visitor visit)
    : m_visit(std::move(visit)), m_all(bytes), m_isBinaryFile(isBinaryFile)
{
}

void Walk::Frame()
{
    ByteRange range = m_all;
    if (m_isBinaryFile) {
        const auto content = Counted(range, {Kind::SizeOfBytes, {}, m_depth, "representation"});
        m_behindRepresentation = range;
        range = content.value_or(ByteRange());
        ++m_depth;
    }
    m_isCompressed = Text(range, Kind::SizeOfUtf16, "marker", m_depth).Utf16() == wire::COMPRESSED_MARKER;
    m_objectName = Text(range, Kind::SizeOfUtf16, "object name", m_depth).Utf16();
    if (!m_isCompressed) {
        m_body = range;
        return;
    }
    const auto data = Counted(range, {Kind::SizeOfBytes, {}, m_depth, "compressed data"});
    m_behindData = range;
    if (data)
        Uncompress(*data, m_depth + 1);
}

void Walk::Body()
{
    // That there is nothing to walk has been told already.
    if (m_isCompressed && m_body.IsEmpty())
        return;
    const int depth = m_isCompressed ? 0 : m_depth;
    ByteRange range = m_body;
    if (!range.Has(wire::WORD_SIZE)) {
        Fault(range, depth, LENGTH_MISMATCH, QStringLiteral("too few bytes for a root element"));
        return;
    }
    Visit(Kind::Tag, range.Take(wire::WORD_SIZE), depth, "root");
    const auto elements = Counted(range, {Kind::Length, {}, depth, "elements"});
    if (elements)
        Elements(*elements, FindLayout(m_objectName), depth + 1);
    Behind(range, depth);
}

void Walk::End()
{
    Behind(m_behindData, m_depth);
    Behind(m_behindRepresentation, 0);
}

/// Visits a length or size, and cuts off what it counts, or what there is when it claims more. Nothing if
/// there is not even the number.
std::optional<ByteRange> Walk::Counted(ByteRange& range, Field field)
{
    if (!range.Has(wire::WORD_SIZE)) {
        Fault(range.Take(range.Size()), field.depth, LENGTH_MISMATCH,
              QStringLiteral("too few bytes for the size of %1").arg(QLatin1String(field.name)));
        return std::nullopt;
    }
    field.bytes = range.Take(wire::WORD_SIZE);
    const qint64 count = IsNull(field) ? 0 : Claimed(field);
    if (!range.Has(count)) {
        field.fault = LENGTH_MISMATCH;
        field.faultText = ClaimedAndLeft(count, range.Size());
    }
    m_visit(field);
    return range.Take(count);
}

/// A text with its size in front. Returns the text.
ByteRange Walk::Text(ByteRange& range, Kind sizeKind, const char* name, int depth)
{
    const auto text = Counted(range, {sizeKind, {}, depth, name});
    if (!text)
        return ByteRange();
    if (!text->IsEmpty())
        Visit(sizeKind == Kind::SizeOfUtf16 ? Kind::Utf16 : Kind::Utf8, *text, depth + 1, name);
    return *text;
}

void Walk::Uncompress(ByteRange data, int depth)
{
    const QByteArray prefixed = data.Bytes();
    if (!data.Has(wire::WORD_SIZE)) {
        Fault(data, depth, DAMAGED_DATA, QStringLiteral("too few bytes for compressed data"));
        return;
    }
    Field prefix{Kind::Prefix, data.Take(wire::WORD_SIZE), depth, "bytes when uncompressed"};
    const qint64 claimed = prefix.bytes.Word();
    if (claimed > UNCOMPRESSED_CEILING && prefixed.size() > UNCOMPRESSED_CEILING / wire::MAX_INFLATION) {
        m_visit(prefix);
        Fault(data, depth, TOO_LARGE, QStringLiteral("%1 bytes when uncompressed").arg(claimed));
        return;
    }
    m_uncompressed = REPORTGENERATOR::IRGObject::UncompressBinary(prefixed);
    m_body = ByteRange(m_uncompressed);
    if (m_body.IsEmpty()) {
        m_visit(prefix);
        Fault(data, depth, DAMAGED_DATA, QStringLiteral("compressed data that cannot be uncompressed"));
        return;
    }
    if (claimed != m_body.Size()) {
        prefix.fault = LENGTH_MISMATCH;
        prefix.faultText = QStringLiteral("%1 claimed, %2 there").arg(claimed).arg(m_body.Size());
    }
    m_visit(prefix);
    Visit(Kind::Other, data, depth, "zlib data");
}

void Walk::Elements(ByteRange range, const Layout* layout, int depth)
{
    while (!range.IsEmpty())
        Element(range, layout, depth);
}

void Walk::Element(ByteRange& range, const Layout* layout, int depth)
{
    if (!range.Has(wire::WORD_SIZE)) {
        Fault(range.Take(range.Size()), depth, LENGTH_MISMATCH,
              QStringLiteral("too few bytes for an element"));
        return;
    }
    const ByteRange tag = range.Take(wire::WORD_SIZE);
    const ElementType* type = FindType(layout, static_cast<qint32>(tag.Word()));
    const char* name = type ? type->name : "unknown element";
    Visit(Kind::Tag, tag, depth, name);
    const auto payload = Counted(range, {Kind::Length, {}, depth, name});
    if (!payload)
        return;
    if (type)
        Payload(*payload, *type, depth + 1);
    else if (!payload->IsEmpty())
        Visit(Kind::Other, *payload, depth + 1, "payload");
}

void Walk::Payload(ByteRange payload, const ElementType& type, int depth)
{
    switch (type.payload) {
    case PayloadType::Utf8:
        Text(payload, Kind::SizeOfUtf8, type.name, depth);
        break;
    case PayloadType::Utf16:
        Text(payload, Kind::SizeOfUtf16, type.name, depth);
        break;
    case PayloadType::Bool:
        Bool(payload, type, depth);
        break;
    case PayloadType::Coordinates:
        Coordinates(payload, type, depth);
        break;
    case PayloadType::Object:
        Elements(payload.Take(payload.Size()), type.layout, depth);
        break;
    }
    if (!payload.IsEmpty())
        Fault(payload, depth, LENGTH_MISMATCH,
              QStringLiteral("bytes that are no part of %1").arg(QLatin1String(type.name)));
}

void Walk::Bool(ByteRange& payload, const ElementType& type, int depth)
{
    if (payload.IsEmpty())
        Fault(payload, depth, LENGTH_MISMATCH,
              QStringLiteral("too few bytes for %1").arg(QLatin1String(type.name)));
    else
        Visit(Kind::Bool, payload.Take(1), depth, type.name);
}

void Walk::Coordinates(ByteRange& payload, const ElementType& type, int depth)
{
    if (!payload.Has(wire::WORD_SIZE)) {
        Fault(payload.Take(payload.Size()), depth, LENGTH_MISMATCH,
              QStringLiteral("too few bytes for a count"));
        return;
    }
    const ByteRange word = payload.Take(wire::WORD_SIZE);
    Visit(Kind::Count, word, depth, "coordinates that follow");
    const qint64 count = static_cast<qint32>(word.Word());
    qint64 number = 0;
    while (number < count && !payload.IsEmpty()) {
        ++number;
        const auto body = Counted(payload, {Kind::Length, {}, depth + 1, "coordinate", number});
        if (body)
            Elements(*body, type.layout, depth + 2);
    }
    if (number != count)
        Fault(payload.Take(0), depth + 1, LENGTH_MISMATCH,
              QStringLiteral("%1 coordinates claimed, %2 there").arg(count).arg(number));
}

void Walk::Visit(Kind kind, const ByteRange& bytes, int depth, const char* name)
{
    Field field;
    field.kind = kind;
    field.bytes = bytes;
    field.depth = depth;
    field.name = name;
    m_visit(field);
}

void Walk::Fault(const ByteRange& bytes, int depth, const char* fault, const QString& text)
{
    Field field;
    field.bytes = bytes;
    field.depth = depth;
    field.fault = fault;
    field.faultText = text;
    m_visit(field);
}

void Walk::Behind(const ByteRange& bytes, int depth)
{
    if (!bytes.IsEmpty())
        Fault(bytes, depth, TRAILING_DATA, QStringLiteral("%1 bytes behind the end").arg(bytes.Size()));
}

QString Describe(const Field& field)
{
    if (!field.IsFaulty())
        return DescribeSound(field);
    if (field.kind == Kind::Other)
        return field.faultText;
    return QStringLiteral("%1: %2").arg(DescribeSound(field), field.faultText);
}

QString DescribeFault(const Field& field)
{
    if (field.kind == Kind::Other)
        return field.faultText;
    const QString name = QLatin1String(field.name);
    if (field.kind == Kind::Length)
        return QStringLiteral("length of %1: %2").arg(name, field.faultText);
    if (IsSize(field.kind))
        return QStringLiteral("size of %1: %2").arg(name, field.faultText);
    return QStringLiteral("%1: %2").arg(name, field.faultText);
}

} // namespace ReportTool
