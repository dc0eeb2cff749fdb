#include <reportcore/losing/losing.h>

#include <reportcore/form.h>
#include <reportcore/lint.h>
#include <reportcore/losing/lostvalues.h>
#include <reportcore/sourcemap.h>
#include <reportcore/xmlelements.h>
#include <reportcore/xmlwalk.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/texts.h>

#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace ReportCore {

using REPORTGENERATOR::Place;

namespace {

/// Goes through a document, and keeps what no field of its first report holds.
class Leftovers
{
public:
    Leftovers(const QByteArray& bytes, const QString& text, const SourceMap& places)
        : m_text(text), m_places(places), m_reader(ForXmlReader(bytes))
    {
    }

    Problems Find()
    {
        while (!m_reader.atEnd()) {
            m_before = m_reader.characterOffset();
            switch (m_reader.readNext()) {
            case QXmlStreamReader::StartElement:
                Start();
                break;
            case QXmlStreamReader::EndElement:
                End();
                break;
            case QXmlStreamReader::Characters:
                TakeText();
                break;
            case QXmlStreamReader::EntityReference:
                TakeEntity();
                break;
            default:
                break;
            }
        }
        while (!m_around.empty())
            EndAround();
        return std::move(m_losses);
    }

private:
    /// An element of the report.
    struct Element : XmlElement
    {
        bool hasText = false;
    };

    /// An element outside of it.
    struct Surrounding
    {
        QString name;
        std::size_t loss = 0; ///< the one that tells of it
        bool holdsReport = false;
    };

    FilePlace PlaceOfTag() const { return m_places.PlaceOf(m_places.StartOfTag(m_reader.characterOffset())); }

    void Lose(const char* name, const QString& text, const FilePlace& place)
    {
        const FieldPath path = m_elements.empty() ? FieldPath() : m_elements.back().path;
        m_losses.push_back({QLatin1String(name), text, place, path.Text()});
    }

    void Start()
    {
        const QString name = m_reader.name().toString();
        if (m_skipped > 0)
            ++m_skipped;
        else if (!m_elements.empty())
            StartWithin(name);
        else if (name == ReportInfo().ObjectName())
            StartReport();
        else
            StartAround(name);
    }

    void StartReport()
    {
        for (Surrounding& around : m_around)
            around.holdsReport = true;
        if (m_hasReport) {
            Lose(SECOND_REPORT, QStringLiteral("another report"), PlaceOfTag());
            m_skipped = 1;
            return;
        }
        m_hasReport = true;
        Push({XmlElements::Report()});
    }

    void StartAround(const QString& name)
    {
        m_around.push_back({name, m_losses.size()});
        Lose(SURROUNDING_ELEMENT, QStringLiteral("element '%1' around the report").arg(name), PlaceOfTag());
    }

    void StartWithin(const QString& name)
    {
        const Element& parent = m_elements.back();
        const Element element = parent.object ? Element{m_known.Within(parent, name)} : Element();
        if (element.object || element.field) {
            Push(element);
            return;
        }
        Lose(UNKNOWN_ELEMENT, QStringLiteral("element '%1'").arg(name), PlaceOfTag());
        m_skipped = 1;
    }

    void Push(const Element& element)
    {
        m_elements.push_back(element);
        const QXmlStreamAttributes attributes = m_reader.attributes();
        if (element.object)
            m_known.TakeVersion(element, attributes);
        for (const QXmlStreamAttribute& attribute : attributes) {
            const QString name = attribute.name().toString();
            if (!element.object || !element.object->FindElement(name, Place::Attribute))
                Lose(UNKNOWN_ATTRIBUTE, QStringLiteral("attribute '%1'").arg(name), PlaceOfTag());
        }
    }

    void End()
    {
        if (m_skipped > 0)
            --m_skipped;
        else if (!m_elements.empty())
            m_elements.pop_back();
        else
            EndAround();
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

    /// Of several pieces of a text only the last one is read.
    void TakeText()
    {
        if (m_skipped > 0 || m_elements.empty())
            return;
        const bool hadText = m_elements.back().hasText;
        if (m_reader.isWhitespace() && !hadText)
            return;
        if (hadText || !HoldsText(m_elements.back()))
            Lose(UNKNOWN_TEXT,
                 hadText ? QStringLiteral("a piece of a text that something divides")
                         : QStringLiteral("text ") + Quoted(m_reader.text().toString().trimmed()),
                 m_places.PlaceOf(BehindBlanks(m_before)));
        m_elements.back().hasText = true;
    }

    qint64 BehindBlanks(qint64 position) const
    {
        while (position < m_text.size() && m_text.at(static_cast<int>(position)).isSpace())
            ++position;
        return position;
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

    void TakeEntity()
    {
        if (m_skipped > 0 || m_elements.empty())
            return;
        const QString name = m_reader.name().toString();
        Lose(UNRESOLVED_ENTITY, QStringLiteral("entity '&%1;'").arg(name),
             m_places.PlaceOf(m_reader.characterOffset() - name.size() - 2));
    }

    const QString& m_text;
    const SourceMap& m_places;
    QXmlStreamReader m_reader;
    qint64 m_before = 0; ///< where the token begins that the reader stands behind
    XmlElements m_known;
    std::vector<Surrounding> m_around;
    std::vector<Element> m_elements;
    int m_skipped = 0; ///< elements that are open in one that is lost, with that one
    bool m_hasReport = false;
    Problems m_losses;
};

/// The values of the first report.
class Values
{
public:
    Values(const QByteArray& bytes, const QString& text, const SourceMap& places, const ReportFile& file)
        : m_text(text), m_places(places), m_values(file),
          m_walk(bytes, text, [this](const XmlPiece& piece) { Take(piece); })
    {
    }

    Problems Find(const QByteArray& bytes)
    {
        m_walk.Run();
        const Problems values = m_values.Find(bytes);
        m_losses.insert(m_losses.end(), values.begin(), values.end());
        return std::move(m_losses);
    }

private:
    void Take(const XmlPiece& piece)
    {
        const bool isElement = piece.kind == XmlPiece::Kind::EndTag && !piece.isObject;
        const bool isAttribute = piece.kind == XmlPiece::Kind::Attribute;
        if (!isElement && !isAttribute && piece.kind != XmlPiece::Kind::Text)
            return;
        const FilePlace place = m_places.PlaceOf(piece.valueBegin);
        m_values.TakeText(piece.path, place, piece.value);
        const qint64 end = isAttribute ? piece.end : piece.begin;
        if (piece.path.Last().field->Kind() == FieldKind::Text && HasCarriageReturn(piece.valueBegin, end))
            m_losses.push_back({QLatin1String(CARRIAGE_RETURNS),
                                QStringLiteral("carriage returns in ") + piece.path.Text(), place,
                                piece.path.Text()});
    }

    bool HasCarriageReturn(qint64 begin, qint64 end) const
    {
        return std::find(m_text.cbegin() + begin, m_text.cbegin() + end, QLatin1Char('\r')) !=
               m_text.cbegin() + end;
    }

    const QString& m_text;
    const SourceMap& m_places;
    LostValues m_values;
    XmlWalk m_walk;
    Problems m_losses;
};

} // namespace

Problems FindXmlLosses(const QByteArray& bytes, const ReportFile& file)
{
    const QString text = DecodeXml(bytes);
    SourceMap places;
    places.TakeText(bytes);
    Problems losses = Leftovers(bytes, text, places).Find();
    const Problems values = Values(bytes, text, places, file).Find(bytes);
    losses.insert(losses.end(), values.begin(), values.end());
    return losses;
}

} // namespace ReportCore
