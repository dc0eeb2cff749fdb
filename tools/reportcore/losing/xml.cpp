#include <reportcore/losing/losing.h>

#include <reportcore/inspect/sourcetext.h>
#include <reportcore/inspect/xmlinspector.h>
#include <reportcore/lint.h>
#include <reportcore/losing/lostvalues.h>

#include <reportgenerator/reflection/texts.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace ReportCore {

using REPORTGENERATOR::Place;
using Kind = XmlEvent::Kind;

namespace {

class XmlLosses
{
public:
    XmlLosses(const QByteArray& bytes, const ReportFile& file) : m_bytes(bytes), m_text(bytes), m_values(file)
    {
    }

    Problems Find()
    {
        XmlInspector(
            m_bytes, m_text.Text(), [this](const XmlEvent& event) { Take(event); },
            XmlInspector::Extent::Document)
            .Run();
        while (!m_around.empty())
            EndAround();
        m_losses.insert(m_losses.end(), m_returns.begin(), m_returns.end());
        const Problems values = m_values.Find(m_bytes);
        m_losses.insert(m_losses.end(), values.begin(), values.end());
        return std::move(m_losses);
    }

private:
    /// An element around or beside the report.
    struct Surrounding
    {
        QString name;
        std::size_t loss = 0; ///< the one that tells of it
        bool holdsReport = false;
    };

    void Lose(const char* name, const QString& text, const XmlEvent& event)
    {
        m_losses.push_back({QLatin1String(name), text, m_text.PlaceOf(event.begin), event.path->Text()});
    }

    void Take(const XmlEvent& event)
    {
        TakeAround(event);
        // An unknown element is lost as a whole.
        if (event.kind == Kind::UnknownTag && m_unknown++ == 0)
            Lose(UNKNOWN_ELEMENT, QStringLiteral("element '%1'").arg(event.name), event);
        else if (event.kind == Kind::UnknownEnd)
            --m_unknown;
        if (m_unknown == 0 && event.element)
            TakeWithin(event);
    }

    void TakeAround(const XmlEvent& event)
    {
        switch (event.kind) {
        case Kind::Surrounding:
            m_around.push_back({event.name, m_losses.size()});
            Lose(SURROUNDING_ELEMENT, QStringLiteral("element '%1' around the report").arg(event.name),
                 event);
            break;
        case Kind::SurroundingEnd:
            EndAround();
            break;
        case Kind::AnotherReport:
            MarkAround();
            Lose(SECOND_REPORT, QStringLiteral("another report"), event);
            break;
        case Kind::StartTag:
            if (event.path->IsEmpty())
                MarkAround();
            break;
        default:
            break;
        }
    }

    void MarkAround()
    {
        for (Surrounding& around : m_around)
            around.holdsReport = true;
    }

    /// What is beside the report is lost as a whole.
    void EndAround()
    {
        const Surrounding around = m_around.back();
        m_around.pop_back();
        if (around.holdsReport)
            return;
        m_losses.resize(around.loss + 1);
        m_losses.back().text = QStringLiteral("element '%1'").arg(around.name);
    }

    void TakeWithin(const XmlEvent& event)
    {
        switch (event.kind) {
        case Kind::StartTag:
            m_hasText.push_back(false);
            break;
        case Kind::EndTag:
            m_hasText.pop_back();
            break;
        case Kind::UnknownAttribute:
            Lose(UNKNOWN_ATTRIBUTE, QStringLiteral("attribute '%1'").arg(event.name), event);
            break;
        case Kind::Characters:
            TakeCharacters(event);
            break;
        case Kind::Entity:
            Lose(UNRESOLVED_ENTITY, QStringLiteral("entity '&%1;'").arg(event.name), event);
            break;
        default:
            break;
        }
        if (event.role == Event::Role::Value)
            TakeValue(event);
    }

    /// Of several pieces of a text only the last one is read.
    void TakeCharacters(const XmlEvent& event)
    {
        const bool hadText = m_hasText.back();
        if (event.isBlank && !hadText)
            return;
        XmlEvent text = event;
        while (text.begin < m_text.Text().size() && m_text.Text().at(static_cast<int>(text.begin)).isSpace())
            ++text.begin;
        if (hadText || !HoldsText(*event.element))
            Lose(UNKNOWN_TEXT,
                 hadText ? QStringLiteral("a piece of a text that something divides")
                         : QStringLiteral("text ") + Quoted(event.value.trimmed()),
                 text);
        m_hasText.back() = true;
    }

    static bool HoldsText(const XmlElement& element)
    {
        if (!element.object)
            return true;
        const auto& fields = element.object->All();
        return std::any_of(fields.begin(), fields.end(), [](const auto& field) {
            return !field->HasObjects() && field->Facts().place == Place::Text;
        });
    }

    void TakeValue(const XmlEvent& event)
    {
        const FilePlace place = m_text.PlaceOf(event.place);
        m_values.TakeText(*event.path, place, event.value);
        const qint64 end = event.kind == Kind::EndTag ? event.begin : event.end;
        if (event.path->Last().field->Kind() == FieldKind::Text && HasCarriageReturn(event.place, end))
            m_returns.push_back({QLatin1String(CARRIAGE_RETURNS),
                                 QStringLiteral("carriage returns in ") + event.path->Text(), place,
                                 event.path->Text()});
    }

    bool HasCarriageReturn(qint64 begin, qint64 end) const
    {
        const QString& text = m_text.Text();
        return std::find(text.cbegin() + begin, text.cbegin() + end, QLatin1Char('\r')) !=
               text.cbegin() + end;
    }

    const QByteArray& m_bytes;
    SourceText m_text;
    LostValues m_values;
    std::vector<Surrounding> m_around;
    std::vector<bool> m_hasText; ///< of each element of the report that is open
    int m_unknown = 0;           ///< unknown elements that are open
    Problems m_losses;
    Problems m_returns;
};

} // namespace

Problems FindXmlLosses(const QByteArray& bytes, const ReportFile& file)
{
    return XmlLosses(bytes, file).Find();
}

} // namespace ReportCore
