#include <reportcore/reportjson.h>

#include <reportcore/areapoints.h>
#include <reportcore/bounds.h>

#include <reportgenerator/reflection/texts.h>

#include <cmath>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;
using Json = QJsonValue;

namespace {

Json BoundsToJson(const Bounds& bounds)
{
    if (bounds.isEmpty)
        return Json();
    return QJsonObject{{QStringLiteral("west"), bounds.west},
                       {QStringLiteral("east"), bounds.east},
                       {QStringLiteral("south"), bounds.south},
                       {QStringLiteral("north"), bounds.north}};
}

Json ItemsToJson(const IRGObject& parent, const Field& list)
{
    QJsonArray json;
    const int count = list.CountIn(parent);
    for (int i = 0; i < count; ++i)
        json.append(FieldsToJson(list.ItemIn(parent, i), list.Object()));
    return json;
}

Json FieldToJson(const IRGObject& parent, const Field& field, JsonPoints points)
{
    if (!field.HasObjects())
        return ValueToJson(field.ValueIn(parent));
    if (!field.IsSetIn(parent))
        return Json();
    return field.Kind() == FieldKind::List ? ItemsToJson(parent, field)
                                           : FieldsToJson(field.ItemIn(parent, 0), field.Object(), points);
}

Json TextOrNull(const QString& text)
{
    return text.isNull() ? Json() : Json(text);
}

} // namespace

QJsonValue ValueToJson(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Double: {
        const double number = value.toDouble();
        return std::isfinite(number) ? Json(number) : Json(NumberText(number));
    }
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::QString:
        return value.toString().isNull() ? Json() : Json(value.toString());
    default:
        return Json();
    }
}

QJsonObject FieldsToJson(const IRGObject& object, const ObjectInfo& info, JsonPoints points)
{
    QJsonObject json;
    for (const auto& field : info.All()) {
        const bool isList = HoldsPoints(*field);
        if (isList && points == JsonPoints::Count)
            json.insert(QStringLiteral("points"),
                        field->IsSetIn(object) ? Json(field->CountIn(object)) : Json());
        else
            json.insert(field->Key(), FieldToJson(object, *field, points));
        if (isList)
            json.insert(QStringLiteral("bounds"), BoundsToJson(BoundsOf(object, *field)));
    }
    return json;
}

QJsonObject ProblemToJson(const Problem& problem)
{
    const FilePlace& place = problem.place;
    const QString path = problem.path.isEmpty() ? QString() : problem.path;
    return {{QStringLiteral("name"), problem.name},
            {QStringLiteral("text"), problem.text},
            {QStringLiteral("line"), place.line > 0 ? Json(place.line) : Json()},
            {QStringLiteral("column"), place.line > 0 ? Json(place.column) : Json()},
            {QStringLiteral("offset"), place.offset >= 0 ? Json(place.offset) : Json()},
            {QStringLiteral("uncompressed"), place.offset >= 0 ? Json(place.isUncompressed) : Json()},
            {QStringLiteral("path"), TextOrNull(path)},
            {QStringLiteral("value"), TextOrNull(problem.value)}};
}

QJsonArray ProblemsToJson(const Problems& problems)
{
    QJsonArray json;
    for (const Problem& problem : problems)
        json.append(ProblemToJson(problem));
    return json;
}

} // namespace ReportCore
