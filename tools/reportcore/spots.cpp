#include <reportcore/spots.h>

#include <reportcore/walk.h>
#include <reportcore/xmlwalk.h>

#include <algorithm>

namespace ReportCore {

/// The pass through XML.
class XmlSearch
{
public:
    XmlSearch(Spots& spots, const QByteArray& bytes)
        : m_spots(spots), m_walk(bytes, spots.m_text, [this](const XmlPiece& piece) { Take(piece); })
    {
    }

    void Run() { m_walk.Run(); }

private:
    void Take(const XmlPiece& piece)
    {
        switch (piece.kind) {
        case XmlPiece::Kind::StartTag:
            break;
        case XmlPiece::Kind::Attribute:
        case XmlPiece::Kind::Text:
            m_spots.Add({m_spots.PlaceOf(piece.valueBegin), piece.path, piece.value});
            break;
        case XmlPiece::Kind::EndTag:
            AddElement(piece);
            break;
        case XmlPiece::Kind::Unknown:
            m_spots.AddEnd(piece.end, {m_spots.PlaceOf(piece.begin), piece.path, QString()}, true);
            break;
        }
    }

    void AddElement(const XmlPiece& piece)
    {
        const qint64 start = piece.isObject ? piece.elementBegin : piece.valueBegin;
        const Spot spot = {m_spots.PlaceOf(start), piece.path, piece.value};
        m_spots.Add(spot);
        m_spots.AddEnd(piece.end, spot, piece.isObject);
    }

    Spots& m_spots;
    XmlWalk m_walk;
};

/// The pass through a binary form.
class BinarySearch
{
public:
    BinarySearch(Spots& spots, const QByteArray& bytes, bool isBinaryFile)
        : m_spots(spots), m_walk(bytes, isBinaryFile, [this](const WireField& field) { Take(field); })
    {
    }

    void Run()
    {
        m_walk.Frame();
        m_spots.m_isCompressed = m_walk.IsCompressed();
        m_spots.m_bodyOffset = m_walk.BodyOffset();
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
        const Spot spot = SpotOf(field, QString());
        if (field.path->IsEmpty() || field.path->Last().field->HasObjects())
            m_spots.Add(spot);
    }

    void TakeItem(const WireField& field)
    {
        const Spot spot = SpotOf(field, QString());
        m_spots.Add(spot);
        m_spots.AddEnd(EndOf(field) + static_cast<qint32>(field.bytes.Word()), spot, true);
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
        const Spot spot = SpotOf(field, value);
        m_spots.Add(spot);
        m_spots.AddEnd(EndOf(field), spot, false);
    }

    Spot SpotOf(const WireField& field, const QString& value) const
    {
        return {m_spots.PlaceOf(field.bytes.Offset() - m_spots.m_bodyOffset), *field.path, value};
    }

    qint64 EndOf(const WireField& field) const
    {
        return field.bytes.Offset() + field.bytes.Size() - m_spots.m_bodyOffset;
    }

    Spots& m_spots;
    Walk m_walk;
    bool m_isInBody = false;
};

void Spots::WantEnd(qint64 end)
{
    m_ends.try_emplace(end);
}

void Spots::WantPath(const FieldPath& path)
{
    FieldPath wanted = path;
    while (m_paths.try_emplace(wanted).second && !wanted.IsEmpty())
        wanted = wanted.Holder();
}

void Spots::SearchXml(const QByteArray& bytes)
{
    TakeText(bytes);
    if (!m_ends.empty() || !m_paths.empty())
        XmlSearch(*this, bytes).Run();
}

void Spots::TakeText(const QByteArray& bytes)
{
    m_isXml = true;
    m_text = DecodeXml(bytes);
    m_lines = {0};
    for (int i = 0; i < m_text.size(); ++i) {
        if (m_text.at(i) == QLatin1Char('\n'))
            m_lines.push_back(i + 1);
        else if (m_text.at(i).isLowSurrogate())
            m_secondUnits.push_back(i);
    }
}

void Spots::SearchBinary(const QByteArray& bytes, bool isBinaryFile)
{
    BinarySearch(*this, bytes, isBinaryFile).Run();
}

const Spot* Spots::FindEnd(qint64 end, bool isObject) const
{
    const auto found = m_ends.find(end);
    if (found == m_ends.end())
        return nullptr;
    const Ending& ending = found->second;
    if (ending.hasObject && (isObject || !ending.hasValue))
        return &ending.object;
    return ending.hasValue ? &ending.value : nullptr;
}

const Spot* Spots::FindPath(const FieldPath& path) const
{
    const auto found = m_paths.find(path);
    return found == m_paths.end() || !found->second.place.IsKnown() ? nullptr : &found->second;
}

const Spot* Spots::FindNearest(const FieldPath& path) const
{
    FieldPath next = path;
    const Spot* spot = FindPath(next);
    while (!spot && !next.IsEmpty()) {
        next = next.Holder();
        spot = FindPath(next);
    }
    return spot;
}

FilePlace Spots::PlaceOf(qint64 end) const
{
    FilePlace place;
    if (!m_isXml) {
        place.offset = m_bodyOffset + end;
        place.isUncompressed = m_isCompressed;
        return place;
    }
    end = std::min<qint64>(end, m_text.size());
    const auto next = std::upper_bound(m_lines.begin(), m_lines.end(), end);
    const qint64 lineStart = *(next - 1);
    const auto firstOfLine = std::lower_bound(m_secondUnits.begin(), m_secondUnits.end(), lineStart);
    const qint64 secondUnits = std::lower_bound(firstOfLine, m_secondUnits.end(), end) - firstOfLine;
    place.line = next - m_lines.begin();
    place.column = end - lineStart - secondUnits + 1;
    return place;
}

qint64 Spots::StartOfTag(qint64 end) const
{
    return XmlWalk::StartOfTag(m_text, end);
}

void Spots::Add(const Spot& spot)
{
    const auto found = m_paths.find(spot.path);
    if (found != m_paths.end())
        found->second = spot;
}

void Spots::AddEnd(qint64 end, const Spot& spot, bool isObject)
{
    const auto found = m_ends.find(end);
    if (found == m_ends.end())
        return;
    Ending& ending = found->second;
    if (isObject) {
        ending.hasObject = true;
        ending.object = spot;
    } else {
        ending.hasValue = true;
        ending.value = spot;
    }
}

} // namespace ReportCore
