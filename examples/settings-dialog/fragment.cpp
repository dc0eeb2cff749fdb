#include "fragment.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtCore/QXmlStreamReader>

#include <cstddef>
#include <vector>

namespace {

constexpr int LONGEST_QUOTATION = 40;

// No settings object has elements that are nested deeper; what lies deeper is named after its place down to
// here.
constexpr std::size_t DEEPEST_PLACE = 4;

/// An element that is not an object's, but may hold some.
struct Container
{
    QString name;
    int ignoredBefore = 0;
    bool holdsObject = false;
};

/// An element within an object's, while it is read.
struct OpenElement
{
    QString place;
    QString text;
    bool hasChildren = false;
};

/// An attribute or a text within an object's element.
struct Value
{
    QString place;
    QString text;
};

/// A fragment may be several elements, a document is one.
QString AsDocument(const QString& fragment)
{
    return QStringLiteral("<Fragment>") + fragment + QStringLiteral("</Fragment>");
}

QString Quoted(const QString& text)
{
    const bool isLong = text.size() > LONGEST_QUOTATION;
    return QLatin1Char('"') + (isLong ? text.left(LONGEST_QUOTATION) + QChar(0x2026) : text) +
           QLatin1Char('"');
}

void AddAttributes(std::vector<Value>& values, const QXmlStreamReader& reader, const QString& place)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes)
        values.push_back(
            {place + QLatin1Char('@') + attribute.qualifiedName().toString(), attribute.value().toString()});
}

/// The place of an element within the open ones. It doesn't grow beyond a few levels, since deep elements
/// would otherwise take room by the square of their depth.
QString PlaceWithin(const std::vector<OpenElement>& open, const QString& name)
{
    const QString& place = open.back().place;
    if (open.size() < DEEPEST_PLACE)
        return place + QLatin1Char('.') + name;
    return open.size() == DEEPEST_PLACE ? place + QStringLiteral("...") : place;
}

/// Reads the element that the reader stands on.
std::vector<Value> ReadValues(QXmlStreamReader& reader)
{
    std::vector<Value> values;
    std::vector<OpenElement> open = {{reader.name().toString(), QString(), false}};
    AddAttributes(values, reader, open.back().place);
    while (!reader.atEnd() && !open.empty()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            open.back().hasChildren = true;
            open.push_back({PlaceWithin(open, reader.name().toString()), QString(), false});
            AddAttributes(values, reader, open.back().place);
        } else if (token == QXmlStreamReader::Characters) {
            open.back().text += reader.text();
        } else if (token == QXmlStreamReader::EndElement) {
            const OpenElement& closed = open.back();
            if (!closed.hasChildren)
                values.push_back({closed.place, closed.text});
            else if (!closed.text.trimmed().isEmpty())
                values.push_back({closed.place, closed.text.trimmed()});
            open.pop_back();
        }
    }
    return values;
}

/// The values of the first element of this name.
std::vector<Value> ValuesOf(const QString& fragment, const QString& objectName)
{
    QXmlStreamReader reader(AsDocument(fragment));
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == objectName)
            return ReadValues(reader);
    }
    return {};
}

/// The same for a value as it is given and as it is written.
QString Key(const Value& value)
{
    bool isNumber = false;
    const double number = value.text.toDouble(&isNumber);
    return value.place + QLatin1Char(' ') + (isNumber ? QString::number(number, 'f', 2) : value.text);
}

} // namespace

Leftovers FindLeftovers(const QString& fragment, QStringList objectNames)
{
    QXmlStreamReader reader(AsDocument(fragment));
    Leftovers leftovers;
    std::vector<Container> open;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            const QString name = reader.name().toString();
            if (objectNames.removeOne(name)) {
                open.back().holdsObject = true;
                reader.skipCurrentElement();
            } else {
                open.push_back({name, static_cast<int>(leftovers.ignored.size()), false});
            }
        } else if (token == QXmlStreamReader::Characters && !reader.isWhitespace()) {
            leftovers.ignored.append(Quoted(reader.text().toString().simplified()));
        } else if (token == QXmlStreamReader::EndElement) {
            const Container closed = open.back();
            open.pop_back();
            if (open.empty())
                continue;
            if (closed.holdsObject) {
                open.back().holdsObject = true;
            } else {
                // Its name stands for all that is in it.
                leftovers.ignored.erase(leftovers.ignored.begin() + closed.ignoredBefore,
                                        leftovers.ignored.end());
                leftovers.ignored.append(closed.name);
            }
        }
    }
    if (reader.hasError())
        leftovers.problem = reader.errorString();
    return leftovers;
}

QStringList FindChangedValues(const QString& fragment, const QString& objectName, const QString& written)
{
    QHash<QString, int> kept;
    QSet<QString> keptPlaces;
    for (const Value& value : ValuesOf(written, objectName)) {
        ++kept[Key(value)];
        keptPlaces.insert(value.place);
    }
    QStringList changed;
    for (const Value& value : ValuesOf(fragment, objectName)) {
        int& count = kept[Key(value)];
        if (count > 0)
            --count;
        // An empty text that has set nothing is no loss.
        else if (!value.text.isEmpty() || keptPlaces.contains(value.place))
            changed.append(value.place + QLatin1Char(' ') + Quoted(value.text));
    }
    return changed;
}
