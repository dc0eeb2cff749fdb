#include <reportviewer/unread.h>

#include <reportcore/doubts.h>
#include <reportcore/reportfields.h>
#include <reportcore/xmlelements.h>

#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <vector>

namespace ReportViewer {

using REPORTGENERATOR::Place;

namespace {

/// Goes through a document until something comes that no field of the report holds.
class XmlLeftovers
{
public:
    explicit XmlLeftovers(const QByteArray& bytes) : m_reader(bytes) {}

    bool Find()
    {
        while (!m_reader.atEnd()) {
            const auto token = m_reader.readNext();
            const bool isLeft = (token == QXmlStreamReader::StartElement && !TakesElement()) ||
                                (token == QXmlStreamReader::Characters && !TakesText()) ||
                                token == QXmlStreamReader::EntityReference;
            if (isLeft)
                return true;
            if (token == QXmlStreamReader::EndElement)
                m_elements.pop_back();
        }
        return false;
    }

private:
    struct Element : ReportCore::XmlElement
    {
        bool hasText = false;
    };

    bool TakesElement()
    {
        const QString name = m_reader.name().toString();
        Element element;
        if (!m_elements.empty()) {
            if (m_elements.back().object)
                element = {m_known.Within(m_elements.back(), name)};
        } else if (!m_hasReport && name == ReportCore::ReportInfo().ObjectName()) {
            element = {ReportCore::XmlElements::Report()};
            m_hasReport = true;
        }
        const bool isTaken = (element.object || element.field) && TakesAttributes(element);
        m_elements.push_back(element);
        return isTaken;
    }

    bool TakesAttributes(const Element& element)
    {
        const QXmlStreamAttributes attributes = m_reader.attributes();
        if (!element.object)
            return attributes.isEmpty();
        m_known.TakeVersion(element, attributes);
        return std::all_of(attributes.begin(), attributes.end(), [&element](const auto& attribute) {
            return element.object->FindElement(attribute.name().toString(), Place::Attribute) != nullptr;
        });
    }

    /// Of several pieces of a text only the last one is read.
    bool TakesText()
    {
        const bool hadText = !m_elements.empty() && m_elements.back().hasText;
        if (m_reader.isWhitespace() && !hadText)
            return true;
        if (m_elements.empty() || hadText || !HoldsText(m_elements.back()))
            return false;
        m_elements.back().hasText = true;
        return true;
    }

    static bool HoldsText(const Element& element)
    {
        if (!element.object)
            return true;
        const auto& fields = element.object->All();
        return std::any_of(fields.begin(), fields.end(), [](const auto& field) {
            return !field->HasObjects() && field->Facts().place == Place::Text;
        });
    }

    QXmlStreamReader m_reader;
    ReportCore::XmlElements m_known;
    std::vector<Element> m_elements;
    bool m_hasReport = false;
};

} // namespace

bool HasUnreadXml(const QByteArray& bytes)
{
    return XmlLeftovers(bytes).Find();
}

bool IsUnreadElement(const ReportCore::WireField& field)
{
    // The walk calls what it knows by its own name.
    return field.kind == ReportCore::Kind::Tag &&
           (field.path->IsEmpty() || field.name != field.path->Last().field->WireLabel());
}

bool TellOfUnread(const ReportCore::Problems& doubts)
{
    return std::any_of(doubts.begin(), doubts.end(), [](const ReportCore::Problem& doubt) {
        return doubt.name == QLatin1String(ReportCore::NOT_A_NUMBER) ||
               doubt.name == QLatin1String(ReportCore::REPEATED_ELEMENT);
    });
}

} // namespace ReportViewer
