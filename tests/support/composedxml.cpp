// The XML of support/composedinput.h.

#include "support/composedinput.h"
#include "support/oddvalues.h"

#include <reportgenerator/reportbase/schema/reportbaseschema.h>

#include <QtCore/QStringList>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace Support {
namespace {

using REPORTGENERATOR::AreaData;
using REPORTGENERATOR::CoordinateData;
using REPORTGENERATOR::FormatVersion;
using REPORTGENERATOR::FrequencyData;
using REPORTGENERATOR::IFBandwidthData;
using REPORTGENERATOR::ItemList;
using REPORTGENERATOR::Member;
using REPORTGENERATOR::NumberFormat;
using REPORTGENERATOR::Place;
using REPORTGENERATOR::PresenceBit;
using REPORTGENERATOR::Range;
using REPORTGENERATOR::ReportBaseData;
using REPORTGENERATOR::ScalarField;
using REPORTGENERATOR::Schema;

struct Attribute
{
    QString name;
    QString value;
};

/// What stands in an element.
struct Parts
{
    std::vector<Attribute> attributes;
    std::vector<std::function<void()>> children;
    QString text;
};

QString Escaped(const QString& text)
{
    return text.toHtmlEscaped();
}

/// Writes elements as the library does, but for an oddity now and then.
class XmlComposer
{
public:
    XmlComposer(Choices& choices, int oddEvery) : m_choices(choices), m_oddEvery(oddEvery) {}

    QString Document(Kind kind);

private:
    bool Odd() { return m_oddEvery > 0 && m_choices.OneIn(m_oddEvery); }

    void Prolog();
    void Gap();
    QString Name(const QString& name);
    void Attributes(std::vector<Attribute> attributes);
    void Open(const QString& name, const std::vector<Attribute>& attributes = {});
    void Close(const QString& name);
    void Content(const QString& text);
    void OddContent(const QString& text);
    void TextElement(const QString& name, const QString& text);
    void Unknown();
    QString Number(double limit, int decimals);

    QString Value(double type, const NumberFormat& format, const Range& range);
    QString Value(bool type, const NumberFormat& format, const Range& range);
    QString Value(const QString& type, const NumberFormat& format, const Range& range);

    template <class Data, class T>
    void Plan(Parts& parts, const ScalarField<Data, T, PresenceBit>& field);
    template <class Data>
    void Plan(Parts& parts, const FormatVersion<Data>& field);
    template <class Data, class Item>
    void Plan(Parts& parts, const ItemList<Data, Item>& field);
    template <class Data, class Object>
    void Plan(Parts& parts, const Member<Data, Object>& field);

    void Element(Kind kind);
    template <class Data>
    void ElementOf();
    void Children(std::vector<std::function<void()>> children);

