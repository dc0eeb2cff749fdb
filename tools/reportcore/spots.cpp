#include <reportcore/spots.h>

#include <reportcore/itemcounts.h>
#include <reportcore/reportfields.h>
#include <reportcore/walk.h>

#include <reportgenerator/reportbase/forms/wirefacts.h>

#include <QtCore/QXmlStreamReader>

#include <algorithm>

namespace ReportCore {

using REPORTGENERATOR::Place;

namespace {

bool IsXmlBlank(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\t') ||
           character == QLatin1Char('\r') || character == QLatin1Char('\n');
}

} // namespace

/// The pass through XML. Elements are told apart by their names and by what stands around them, as the library does
/// it; what stands below an unknown element has no path.
class XmlSearch
{
public:
    XmlSearch(Spots& spots, const QByteArray& bytes) : m_spots(spots), m_reader(bytes) {}

    void Run()
    {
        while (!m_reader.atEnd() && !m_isBehindReport) {
            m_before = EndOfToken();
            switch (m_reader.readNext()) {
            case QXmlStreamReader::StartElement:
                Start();
                break;
            case QXmlStreamReader::EndElement:
                End();
                break;
            case QXmlStreamReader::Characters:
                Take();
                break;
            default:
                break;
            }
        }
    }

private:
    /// An element that has begun and not ended yet.
    struct Element
    {
        const ObjectInfo* object = nullptr; ///< null for an element that is no object
        bool isKnown = false;
        FieldPath path;
        qint64 start = 0;
        qint64 valueStart = 0;
        QString text;
    };

    /// The reader has looked at the character behind a text, and counts it.
    qint64 EndOfToken() const
    {
        const qint64 end = m_reader.characterOffset();
        const bool isTooFar = m_reader.isCharacters() && end > 0 && end <= m_spots.m_text.size() &&
                              m_spots.m_text.at(static_cast<int>(end - 1)) == QLatin1Char('<');
        return isTooFar ? end - 1 : end;
    }

    void Start()
    {
        Element element;
        element.start = m_spots.StartOfTag(m_reader.characterOffset());
        element.valueStart = m_reader.characterOffset();
        const bool isInReport = !m_elements.empty();
        if (!isInReport && !(m_reader.name() == ReportInfo().ObjectName()))
            return;
        if (isInReport)
            Identify(element);
        else
            element.object = &ReportInfo();
        element.isKnown = !isInReport || element.isKnown;
        if (!element.isKnown) {
            const Spot spot = {m_spots.PlaceOf(element.start), m_elements.back().path, QString()};
            m_spots.AddEnd(m_reader.characterOffset(), spot, true);
        }
        if (element.object)
            TakeAttributes(element);
        m_elements.push_back(element);
    }

    void Identify(Element& element)
    {
        const Element& holder = m_elements.back();
        const Field* const field =
            holder.object ? holder.object->FindElement(m_reader.name().toString(), Place::Element) : nullptr;
        if (!field)
            return;
        element.isKnown = true;
        element.path = holder.path;
        element.path.Enter(*field);
        if (field->Kind() == FieldKind::List)
            element.path.SetIndex(m_counts.Next(element.path));
        element.object = field->HasObjects() ? &field->Object() : nullptr;
    }

    void TakeAttributes(const Element& element)
    {
        for (const auto& field : element.object->All()) {
            if (field->Kind() == FieldKind::Version)
                m_counts.TakeVersion(element.path, *field,
                                     m_reader.attributes().value(field->Facts().elementName).toString());
        }
        for (const QXmlStreamAttribute& attribute : m_reader.attributes()) {
            const QString name = attribute.name().toString();
            if (const Field* const field = element.object->FindElement(name, Place::Attribute))
                AddValue(element.path, *field, ValueOfAttribute(element, name), attribute.value().toString());
        }
    }

    void Take()
    {
        if (m_elements.empty())
            return;
        // Of several pieces the last one counts.
        m_elements.back().text = m_reader.text().toString();
        m_elements.back().valueStart = m_before;
    }

    void End()
    {
        if (m_elements.empty())
            return;
        const Element& element = m_elements.back();
        if (element.isKnown)
            AddElement(element);
        m_elements.pop_back();
        m_isBehindReport = m_elements.empty();
    }

    void AddElement(const Element& element)
    {
        const bool isObject = element.object != nullptr;
        const qint64 start = isObject ? element.start : element.valueStart;
        const Spot spot = {m_spots.PlaceOf(start), element.path,
                           isObject ? QString() : QLatin1String("") + element.text};
        m_spots.Add(spot);
        m_spots.AddEnd(m_reader.characterOffset(), spot, isObject);
        if (!isObject)
            return;
        for (const auto& field : element.object->All()) {
            if (field->Facts().place == Place::Text && field->Facts().object == nullptr)
                AddValue(element.path, *field, element.valueStart, element.text);
        }
    }

    void AddValue(FieldPath path, const Field& field, qint64 start, const QString& value)
    {
        path.Enter(field);
        m_spots.Add({m_spots.PlaceOf(start), path, QLatin1String("") + value});
    }

    qint64 ValueOfAttribute(const Element& element, const QString& name) const
    {
        const QString& text = m_spots.m_text;
        const qint64 end = m_reader.characterOffset();
        for (auto i = text.indexOf(name, static_cast<int>(element.start)); i >= 0 && i < end;
             i = text.indexOf(name, i + 1)) {
            auto next = i + name.size();
            while (next < end && IsXmlBlank(text.at(next)))
                ++next;
            const bool isName = IsXmlBlank(text.at(i - 1)) && next < end && text.at(next) == QLatin1Char('=');
            if (!isName)
                continue;
            do
                ++next;
            while (next < end && IsXmlBlank(text.at(next)));
            return next + 1;
        }
        return element.start;
    }

    Spots& m_spots;
    QXmlStreamReader m_reader;
    qint64 m_before = 0;
    bool m_isBehindReport = false;
    std::vector<Element> m_elements;
    ItemCounts m_counts;
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
    if (end <= 0 || end > m_text.size())
        return end;
    // No tag has another "<" in it.
    const auto start = m_text.lastIndexOf(QLatin1Char('<'), static_cast<int>(end) - 1);
    return start < 0 ? end : start;
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
