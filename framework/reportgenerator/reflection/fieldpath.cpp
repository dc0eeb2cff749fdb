#include <reportgenerator/reflection/fieldpath.h>

#include <reportgenerator/reflection/nearname.h>
#include <reportgenerator/reflection/texts.h>

#include <QtCore/QStringList>

#include <functional>

namespace ReportCore {

namespace {

constexpr QLatin1Char DOT('.');
constexpr QLatin1Char OPENING('[');
constexpr QLatin1Char CLOSING(']');
constexpr std::size_t HASH_FACTOR = 31;

PathError NoField(const ObjectInfo& object, const QString& name, const QString& path)
{
    QStringList names;
    for (const auto& field : object.All())
        names << field->Name();
    const QString suggestion = Suggestion(names, name);
    return {QStringLiteral("%1: no field is called %2%3 %4")
                .arg(Printable(path), Quoted(name),
                     suggestion.isEmpty() ? QStringLiteral("; there are")
                                          : suggestion + QStringLiteral(" There are"),
                     names.join(QLatin1String(", ")))};
}

/// The index of an item, from "coordinate[17]"; that of no item where there are no brackets.
int IndexOf(const QString& step, const QString& path)
{
    const auto opening = step.indexOf(OPENING);
    if (opening < 0)
        return FieldPath::WHOLE;
    bool isNumber = false;
    const int number = step.mid(opening + 1, step.size() - opening - 2).toInt(&isNumber);
    if (!isNumber || number < 1 || !step.endsWith(CLOSING))
        throw PathError{QStringLiteral("%1: an item is named by its number from 1, as in coordinate[1]")
                            .arg(Printable(path))};
    return number - 1;
}

FieldPath::Step ParseStep(const ObjectInfo& object, const QString& step, const QString& path)
{
    const QString name = step.left(step.indexOf(OPENING));
    const Field* const field = object.FindName(name);
    if (!field)
        throw NoField(object, name, path);
    const int index = IndexOf(step, path);
    if (index != FieldPath::WHOLE && field->Kind() != FieldKind::List)
        throw PathError{QStringLiteral("%1: %2 is no list").arg(Printable(path), field->Name())};
    return {field, index};
}

} // namespace

FieldPath FieldPath::Parse(const ObjectInfo& object, const QString& text)
{
    FieldPath path;
    const ObjectInfo* parent = &object;
    for (const QString& part : text.split(DOT)) {
        if (!parent)
            throw PathError{QStringLiteral("%1: %2 holds no fields").arg(Printable(text), path.Text())};
        const Step step = ParseStep(*parent, part, text);
        path.Enter(*step.field, step.index);
        const bool isObject =
            step.field->HasObjects() && (step.field->Kind() == FieldKind::Object || step.index != WHOLE);
        parent = isObject ? &step.field->Object() : nullptr;
    }
    return path;
}

QString FieldPath::Text() const
{
    QString text;
    for (const Step& step : m_steps) {
        if (!text.isEmpty())
            text += DOT;
        text += step.field->Name();
        if (step.index != WHOLE)
            text += OPENING + QString::number(step.index + 1) + CLOSING;
    }
    return text;
}

FieldPath FieldPath::Parent() const
{
    FieldPath parent = *this;
    if (!parent.IsEmpty())
        parent.Leave();
    return parent;
}

bool FieldPath::IsAbove(const FieldPath& other) const
{
    if (Size() > other.Size())
        return false;
    for (int i = 0; i < Size(); ++i) {
        const bool isWhole = i + 1 == Size() && At(i).index == WHOLE;
        if (At(i).field != other.At(i).field || (At(i).index != other.At(i).index && !isWhole))
            return false;
    }
    return true;
}

std::size_t FieldPathHash::operator()(const FieldPath& path) const
{
    std::size_t hash = 0;
    for (int i = 0; i < path.Size(); ++i) {
        hash = hash * HASH_FACTOR + std::hash<const Field*>()(path.At(i).field);
        hash = hash * HASH_FACTOR + std::hash<int>()(path.At(i).index);
    }
    return hash;
}

} // namespace ReportCore