    Choices& m_choices;
    int m_oddEvery;
    int m_depth = 0;
    QString m_text;
};

QString XmlComposer::Document(Kind kind)
{
    if (Odd())
        Prolog();
    const int wraps = Odd() ? m_choices.Below(3) + 1 : 0;
    const QString wrapper = m_choices.Of({QStringLiteral("Dummy"), QStringLiteral("AreaList"),
                                          QStringLiteral("ReportBase"), QStringLiteral("a.b")});
    for (int i = 0; i < wraps; ++i)
        Open(wrapper);
    const int elements = Odd() ? m_choices.Below(3) : 1;
    for (int i = 0; i < elements; ++i) {
        if (Odd())
            Unknown();
        Element(Odd() ? ALL_KINDS[static_cast<std::size_t>(m_choices.Below(5))] : kind);
    }
    for (int i = 0; i < wraps; ++i)
        Close(wrapper);
    if (Odd())
        Gap();
    if (Odd())
        m_text +=
            m_choices.Of({QStringLiteral("<!-- end -->"), QStringLiteral("x"), QStringLiteral("<"),
                          QStringLiteral("</ReportBase>"), QStringLiteral("<Area/>"), QString(QChar(0))});
    return m_text;
}

void XmlComposer::Prolog()
{
    m_text += m_choices.Of({
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"),
        QStringLiteral("<?xml version='1.0' standalone='yes'?>"),
        QStringLiteral("<?xml version=\"1.1\"?>"),
        QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"),
        QStringLiteral("<?xml version=\"1.0\" encoding=\"no-such\"?>"),
        QStringLiteral("<!DOCTYPE ReportBase>"),
        QStringLiteral("<!DOCTYPE a [<!ENTITY e \"7\"><!ENTITY f \"&e;&e;\">]>"),
        QStringLiteral("<!DOCTYPE a [<!ATTLIST Area Version CDATA \"1.0\">]>"),
        QStringLiteral("<!-- <Area> <Frequency/> -->"),
        QStringLiteral("<?pi <ReportBase> ?>"),
        QString(QChar(0xfeff)),
        QStringLiteral(" \r\n\t"),
        QStringLiteral("text"),
    });
}

void XmlComposer::Gap()
{
    const QString usual = QLatin1Char('\n') + QString(4 * m_depth, QLatin1Char(' '));
    if (!Odd()) {
        m_text += usual;
        return;
    }
    m_text += m_choices.Of({QString(),
                            QStringLiteral("\r\n"),
                            QStringLiteral("\t"),
                            QStringLiteral(" "),
                            usual + usual,
                            QStringLiteral("<!-- -->"),
                            QStringLiteral("<!--<Area>-->\n"),
                            QStringLiteral("<!-- -- -->"),
                            QStringLiteral("<?p?>"),
                            QStringLiteral("text"),
                            QStringLiteral("<![CDATA[ ]]>"),
                            QStringLiteral("<![CDATA[<Area>]]>"),
                            QStringLiteral("&amp;"),
                            QStringLiteral("&#10;"),
                            QStringLiteral("&e;"),
                            QStringLiteral("&f;"),
                            QStringLiteral("]]>"),
                            QString(QChar(0)),
                            QString(QChar(0xd800)),
                            QString(QChar(1))});
}

QString XmlComposer::Name(const QString& name)
{
    if (!Odd())
        return name;
    return m_choices.Of({QLatin1String("x:") + name, name + QLatin1Char('s'), name.toLower(),
                         name.left(name.size() - 1), QStringLiteral("Unknown"), QStringLiteral("Coordinate"),
                         QStringLiteral("Name"), QStringLiteral("Area"), QStringLiteral("1a"), QString()});
}

void XmlComposer::Attributes(std::vector<Attribute> attributes)
{
    if (Odd())
        attributes.push_back(
            {m_choices.Of({QStringLiteral("Other"), QStringLiteral("Min"), QStringLiteral("Use"),
                           QStringLiteral("Version"), QStringLiteral("xmlns"), QStringLiteral("xml:space"),
                           QStringLiteral("xmlns:x"), QStringLiteral("x:Version")}),
             m_choices.Of({QStringLiteral("1"), QString(), QStringLiteral("1.0")})});
    if (Odd())
        std::reverse(attributes.begin(), attributes.end());
    for (const Attribute& attribute : attributes) {
        const QString quote = Odd() ? m_choices.Of({QStringLiteral("'"), QString()}) : QStringLiteral("\"");
        const QString equals = Odd() ? m_choices.Of({QStringLiteral(" = "), QString()}) : QStringLiteral("=");
        const QString blank = Odd() ? m_choices.Of({QStringLiteral("\n  "), QStringLiteral("\t"), QString()})
                                    : QStringLiteral(" ");
        QString value = Escaped(attribute.value);
        if (Odd())
            value += m_choices.Of({QStringLiteral("&#48;"), QStringLiteral("&e;"), QStringLiteral("\n"),
                                   QStringLiteral(">"), QStringLiteral("<"), QStringLiteral("&")});
        m_text += blank + attribute.name + equals + quote + value + quote;
    }
}

void XmlComposer::Open(const QString& name, const std::vector<Attribute>& attributes)
{
    m_text += QLatin1Char('<') + name;
    Attributes(attributes);
    if (Odd())
        m_text += m_choices.Of({QStringLiteral(" "), QStringLiteral("\n"), QStringLiteral("/")});
    m_text += QLatin1Char('>');
    ++m_depth;
}

void XmlComposer::Close(const QString& name)
{
    --m_depth;
    if (Odd() && m_choices.Below(2) == 1)
        return;
    m_text += QLatin1String("</") + Name(name);
    if (Odd())
        m_text += m_choices.Of({QStringLiteral(" "), QStringLiteral("\n"), QStringLiteral("x")});
    m_text += QLatin1Char('>');
}

void XmlComposer::Content(const QString& text)
{
    if (Odd())
        OddContent(text);
    else
        m_text += Escaped(text);
}

/// The text in several pieces or spelled otherwise.
void XmlComposer::OddContent(const QString& text)
{
    const int half = static_cast<int>(text.size()) / 2;
    const QString begin = Escaped(text.left(half));
    const QString end = Escaped(text.mid(half));
    switch (m_choices.Below(10)) {
    case 0:
        m_text += begin + QLatin1String("<!-- -->") + end;
        break;
    case 1:
        m_text += QLatin1String("<![CDATA[") + text + QLatin1String("]]>");
        break;
    case 2:
        m_text += begin + QLatin1String("<![CDATA[") + text + QLatin1String("]]>") + end;
        break;
    case 3:
        for (const QChar character : text)
            m_text += QStringLiteral("&#x%1;").arg(int(character.unicode()), 0, 16);
        break;
    case 4:
        m_text += QLatin1String("\n  ") + begin + end + QLatin1String("\r\n");
        break;
    case 5:
        m_text +=
            begin + m_choices.Of({QStringLiteral("&e;"), QStringLiteral("&unknown;"), QStringLiteral("&"),
                                  QStringLiteral("&lt"), QStringLiteral("&#0;"), QStringLiteral("&#xd800;"),
                                  QStringLiteral("<"), QStringLiteral(">"), QStringLiteral("]]>")});
        break;
    case 6:
        Unknown();
        m_text += begin + end;
        break;
    case 7:
        m_text += begin;
        Unknown();
        break;
    case 8:
        m_text += begin + QLatin1String("<?p?>") + end;
        break;
    default:
        m_text += text;
        break;
    }
}

void XmlComposer::TextElement(const QString& name, const QString& text)
{
    Gap();
    if (Odd()) {
        m_text += QLatin1Char('<') + Name(name) + QLatin1String("/>");
        return;
    }
    const QString opened = Name(name);
    m_text += QLatin1Char('<') + opened;
    if (Odd())
        Attributes({});
    m_text += QLatin1Char('>');
    Content(text);
    m_text += QLatin1String("</") + (Odd() ? Name(opened) : opened) + QLatin1Char('>');
}

void XmlComposer::Unknown()
{
    Gap();
    m_text += m_choices.Of({QStringLiteral("<Unknown>12</Unknown>"), QStringLiteral("<Unknown/>"),
                            QStringLiteral("<Unknown><Name>inside</Name></Unknown>"),
                            QStringLiteral("<Unknown><Unknown>deeper</Unknown>after</Unknown>"),
                            QStringLiteral("<FrequencyInformation/>"), QStringLiteral("<Area/>"),
                            QStringLiteral("<Coordinate/>"), QStringLiteral("<x:Area xmlns:x='u'/>"),
                            QStringLiteral("<Longitude>1<Latitude>2</Latitude></Longitude>"),
                            QStringLiteral("<Unknown>")});
}

QString XmlComposer::Number(double limit, int decimals)
{
    if (Odd())
        return AnyNumberText(m_choices);
    return QString::number(NumberWithin(limit, m_choices), 'f', decimals);
}

// --- Values of fields

QString XmlComposer::Value(double /*type*/, const NumberFormat& format, const Range& range)
{
    constexpr double USUAL = 1e9;
    return Number(range.IsUnbounded() ? USUAL : range.high, format.decimals);
}

QString XmlComposer::Value(bool /*type*/, const NumberFormat& /*format*/, const Range& /*range*/)
{
    return Odd() ? m_choices.Of({QStringLiteral("FALSE"), QStringLiteral("0"), QStringLiteral("False"),
                                 QStringLiteral("no"), QString(), QStringLiteral(" false"),
                                 QStringLiteral("fal\u017fe"), QStringLiteral("1"), QStringLiteral("TRUE")})
                 : m_choices.Of({QStringLiteral("true"), QStringLiteral("false")});
}

QString XmlComposer::Value(const QString& /*type*/, const NumberFormat& /*format*/, const Range& /*range*/)
{
    return Odd() ? AnyText(m_choices) : PlainText(m_choices);
}

// --- What fields add to their element

template <class Data, class T>
void XmlComposer::Plan(Parts& parts, const ScalarField<Data, T, PresenceBit>& field)
{
    if (!field.isMandatory && m_choices.Below(2) == 0)
        return;
    if (field.place == Place::Attribute)
        parts.attributes.push_back({field.name.Text(), Value(T(), field.format, field.range)});
    else if (field.place == Place::Text)
        parts.text = Value(T(), field.format, field.range);
    else
        parts.children.push_back(
            [this, field] { TextElement(field.name.Text(), Value(T(), field.format, field.range)); });
}

template <class Data>
void XmlComposer::Plan(Parts& parts, const FormatVersion<Data>& field)
{
    if (!Odd())
        parts.attributes.push_back(
            {field.name.Text(), Odd() ? AnyVersionText(m_choices) : field.model.Text()});
}

template <class Data, class Item>
void XmlComposer::Plan(Parts& parts, const ItemList<Data, Item>& /*field*/)
{
    parts.children.insert(parts.children.end(), static_cast<std::size_t>(m_choices.Below(4)), [this] {
        Gap();
        ElementOf<typename Item::RecordData>();
    });
}

template <class Data, class Object>
void XmlComposer::Plan(Parts& parts, const Member<Data, Object>& /*field*/)
{
    if (m_choices.Below(4) != 3)
        parts.children.emplace_back([this] {
            Gap();
            ElementOf<typename Object::RecordData>();
        });
}

// --- Elements

template <class Data>
void XmlComposer::ElementOf()
{
    Parts parts;
    ForEachField(Schema<Data>::FIELDS, [&](const auto& field) { Plan(parts, field); });
    const QString name = Schema<Data>::NAME.Text();
    Open(name, parts.attributes);
    if (parts.children.empty() && !parts.text.isNull())
        Content(parts.text);
    else
        Children(parts.children);
    Close(name);
}

void XmlComposer::Children(std::vector<std::function<void()>> children)
{
    if (Odd())
        std::reverse(children.begin(), children.end());
    if (Odd() && !children.empty())
        children.push_back(children.front());
    if (Odd() && !children.empty())
        children.pop_back();
    if (Odd() && !children.empty())
        children.erase(children.begin());
    if (Odd())
        children.emplace_back([this] { Element(m_choices.Of({Kind::Coordinate, Kind::Frequency})); });
    for (const auto& child : children) {
        if (Odd())
            Unknown();
        child();
    }
    if (Odd())
        Unknown();
    --m_depth;
    Gap();
    ++m_depth;
}

void XmlComposer::Element(Kind kind)
{
    Gap();
    switch (kind) {
    case Kind::Report:
        ElementOf<ReportBaseData>();
        break;
    case Kind::Area:
        ElementOf<AreaData>();
        break;
    case Kind::Coordinate:
        ElementOf<CoordinateData>();
        break;
    case Kind::Frequency:
        ElementOf<FrequencyData>();
        break;
    case Kind::Bandwidth:
        ElementOf<IFBandwidthData>();
        break;
    }
}

/// What an object of the kind writes.
QString OwnXml(Kind kind, Choices& choices)
{
    CodePath codePath(Way::Plain);
    const std::unique_ptr<Traveller> traveller = codePath.New(kind);
    Arrange(codePath, *traveller, choices);
    traveller->Object().SetValidate(false);
    return traveller->Object().GetXmlString();
}

void ExchangeLines(QString& text, Choices& choices)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    const int count = static_cast<int>(lines.size());
    const int first = choices.Below(count);
    const int second = choices.Below(count);
    std::swap(lines[first], lines[second]);
    text = lines.join(QLatin1Char('\n'));
}

