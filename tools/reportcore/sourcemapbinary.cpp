#include <reportcore/sourcemap.h>

#include <reportcore/walk.h>

namespace ReportCore {

/// The pass through a binary form.
class BinarySearch
{
public:
    BinarySearch(SourceMap& map, const QByteArray& bytes, bool isBinaryFile)
        : m_map(map), m_walk(bytes, isBinaryFile, [this](const WireField& field) { Take(field); })
    {
    }

    void Run()
    {
        m_walk.Frame();
        m_map.m_isCompressed = m_walk.IsCompressed();
        m_map.m_bodyOffset = m_walk.BodyOffset();
        m_isInBody = true;
        m_walk.Body();
    }

private:
    void Take(const WireField& field)
    {
        if (!m_isInBody)
            return;
        if (field.kind == Kind::Tag)
            TakeElement(field);
        if (field.path->IsEmpty())
            return;
        if (field.kind == Kind::Length && field.path->IsItem())
            TakeItem(field);
        else if (!field.path->Last().field->HasObjects())
            TakeValue(field);
    }

    /// The report itself is the root.
    void TakeElement(const WireField& field)
    {
        const SourceEntry entry = EntryOf(field, QString());
        if (field.path->IsEmpty() || field.path->Last().field->HasObjects())
            m_map.Add(entry);
    }

    void TakeItem(const WireField& field)
    {
        const SourceEntry entry = EntryOf(field, QString());
        m_map.Add(entry);
        m_map.AddEnd(EndOf(field) + static_cast<qint32>(field.bytes.Word()), entry, true);
    }

    void TakeValue(const WireField& field)
    {
        switch (field.kind) {
        case Kind::SizeOfUtf8:
        case Kind::SizeOfUtf16:
            AddValue(field, QLatin1String(""));
            break;
        case Kind::Utf8:
            AddValue(field, field.bytes.Utf8());
            break;
        case Kind::Utf16:
            AddValue(field, field.bytes.Utf16());
            break;
        case Kind::Bool:
            AddValue(field, Describe(field));
            break;
        default:
            break;
        }
    }

    /// A text stands behind its size and takes its place.
    void AddValue(const WireField& field, const QString& value)
    {
        const SourceEntry entry = EntryOf(field, value);
        m_map.Add(entry);
        m_map.AddEnd(EndOf(field), entry, false);
    }

    SourceEntry EntryOf(const WireField& field, const QString& value) const
    {
        return {m_map.PlaceOf(field.bytes.Offset() - m_map.m_bodyOffset), *field.path, value};
    }

    qint64 EndOf(const WireField& field) const
    {
        return field.bytes.Offset() + field.bytes.Size() - m_map.m_bodyOffset;
    }

    SourceMap& m_map;
    Walk m_walk;
    bool m_isInBody = false;
};

void SourceMap::SearchBinary(const QByteArray& bytes, bool isBinaryFile)
{
    BinarySearch(*this, bytes, isBinaryFile).Run();
}

} // namespace ReportCore
