#include <reportgenerator/reflection/field.h>

#include <reportgenerator/reflection/names.h>
#include <reportgenerator/reflection/nearname.h>
#include <reportgenerator/reflection/texts.h>
#include <reportgenerator/reflection/units.h>

#include <reportgenerator/reportbase/rgexception.h>

#include <algorithm>
#include <utility>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::Place;
using REPORTGENERATOR::Unit;

namespace {

[[noreturn]] void Refuse(const Field& field, const char* what)
{
    throw RGException(QStringLiteral("%1 %2").arg(field.Name(), QLatin1String(what)));
}

RGException NoUnit(const QString& name)
{
    const QString suggestion = Suggestion(UnitNames(), name);
    return RGException(QStringLiteral("no unit is called '%1'%2 %3")
                           .arg(name,
                                suggestion.isEmpty() ? QStringLiteral("; there are")
                                                     : suggestion + QStringLiteral(" There are"),
                                UnitNames().join(QLatin1String(", "))));
}

/// The place in the reading order.
int RankOf(const Field& field)
{
    if (field.Kind() == FieldKind::List)
        return 3;
    if (field.Kind() == FieldKind::Object)
        return 2;
    return field.Facts().isMandatory ? 0 : 1;
}

} // namespace

Field::Field(const FieldFacts& facts)
    : m_facts(facts), m_name(KeyOf(facts.elementName)), m_key(m_name), m_label(LabelOf(facts.elementName)),
      m_wireLabel(WireLabelOf(facts.elementName))
{
    if (facts.kind != FieldKind::List)
        return;
    for (QString* name : {&m_key, &m_label, &m_wireLabel})
        *name = PluralOf(*name);
}

Field::~Field() = default;

QVariant Field::ValueIn(const IRGObject& /*parent*/) const
{
    return QVariant();
}

std::optional<double> Field::NumberIn(const IRGObject& /*parent*/) const
{
    return std::nullopt;
}

bool Field::Empties(const QString& /*version*/) const
{
    return false;
}

void Field::SetIn(IRGObject& /*parent*/, const QVariant& /*value*/) const
{
    Refuse(*this, HasObjects() ? "is no value" : "cannot be set");
}

QVariant Field::ValueOf(const QString& text) const
{
    switch (m_facts.kind) {
    case FieldKind::Number:
        return NumberOf(text);
    case FieldKind::Switch:
        if (text != QLatin1String("true") && text != QLatin1String("false"))
            throw RGException(QStringLiteral("%1 is true or false, not %2").arg(m_name, Quoted(text)));
        return text == QLatin1String("true");
    case FieldKind::Text:
        return text.isNull() ? QStringLiteral("") : text;
    default:
        Refuse(*this, HasObjects() ? "is no value" : "cannot be set");
    }
}

double Field::NumberOf(const QString& text) const
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (isNumber)
        return number;
    const std::optional<Quantity> quantity = QuantityIn(text);
    if (!quantity || quantity->unit.isEmpty())
        throw RGException(QStringLiteral("%1 is a number, not %2").arg(m_name, Quoted(text)));
    if (m_facts.unit != Unit::Hertz)
        throw RGException(m_facts.unit == Unit::Degrees
                              ? QStringLiteral("%1 is in degrees, not in %2").arg(m_name, quantity->unit)
                              : QStringLiteral("%1 has no unit").arg(m_name));
    const std::optional<double> hertz = InHertz(*quantity);
    if (!hertz)
        throw NoUnit(quantity->unit);
    return *hertz;
}

int Field::CountIn(const IRGObject& /*parent*/) const
{
    return 0;
}

const IRGObject& Field::ItemIn(const IRGObject& /*parent*/, int /*index*/) const
{
    Refuse(*this, "holds no objects");
}

std::unique_ptr<IRGObject> Field::CopyOf(const IRGObject& /*parent*/, int /*index*/) const
{
    Refuse(*this, "holds no objects");
}

std::unique_ptr<IRGObject> Field::NewItem() const
{
    Refuse(*this, "holds no objects");
}

void Field::ReplaceIn(IRGObject& /*parent*/, int /*index*/, const IRGObject& /*item*/) const
{
    Refuse(*this, "holds no objects");
}

void Field::InsertIn(IRGObject& /*parent*/, int /*index*/, const IRGObject& /*item*/) const
{
    Refuse(*this, "is no list");
}

void Field::AppendIn(IRGObject& /*parent*/, const std::vector<std::unique_ptr<IRGObject>>& /*items*/) const
{
    Refuse(*this, "is no list");
}

void Field::RemoveIn(IRGObject& /*parent*/, int /*index*/, int /*count*/) const
{
    Refuse(*this, "is no list");
}

ObjectInfo::ObjectInfo(const QString& objectName, Fields fields)
    : m_objectName(objectName), m_label(LabelOf(objectName)), m_fields(std::move(fields))
{
    for (const auto& field : m_fields)
        m_inReadingOrder.push_back(field.get());
    std::stable_sort(m_inReadingOrder.begin(), m_inReadingOrder.end(),
                     [](const Field* left, const Field* right) { return RankOf(*left) < RankOf(*right); });
}

const Field* ObjectInfo::FindName(const QString& name) const
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(), [&name](const auto& field) {
        return field->Name() == name || field->Key() == name;
    });
    return found == m_fields.end() ? nullptr : found->get();
}

const Field* ObjectInfo::FindTag(qint32 tag) const
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(),
                                    [tag](const auto& field) { return field->Facts().tag == tag; });
    return found == m_fields.end() ? nullptr : found->get();
}

const Field* ObjectInfo::FindElement(const QString& elementName, Place place) const
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(), [&](const auto& field) {
        return field->Facts().place == place && field->Facts().elementName == elementName;
    });
    return found == m_fields.end() ? nullptr : found->get();
}

} // namespace ReportCore
