#include <reportcore/inspect/binaryinspector.h>

#include <reportcore/files.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reportbase/codec/wireformat.h>
#include <reportgenerator/reportbase/irgobject.h>

#include <utility>

namespace ReportCore {

using Kind = Event::Kind;
using Role = Event::Role;

namespace {

namespace wire = REPORTGENERATOR::wire;

/// Sizes have no sign, lengths have one. No bytes belong to what is null.
qint64 Claimed(Kind kind, quint32 word)
{
    if (IsNull(kind, word))
        return 0;
    return IsSize(kind) ? qint64(word) : qint64(static_cast<qint32>(word));
}

/// What stands behind a size, or what there is of it.
FileRange TakeCounted(FileRange& range)
{
    return range.Has(wire::WORD_SIZE) ? range.Take(range.TakeWord()) : FileRange();
}

Event EventOf(Kind kind, const FileRange& bytes, int depth, const QString& name)
{
    Event event;
    event.kind = kind;
    event.bytes = bytes;
    event.begin = bytes.Offset();
    event.end = bytes.Offset() + bytes.Size();
    event.depth = depth;
    event.name = name;
    return event;
}

void GiveValue(Event& event, Role role, const QString& value)
{
    event.role = role;
    event.readTo = event.end;
    event.value = value;
}

void GiveFault(Event& event, const char* fault, const QString& text)
{
    event.fault = fault;
    event.faultText = text;
}

} // namespace

FileRange CompressedData(const QByteArray& bytes, bool isBinaryFile)
{
    FileRange range(bytes);
    if (isBinaryFile)
        range = TakeCounted(range);
    TakeCounted(range); // marker
    TakeCounted(range); // object name
    return TakeCounted(range);
}

BinaryInspector::BinaryInspector(const QByteArray& bytes, bool isBinaryFile, Visitor visit)
    : Inspector(std::move(visit)), m_all(bytes), m_isBinaryFile(isBinaryFile)
{
}

void BinaryInspector::Run()
{
    Envelope();
    Body();
}

void BinaryInspector::Envelope()
{
    FileRange range = m_all;
    if (m_isBinaryFile) {
        const auto content = Counted(range, Kind::SizeOfBytes, m_depth, QStringLiteral("representation"));
        m_behindRepresentation = range;
        range = content.value_or(FileRange());
        ++m_depth;
    }
    m_representation = range;
    m_isCompressed =
        Text(range, Kind::SizeOfUtf16, QStringLiteral("marker"), m_depth).Utf16() == wire::COMPRESSED_MARKER;
    m_objectName = Text(range, Kind::SizeOfUtf16, QStringLiteral("object name"), m_depth).Utf16();
    if (!m_isCompressed) {
        m_body = range;
        return;
    }
    const auto data = Counted(range, Kind::SizeOfBytes, m_depth, QStringLiteral("compressed data"));
    m_behindData = range;
    if (data)
        Uncompress(*data, m_depth + 1);
}

void BinaryInspector::Body()
{
    m_isInBody = true;
    // That there is nothing to inspect has been told already.
    if (m_isCompressed && m_body.IsEmpty())
        return;
    const int depth = m_isCompressed ? 0 : m_depth;
    FileRange range = m_body;
    if (!range.Has(wire::WORD_SIZE)) {
        Fault(range, depth, LENGTH_MISMATCH, QStringLiteral("too few bytes for a root element"));
        return;
    }
    HandOut(Kind::Tag, range.Take(wire::WORD_SIZE), depth, QStringLiteral("root"));
    const auto elements = Counted(range, Kind::Length, depth, QStringLiteral("elements"));
    if (elements)
        Elements(*elements, FindObject(m_objectName), depth + 1);
    Behind(range, depth);
}

void BinaryInspector::End()
{
    Behind(m_behindData, m_depth);
    Behind(m_behindRepresentation, 0);
}

/// Visits a length or size, and cuts off what it counts, or what there is when it claims more. Nothing if
/// there is not even the number.
std::optional<FileRange> BinaryInspector::Counted(FileRange& range, Kind kind, int depth, const QString& name,
                                                  qint64 number)
{
    if (!range.Has(wire::WORD_SIZE)) {
        Fault(range.Take(range.Size()), depth, LENGTH_MISMATCH,
              QStringLiteral("too few bytes for the size of %1").arg(name));
        return std::nullopt;
    }
    const FileRange word = range.Take(wire::WORD_SIZE);
    const qint64 count = Claimed(kind, word.Word());
    Event size = EventOf(kind, word, depth, name);
    size.number = number;
    if (!range.Has(count))
        GiveFault(size, LENGTH_MISMATCH, QStringLiteral("%1 claimed, %2 left").arg(count).arg(range.Size()));
    HandOut(std::move(size));
    return range.Take(count);
}

/// A text with its size in front. Returns the text.
FileRange BinaryInspector::Text(FileRange& range, Kind sizeKind, const QString& name, int depth)
{
    const auto text = Counted(range, sizeKind, depth, name);
    if (!text)
        return FileRange();
    if (!text->IsEmpty())
        HandOut(sizeKind == Kind::SizeOfUtf16 ? Kind::Utf16 : Kind::Utf8, *text, depth + 1, name);
    return *text;
}

void BinaryInspector::Uncompress(FileRange data, int depth)
{
    const QByteArray prefixed = data.Bytes();
    if (!data.Has(wire::WORD_SIZE)) {
        Fault(data, depth, DAMAGED_DATA, QStringLiteral("too few bytes for compressed data"));
        return;
    }
    Event prefix =
        EventOf(Kind::Prefix, data.Take(wire::WORD_SIZE), depth, QStringLiteral("bytes when uncompressed"));
    const qint64 claimed = prefix.bytes.Word();
    if (claimed > Ceiling() && prefixed.size() > Ceiling() / wire::MAX_INFLATION) {
        HandOut(prefix);
        Fault(data, depth, TOO_LARGE, QStringLiteral("%1 bytes when uncompressed").arg(claimed));
        return;
    }
    m_uncompressed = REPORTGENERATOR::IRGObject::UncompressBinary(prefixed);
    m_body = FileRange(m_uncompressed);
    if (m_body.IsEmpty()) {
        HandOut(prefix);
        Fault(data, depth, DAMAGED_DATA, QStringLiteral("compressed data that cannot be uncompressed"));
        return;
    }
    if (claimed != m_body.Size())
        GiveFault(prefix, LENGTH_MISMATCH,
                  QStringLiteral("%1 claimed, %2 there").arg(claimed).arg(m_body.Size()));
    HandOut(prefix);
    HandOut(Kind::Other, data, depth, QStringLiteral("zlib data"));
}

void BinaryInspector::Elements(FileRange range, const ObjectInfo* object, int depth)
{
    while (!range.IsEmpty())
        Element(range, object, depth);
}

void BinaryInspector::Element(FileRange& range, const ObjectInfo* object, int depth)
{
    if (!range.Has(wire::WORD_SIZE)) {
        Fault(range.Take(range.Size()), depth, LENGTH_MISMATCH,
              QStringLiteral("too few bytes for an element"));
        return;
    }
    const FileRange tag = range.Take(wire::WORD_SIZE);
    const Field* const type = object ? object->FindTag(static_cast<qint32>(tag.Word())) : nullptr;
    const QString name = type ? type->WireLabel() : QStringLiteral("unknown element");
    if (type)
        m_path.Enter(*type);
    Event event = EventOf(Kind::Tag, tag, depth, name);
    event.role = type ? Role::None : Role::Unknown;
    HandOut(std::move(event));
    if (const auto payload = Counted(range, Kind::Length, depth, name)) {
        if (type)
            Payload(*payload, *type, depth + 1);
        else if (!payload->IsEmpty())
            HandOut(Kind::Other, *payload, depth + 1, QStringLiteral("payload"));
    }
    if (type)
        m_path.Leave();
}

/// A number travels as its text.
void BinaryInspector::Payload(FileRange payload, const Field& type, int depth)
{
    switch (type.Kind()) {
    case FieldKind::Object:
        // An object that is read from a binary form begins anew, other than in XML.
        m_counts.Empty(m_path);
        Elements(payload.Take(payload.Size()), &type.Object(), depth);
        break;
    case FieldKind::List:
        Items(payload, type, depth);
        break;
    case FieldKind::Switch:
        Bool(payload, type, depth);
        break;
    case FieldKind::Version:
        m_counts.TakeVersion(m_path.Parent(), type,
                             Text(payload, Kind::SizeOfUtf16, type.WireLabel(), depth).Utf16());
        break;
    default:
        Text(payload, Kind::SizeOfUtf8, type.WireLabel(), depth);
        break;
    }
    if (!payload.IsEmpty())
        Fault(payload, depth, LENGTH_MISMATCH,
              QStringLiteral("bytes that are no part of %1").arg(type.WireLabel()));
}

void BinaryInspector::Bool(FileRange& payload, const Field& type, int depth)
{
    if (payload.IsEmpty())
        Fault(payload, depth, LENGTH_MISMATCH, QStringLiteral("too few bytes for %1").arg(type.WireLabel()));
    else
        HandOut(Kind::Bool, payload.Take(1), depth, type.WireLabel());
}

void BinaryInspector::Items(FileRange& payload, const Field& list, int depth)
{
    if (!payload.Has(wire::WORD_SIZE)) {
        Fault(payload.Take(payload.Size()), depth, LENGTH_MISMATCH,
              QStringLiteral("too few bytes for a count"));
        return;
    }
    const FileRange word = payload.Take(wire::WORD_SIZE);
    HandOut(Kind::Count, word, depth, list.WireLabel() + QStringLiteral(" that follow"));
    const qint64 count = static_cast<qint32>(word.Word());
    const FieldPath whole = m_path;
    int number = 0;
    while (number < count && !payload.IsEmpty()) {
        const int index = m_counts.Next(whole);
        m_path.SetIndex(index);
        ++number;
        const auto body = Counted(payload, Kind::Length, depth + 1, list.Object().Label(), index + 1);
        if (body)
            Elements(*body, &list.Object(), depth + 2);
    }
    m_path.SetIndex(FieldPath::WHOLE);
    if (number != count)
        Fault(payload.Take(0), depth + 1, LENGTH_MISMATCH,
              QStringLiteral("%1 %2 claimed, %3 there").arg(count).arg(list.WireLabel()).arg(number));
}

void BinaryInspector::HandOut(Kind kind, const FileRange& bytes, int depth, const QString& name)
{
    HandOut(EventOf(kind, bytes, depth, name));
}

void BinaryInspector::HandOut(Event event)
{
    m_hasFault = m_hasFault || event.IsFaulty();
    event.isInReport = m_isInBody;
    event.path = &m_path;
    event.place = event.begin;
    event.contentBegin = event.begin;
    if (m_isInBody && event.role == Role::None)
        GiveRole(event);
    Visit(event);
}

/// An object begins with its tag, an item with its length. A text takes the place of its size, behind which it stands.
void BinaryInspector::GiveRole(Event& event) const
{
    if (event.kind == Kind::Length && m_path.IsItem()) {
        event.role = Role::Object;
        event.readTo = event.end + static_cast<qint32>(event.bytes.Word());
    } else if (event.kind == Kind::Tag) {
        event.role = event.IsOfValue() ? Role::Element : Role::Object;
    } else if (!event.IsOfValue()) {
        return;
    } else if (event.kind == Kind::SizeOfUtf8 || event.kind == Kind::SizeOfUtf16) {
        GiveValue(event, Role::Size, QLatin1String(""));
    } else if (event.kind == Kind::Utf8) {
        GiveValue(event, Role::Value, event.bytes.Utf8());
    } else if (event.kind == Kind::Utf16) {
        GiveValue(event, Role::Value, event.bytes.Utf16());
    } else if (event.kind == Kind::Bool) {
        GiveValue(event, Role::Value, Describe(event));
    }
}

void BinaryInspector::Fault(const FileRange& bytes, int depth, const char* fault, const QString& text)
{
    Event event = EventOf(Kind::Other, bytes, depth, QString());
    GiveFault(event, fault, text);
    HandOut(std::move(event));
}

void BinaryInspector::Behind(const FileRange& bytes, int depth)
{
    if (!bytes.IsEmpty())
        Fault(bytes, depth, TRAILING_DATA, QStringLiteral("%1 bytes behind the end").arg(bytes.Size()));
}

} // namespace ReportCore
