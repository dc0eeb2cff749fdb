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
    m_isCompressed = CountedText(range, Kind::SizeOfUtf16, m_depth, QStringLiteral("marker")).Utf16() ==
                     wire::COMPRESSED_MARKER;
    m_objectName = CountedText(range, Kind::SizeOfUtf16, m_depth, QStringLiteral("object name")).Utf16();
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
    Event root = FieldOf(Kind::Tag, range.Take(wire::WORD_SIZE), depth, QStringLiteral("root"));
    root.role = Role::Object;
    Visit(root);
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
/// there is not even the number. An item begins with its length.
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
    Event size = FieldOf(kind, word, depth, name);
    size.number = number;
    if (number > 0) {
        size.role = Role::Object;
        size.readTo = size.end + count;
    } else if (m_isInBody && IsSize(kind)) {
        GiveValue(size, Role::Size, QLatin1String(""));
    }
    if (!range.Has(count))
        GiveFault(size, LENGTH_MISMATCH, QStringLiteral("%1 claimed, %2 left").arg(count).arg(range.Size()));
    Visit(size);
    return range.Take(count);
}

/// A text with its size in front. Returns the text.
FileRange BinaryInspector::CountedText(FileRange& range, Kind sizeKind, int depth, const QString& name)
{
    const auto text = Counted(range, sizeKind, depth, name);
    if (!text)
        return FileRange();
    if (!text->IsEmpty()) {
        const bool isUtf16 = sizeKind == Kind::SizeOfUtf16;
        Event event = FieldOf(isUtf16 ? Kind::Utf16 : Kind::Utf8, *text, depth + 1, name);
        if (m_isInBody)
            GiveValue(event, Role::Value, isUtf16 ? text->Utf16() : text->Utf8());
        Visit(event);
    }
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
        FieldOf(Kind::Prefix, data.Take(wire::WORD_SIZE), depth, QStringLiteral("bytes when uncompressed"));
    const qint64 claimed = prefix.bytes.Word();
    if (claimed > Ceiling() && prefixed.size() > Ceiling() / wire::MAX_INFLATION) {
        Visit(prefix);
        Fault(data, depth, TOO_LARGE, QStringLiteral("%1 bytes when uncompressed").arg(claimed));
        return;
    }
    m_uncompressed = REPORTGENERATOR::IRGObject::UncompressBinary(prefixed);
    m_body = FileRange(m_uncompressed);
    if (m_body.IsEmpty()) {
        Visit(prefix);
        Fault(data, depth, DAMAGED_DATA, QStringLiteral("compressed data that cannot be uncompressed"));
        return;
    }
    if (claimed != m_body.Size())
        GiveFault(prefix, LENGTH_MISMATCH,
                  QStringLiteral("%1 claimed, %2 there").arg(claimed).arg(m_body.Size()));
    Visit(prefix);
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
    Event event = FieldOf(Kind::Tag, tag, depth, name);
    event.role = !type ? Role::Unknown : type->HasObjects() ? Role::Object : Role::Element;
    Visit(event);
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
        Empty(m_path);
        Elements(payload.Take(payload.Size()), &type.Object(), depth);
        break;
    case FieldKind::List:
        Items(payload, type, depth);
        break;
    case FieldKind::Switch:
        Bool(payload, depth, type.WireLabel());
        break;
    case FieldKind::Version:
        TakeVersion(m_path.Parent(), type,
                    CountedText(payload, Kind::SizeOfUtf16, depth, type.WireLabel()).Utf16());
        break;
    default:
        CountedText(payload, Kind::SizeOfUtf8, depth, type.WireLabel());
        break;
    }
    if (!payload.IsEmpty())
        Fault(payload, depth, LENGTH_MISMATCH,
              QStringLiteral("bytes that are no part of %1").arg(type.WireLabel()));
}

void BinaryInspector::Bool(FileRange& payload, int depth, const QString& name)
{
    if (payload.IsEmpty()) {
        Fault(payload, depth, LENGTH_MISMATCH, QStringLiteral("too few bytes for %1").arg(name));
        return;
    }
    Event event = FieldOf(Kind::Bool, payload.Take(1), depth, name);
    GiveValue(event, Role::Value, Describe(event));
    Visit(event);
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
        const int index = NextItem(whole);
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
    Visit(FieldOf(kind, bytes, depth, name));
}

Event BinaryInspector::FieldOf(Kind kind, const FileRange& bytes, int depth, const QString& name) const
{
    Event event = EventOf(kind, bytes.Offset(), bytes.Offset() + bytes.Size());
    event.bytes = bytes;
    event.depth = depth;
    event.name = name;
    event.isInReport = m_isInBody;
    event.path = &m_path;
    return event;
}

void BinaryInspector::Fault(const FileRange& bytes, int depth, const char* fault, const QString& text)
{
    Event event = FieldOf(Kind::Other, bytes, depth, QString());
    GiveFault(event, fault, text);
    Visit(event);
}

void BinaryInspector::Behind(const FileRange& bytes, int depth)
{
    if (!bytes.IsEmpty())
        Fault(bytes, depth, TRAILING_DATA, QStringLiteral("%1 bytes behind the end").arg(bytes.Size()));
}

} // namespace ReportCore
