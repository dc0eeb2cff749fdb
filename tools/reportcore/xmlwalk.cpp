#include <reportcore/xmlwalk.h>

#include <reportcore/form.h>

#include <reportgenerator/reflection/reportfields.h>

#include <algorithm>
#include <utility>

namespace ReportCore {

using REPORTGENERATOR::Place;

namespace {

bool IsXmlBlank(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\t') ||
           character == QLatin1Char('\r') || character == QLatin1Char('\n');
}

bool IsKnown(const XmlElement& element)
{
    return element.object || element.field;
}

} // namespace

XmlWalk::XmlWalk(const QByteArray& bytes, const QString& text, Visitor visit)
    : m_visit(std::move(visit)), m_text(text), m_reader(ForXmlReader(bytes))
{
}

void XmlWalk::Run()
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
    BreakOff();
}

qint64 XmlWalk::StartOfTag(const QString& text, qint64 end)
{
    if (end <= 0 || end > text.size())
        return end;
    // No tag has another "<" in it.
    const auto start = text.lastIndexOf(QLatin1Char('<'), static_cast<int>(end) - 1);
    return start < 0 ? end : start;
}

/// The reader has looked at the character behind a text, and counts it.
qint64 XmlWalk::EndOfToken() const
{
    const qint64 end = m_reader.characterOffset();
    const bool isTooFar = m_reader.isCharacters() && end > 0 && end <= m_text.size() &&
                          m_text.at(static_cast<int>(end - 1)) == QLatin1Char('<');
    return isTooFar ? end - 1 : end;
}

void XmlWalk::Start()
{
    const qint64 end = m_reader.characterOffset();
    const bool isInReport = !m_elements.empty();
    if (!isInReport && !(m_reader.name() == ReportInfo().ObjectName()))
        return;
    const QString name = m_reader.name().toString();
    Element element = {isInReport ? m_known.Within(m_elements.back(), name) : XmlElements::Report()};
    element.begin = StartOfTag(m_text, end);
    element.valueBegin = end;
    if (IsKnown(element))
        m_visit({XmlPiece::Kind::StartTag, element.begin, end, element.path});
    else
        m_visit({XmlPiece::Kind::Unknown, element.begin, end, m_elements.back().path});
    if (element.object)
        TakeAttributes(element);
    m_elements.push_back(element);
}

void XmlWalk::TakeAttributes(const Element& element)
{
    m_known.TakeVersion(element, m_reader.attributes());
    for (const QXmlStreamAttribute& attribute : m_reader.attributes()) {
        const QString name = attribute.name().toString();
        if (const Field* const field = element.object->FindElement(name, Place::Attribute)) {
            XmlPiece piece = AttributePiece(element, name);
            piece.path.Enter(*field);
            piece.value = QLatin1String("") + attribute.value().toString();
            m_visit(piece);
        }
    }
}

void XmlWalk::Take()
{
    if (m_elements.empty())
        return;
    // Of several pieces the last one counts.
    m_elements.back().text = m_reader.text().toString();
    m_elements.back().valueBegin = m_before;
}

void XmlWalk::End()
{
    if (m_elements.empty())
        return;
    if (IsKnown(m_elements.back()))
        EndKnown(m_elements.back());
    m_elements.pop_back();
    m_isBehindReport = m_elements.empty();
}

void XmlWalk::EndKnown(const Element& element)
{
    XmlPiece piece{XmlPiece::Kind::Text, element.valueBegin, m_before,
                   element.path,         element.begin,      element.valueBegin};
    if (element.object) {
        for (const auto& field : element.object->All()) {
            if (field->Facts().place == Place::Text && field->Facts().object == nullptr) {
                piece.path.Enter(*field);
                piece.value = QLatin1String("") + element.text;
                m_visit(piece);
                piece.path.Leave();
            }
        }
    }
    piece.kind = XmlPiece::Kind::EndTag;
    piece.begin = m_before;
    piece.end = m_reader.characterOffset();
    piece.isObject = element.object != nullptr;
    piece.value = piece.isObject ? QString() : QLatin1String("") + element.text;
    m_visit(piece);
}

/// Tells of the objects that have begun and not ended, the innermost one first.
void XmlWalk::BreakOff()
{
    for (auto element = m_elements.rbegin(); element != m_elements.rend(); ++element) {
        if (element->object)
            m_visit({XmlPiece::Kind::Open, m_text.size(), m_text.size(), element->path, element->begin,
                     element->valueBegin, QString(), true});
    }
}

/// The attribute of that name in the start tag that the reader stands behind; the tag itself where it isn't found.
XmlPiece XmlWalk::AttributePiece(const Element& element, const QString& name) const
{
    const qint64 end = m_reader.characterOffset();
    const XmlAttribute found = FindAttribute(m_text, element.begin, end, name);
    return {XmlPiece::Kind::Attribute, found.begin, found.end, element.path, element.begin, found.valueBegin};
}

XmlAttribute XmlWalk::FindAttribute(const QString& text, qint64 begin, qint64 end, const QString& name)
{
    for (auto i = text.indexOf(name, static_cast<int>(begin)); i >= 0 && i < end;
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
        const auto close = next < end ? text.indexOf(text.at(next), next + 1) : -1;
        return {i, close < 0 ? end : std::min<qint64>(close + 1, end), next + 1};
    }
    return {begin, end, begin};
}

} // namespace ReportCore
