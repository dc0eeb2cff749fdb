#include <reportcore/linting/linting.h>

#include <reportcore/form.h>
#include <reportcore/sourcemap.h>
#include <reportcore/xmlelements.h>

#include <reportgenerator/reflection/nearname.h>
#include <reportgenerator/reflection/reportfields.h>

#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <set>
#include <utility>

namespace ReportCore {

using REPORTGENERATOR::Place;

namespace {

/// Goes through the document as the library does, and on to its end.
class XmlLint
{
public:
    explicit XmlLint(const QByteArray& bytes) : m_bytes(bytes), m_reader(ForXmlReader(bytes)) {}

    Problems Find()
    {
        while (!m_reader.atEnd()) {
            const auto token = m_reader.readNext();
            if (token == QXmlStreamReader::StartElement)
                Start();
            else if (token == QXmlStreamReader::EndElement)
                End();
            else if (token == QXmlStreamReader::Characters)
                Take();
            else if (token == QXmlStreamReader::EntityReference)
                TakeEntity();
        }
        if (!m_hasReport && !m_misspeltRoot.name.isEmpty())
            m_problems.push_back(m_misspeltRoot);
        return std::move(m_problems);
    }

private:
    struct Element : XmlElement
    {
        qint64 valueStart = 0;
        QString text = {};
        std::set<const Field*> seen = {};
    };

    /// The text is looked at only when there is something to tell.
    const SourceMap& Places()
    {
        if (!m_hasPlaces)
            m_places.TakeText(m_bytes);
        m_hasPlaces = true;
        return m_places;
    }

    FilePlace PlaceOfTag() { return Places().PlaceOf(Places().StartOfTag(m_reader.characterOffset())); }

    FilePlace PlaceOfValue(const QString& attribute)
    {
        return Places().PlaceOf(Places().StartOfValue(m_reader.characterOffset(), attribute));
    }

    void Add(const char* name, const QString& text, const FilePlace& place, const FieldPath& path,
             const QString& value)
    {
        m_problems.push_back({QLatin1String(name), text, place, path.Text(), value});
    }

    /// Of the tag that the reader stands behind.
    Problem Misspelt(const QString& what, const QString& name, const QString& known, const FieldPath& path)
    {
        return {QLatin1String(MISSPELT_NAME),
                QStringLiteral("there is no %1 '%2', did you mean '%3'?").arg(what, name, known),
                PlaceOfTag(), path.Text(), name};
    }

    void Start()
    {
        Element element;
        const QString name = m_reader.name().toString();
        if (m_elements.empty()) {
            if (name != ReportInfo().ObjectName()) {
                LintRoot(name);
                return;
            }
            if (m_hasReport)
                Add(SECOND_REPORT, QStringLiteral("only the first report of a document is read"),
                    PlaceOfTag(), {}, name);
            m_isBehind = m_hasReport;
            m_hasReport = true;
            element = {XmlElements::Report()};
        } else if (m_elements.back().object && !m_isBehind) {
            element = {m_known.Within(m_elements.back(), name)};
            LintElement(name, m_elements.back(), element);
        }
        element.valueStart = m_reader.characterOffset();
        if (element.object && !m_isBehind)
            TakeAttributes(element);
        m_elements.push_back(std::move(element));
    }

    /// An element outside of reports. It doesn't matter where there is a report after all.
    void LintRoot(const QString& name)
    {
        const QString& known = ReportInfo().ObjectName();
        if (!m_hasReport && m_misspeltRoot.name.isEmpty() && IsNear(name, known))
            m_misspeltRoot = Misspelt(QStringLiteral("element"), name, known, {});
    }

    void LintElement(const QString& name, Element& parent, Element& element)
    {
        if (!element.field) {
            element.path = parent.path;
            const QString nearest = NearestName(*parent.object, Place::Element, name);
            if (!nearest.isNull())
                m_problems.push_back(Misspelt(QStringLiteral("element"), name, nearest, parent.path));
            return;
        }
        if (element.field->Kind() != FieldKind::List && !parent.seen.insert(element.field).second)
            Add(REPEATED_ELEMENT, QStringLiteral("element '%1' comes a second time").arg(name), PlaceOfTag(),
                element.path, QString());
    }

    void TakeAttributes(const Element& element)
    {
        m_known.TakeVersion(element, m_reader.attributes());
        for (const QXmlStreamAttribute& attribute : m_reader.attributes()) {
            const QString name = attribute.name().toString();
            const QString value = attribute.value().toString();
            if (const Field* const field = element.object->FindElement(name, Place::Attribute)) {
                if (IsOdd(*field, value))
                    AddNoNumber(element.path, *field, PlaceOfValue(name), value);
                continue;
            }
            const QString nearest = NearestName(*element.object, Place::Attribute, name);
            if (!nearest.isNull())
                m_problems.push_back(Misspelt(QStringLiteral("attribute"), name, nearest, element.path));
        }
    }

    static bool IsOdd(const Field& field, const QString& value)
    {
        return field.Kind() == FieldKind::Number && !IsFiniteNumber(value);
    }

    void AddNoNumber(FieldPath path, const Field& field, const FilePlace& place, const QString& value)
    {
        path.Enter(field);
        m_problems.push_back(NoNumber(place, path, value));
    }

    void Take()
    {
        // Of several pieces the last one counts.
        if (!m_elements.empty())
            m_elements.back().text = m_reader.text().toString();
    }

    void TakeEntity()
    {
        const FieldPath path = m_elements.empty() ? FieldPath() : m_elements.back().path;
        Add(UNRESOLVED_ENTITY, QStringLiteral("the entity is not known and left out"),
            Places().PlaceOf(m_reader.characterOffset() - m_reader.name().size() - 2), path,
            QStringLiteral("&%1;").arg(m_reader.name().toString()));
    }

    void End()
    {
        if (m_elements.empty())
            return;
        const Element element = std::move(m_elements.back());
        m_elements.pop_back();
        if (m_isBehind)
            return;
        if (!element.object && element.field && IsOdd(*element.field, element.text))
            m_problems.push_back(NoNumber(Places().PlaceOf(element.valueStart), element.path, element.text));
        if (!element.object)
            return;
        for (const auto& field : element.object->All()) {
            if (!field->HasObjects() && field->Facts().place == Place::Text && IsOdd(*field, element.text))
                AddNoNumber(element.path, *field, Places().PlaceOf(element.valueStart), element.text);
        }
    }

    const QByteArray& m_bytes;
    SourceMap m_places;
    bool m_hasPlaces = false;
    QXmlStreamReader m_reader;
    bool m_hasReport = false;
    bool m_isBehind = false; ///< in a report that nobody reads
    std::vector<Element> m_elements;
    XmlElements m_known;
    Problem m_misspeltRoot;
    Problems m_problems;
};

} // namespace

Problems FindXmlLint(const QByteArray& bytes)
{
    return XmlLint(bytes).Find();
}

} // namespace ReportCore