QString Token(Choices& choices)
{
    switch (choices.Below(3)) {
    case 0:
        return AnyNumberText(choices);
    case 1:
        return AnyText(choices);
    default:
        return choices.Of({QStringLiteral("<"),
                           QStringLiteral(">"),
                           QStringLiteral("&"),
                           QStringLiteral("</"),
                           QStringLiteral("/>"),
                           QStringLiteral("<!--"),
                           QStringLiteral("-->"),
                           QStringLiteral("<![CDATA["),
                           QStringLiteral("]]>"),
                           QStringLiteral("<Area>"),
                           QStringLiteral("</Area>"),
                           QStringLiteral("<Coordinate>"),
                           QStringLiteral("<Name/>"),
                           QStringLiteral("<ScriptID></ScriptID>"),
                           QStringLiteral(" Version=\"0.9\""),
                           QStringLiteral(" Use=\"false\""),
                           QStringLiteral("\r"),
                           QStringLiteral("\n"),
                           QStringLiteral(" "),
                           QStringLiteral("\""),
                           QStringLiteral("&#x41;")});
    }
}

} // namespace

QString Mutated(QString text, Choices& choices)
{
    for (int i = choices.Below(3) + 1; i > 0; --i) {
        const int size = static_cast<int>(text.size());
        const int place = choices.Below(size + 1);
        const int length = choices.Below(std::min(size - place, 20) + 1);
        switch (choices.Below(7)) {
        case 0:
            text.insert(place, Token(choices));
            break;
        case 1:
            text.remove(place, length);
            break;
        case 2:
            text.replace(place, length, Token(choices));
            break;
        case 3:
            ExchangeLines(text, choices);
            break;
        case 4:
            text.insert(place, text.mid(place, length));
            break;
        case 5:
            text.truncate(place);
            break;
        default:
            if (place < size)
                text[place] = QChar(static_cast<ushort>(choices.Word()));
            break;
        }
    }
    return text;
}

