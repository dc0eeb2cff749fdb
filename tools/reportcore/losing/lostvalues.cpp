#include <reportcore/losing/lostvalues.h>

#include <reportcore/losses.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/texts.h>

#include <cmath>

namespace ReportCore {

namespace {

QString ValueText(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Double:
        return NumberText(value.toDouble());
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    default:
        return Quoted(value.toString());
    }
}

bool IsSameNumber(const QString& text, const QVariant& value)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    const double read = value.toDouble();
    return isNumber && (number == read || (std::isnan(number) && std::isnan(read)));
}

/// Of switches in XML; what is none of these reads as true.
bool IsSameSwitch(const QString& text, bool value)
{
    const QString lower = text.toLower();
    return value ? lower == QLatin1String("true") || lower == QLatin1String("1")
                 : lower == QLatin1String("false") || lower == QLatin1String("0");
}

bool IsSame(const Event& event, const QVariant& value)
{
    const FieldKind kind = event.path->Last().field->Kind();
    // A text in UTF-8 need not be any: then its bytes are others than those of what was read.
    if (event.kind == Event::Kind::Utf8 && kind == FieldKind::Text)
        return value.toString().toUtf8() == event.bytes.Bytes();
    // Nothing was said where nothing is read.
    if (!value.isValid())
        return event.value.isEmpty();
    switch (kind) {
    case FieldKind::Number:
        return IsSameNumber(event.value, value);
    case FieldKind::Switch:
        return IsSameSwitch(event.value, value.toBool());
    default:
        return event.value == value.toString();
    }
}

/// Whether `next` is the item behind the other one.
bool Follows(const FieldPath& next, const FieldPath& item)
{
    return next.IsItem() && item.IsItem() && next.Last().field == item.Last().field &&
           next.Last().index == item.Last().index + 1 && next.Parent() == item.Parent();
}

} // namespace

void LostValues::Take(const Event& event)
{
    const FieldPath& path = *event.path;
    if (path.Last().field->Kind() == FieldKind::Version)
        return;
    const QVariant value = ValueAt(m_file.report, path);
    if (IsSame(event, value) || IsParentLost(path))
        return;
    const QString was = QStringLiteral("%1 %2").arg(path.Text(), Quoted(event.value));
    const QString text = value.isValid() ? QStringLiteral("%1 becomes %2").arg(was, ValueText(value)) : was;
    m_lost.push_back({ProblemOf(event, LOST_VALUE, text, event.value)});
    m_lost.back().problem.place = event.inspector->PlaceOf(event.place);
    m_last = path;
}

/// The outermost object that isn't there takes all that it held with it.
bool LostValues::IsParentLost(const FieldPath& path)
{
    FieldPath object;
    for (int i = 0; i + 1 < path.Size(); ++i) {
        object.Enter(*path.At(i).field, path.At(i).index);
        if (!IsSet(m_file.report, object)) {
            Lose(object);
            return true;
        }
    }
    return false;
}

void LostValues::Lose(const FieldPath& object)
{
    if (object == m_last)
        return;
    if (Follows(object, m_last))
        m_lost.back().problem.text =
            QStringLiteral("%1 to %2").arg(m_lost.back().path->Text(), object.Text());
    else
        m_lost.push_back(
            {{QLatin1String(LOST_VALUE),
              object.IsItem() ? object.Text() : QStringLiteral("the ") + object.Last().field->Label()},
             object});
    m_last = object;
}

Problems LostValues::Find(const QByteArray& bytes)
{
    Locate(m_lost, bytes, m_file.form);
    return ProblemsOf(m_lost);
}

} // namespace ReportCore