QString ComposeXml(Kind kind, Choices& choices)
{
    const int form = choices.Below(8);
    if (form == 0)
        return OwnXml(kind, choices);
    const int oddEvery = choices.Of({0, 100, 100, 30, 30, 8});
    const QString xml = form < 3 ? OwnXml(kind, choices) : XmlComposer(choices, oddEvery).Document(kind);
    return form == 1 || form == 7 ? Mutated(xml, choices) : xml;
}

QByteArray ComposeXmlFile(const QString& xml, Choices& choices)
{
    const auto utf16 = [&xml](bool swapped) {
        QByteArray bytes;
        for (const QChar character : xml) {
            bytes += static_cast<char>(swapped ? character.row() : character.cell());
            bytes += static_cast<char>(swapped ? character.cell() : character.row());
        }
        return bytes;
    };
    switch (choices.Below(16)) {
    case 8:
        return QByteArray("\xef\xbb\xbf") + xml.toUtf8();
    case 9:
        return QByteArray("\xff\xfe") + utf16(false);
    case 10:
        return QByteArray("\xfe\xff") + utf16(true);
    case 11:
        return utf16(false);
    case 12:
        return QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>") + xml.toLatin1();
    case 13:
        return QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n") +
               xml.toUtf8().replace("\n", "\r\n");
    case 14:
        return Mutated(xml.toUtf8(), choices);
    case 15:
        return xml.toLatin1();
    default:
        return xml.toUtf8();
    }
}

} // namespace Support
