#include <reportcore/jsonreading.h>

#include <reportcore/areapoints.h>

#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QJsonArray>

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;

namespace {

constexpr char BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";
constexpr int BYTE_ORDER_MARK_SIZE = 3;
constexpr char ESCAPED_MARK[] = "\\ufeff";
constexpr int ESCAPED_MARK_SIZE = 6;

constexpr double INFINITE = std::numeric_limits<double>::infinity();

QString Below(const QString& path, const QString& name)
{
    return path.isEmpty() ? name : path + QLatin1Char('.') + name;
}

[[noreturn]] void Refuse(const QString& path, const char* text)
{
    throw JsonError{path.isEmpty() ? QString(QLatin1String(text))
                                   : QStringLiteral("%1: %2").arg(path, QLatin1String(text))};
}

/// JSON has no word for numbers that are none, so these are texts.
QVariant NumberOf(const QJsonValue& json, const QString& path)
{
    if (json.isDouble())
        return json.toDouble();
    const QString text = json.toString();
    if (text == QLatin1String("nan"))
        return std::numeric_limits<double>::quiet_NaN();
    if (text == QLatin1String("inf"))
        return INFINITE;
    if (text == QLatin1String("-inf"))
        return -INFINITE;
    Refuse(path, "a number is expected");
}

QVariant ValueOf(const QJsonValue& json, FieldKind kind, const QString& path)
{
    if (kind == FieldKind::Number)
        return NumberOf(json, path);
    if (kind == FieldKind::Switch) {
        if (!json.isBool())
            Refuse(path, "true or false is expected");
        return json.toBool();
    }
    if (!json.isString())
        Refuse(path, "a text is expected");
    return json.toString();
}

/// The box around the points of a list stands beside it, and follows from them.
bool IsBeside(const QString& key, const ObjectInfo& info)
{
    return key == QLatin1String("bounds") &&
           std::any_of(info.All().begin(), info.All().end(),
                       [](const auto& field) { return HoldsPoints(*field); });
}

void RequireKnown(const QJsonObject& json, const ObjectInfo& info, const QString& path)
{
    for (auto i = json.begin(); i != json.end(); ++i) {
        const QString key = i.key();
        const bool isKnown =
            IsBeside(key, info) || std::any_of(info.All().begin(), info.All().end(),
                                               [&key](const auto& field) { return field->Key() == key; });
        if (!isKnown)
            Refuse(Below(path, key), "there is no such field");
    }
}

void Take(IRGObject& object, const ObjectInfo& info, const QJsonObject& json, const QString& path);

void TakeItems(IRGObject& parent, const Field& list, const QJsonValue& json, const QString& path)
{
    if (!json.isArray())
        Refuse(path, "an array is expected");
    std::vector<std::unique_ptr<IRGObject>> items;
    for (const QJsonValue value : json.toArray()) {
        const QString itemPath = QStringLiteral("%1[%2]").arg(path).arg(items.size() + 1);
        if (!value.isObject())
            Refuse(itemPath, "an object is expected");
        std::unique_ptr<IRGObject> item = list.NewItem();
        Take(*item, list.Object(), value.toObject(), itemPath);
        items.push_back(std::move(item));
    }
    list.AppendIn(parent, items);
}

void TakeField(IRGObject& parent, const Field& field, const QJsonValue& json, const QString& path)
{
    if (field.Kind() == FieldKind::List) {
        TakeItems(parent, field, json, path);
    } else if (field.Kind() == FieldKind::Object) {
        if (!json.isObject())
            Refuse(path, "an object is expected");
        const std::unique_ptr<IRGObject> member = field.CopyOf(parent, 0);
        Take(*member, field.Object(), json.toObject(), path);
        field.ReplaceIn(parent, 0, *member);
    } else if (field.Kind() != FieldKind::Version) {
        field.SetIn(parent, ValueOf(json, field.Kind(), path));
    }
}

void Take(IRGObject& object, const ObjectInfo& info, const QJsonObject& json, const QString& path)
{
    RequireKnown(json, info, path);
    for (const auto& field : info.All()) {
        const QJsonValue value = json.value(field->Key());
        if (value.isNull() || value.isUndefined())
            continue;
        const QString fieldPath = Below(path, field->Name());
        try {
            TakeField(object, *field, value, fieldPath);
        } catch (const ReportException& refused) {
            throw JsonError{
                QStringLiteral("%1: %2: %3").arg(fieldPath, refused.GetErrorName(), refused.GetErrorText())};
        }
    }
}

} // namespace

QJsonDocument ParseJson(const QByteArray& bytes, QJsonParseError& error)
{
    // Behind its start a mark can stand in texts only, and as an escape it stays there.
    QByteArray escaped;
    std::vector<int> marks;
    int begin = 0;
    for (int mark = static_cast<int>(bytes.indexOf(BYTE_ORDER_MARK, 1)); mark >= 0;
         mark = static_cast<int>(bytes.indexOf(BYTE_ORDER_MARK, begin))) {
        escaped += bytes.mid(begin, mark - begin);
        marks.push_back(static_cast<int>(escaped.size()));
        escaped += ESCAPED_MARK;
        begin = mark + BYTE_ORDER_MARK_SIZE;
    }
    if (marks.empty())
        return QJsonDocument::fromJson(bytes, &error);
    QJsonDocument document = QJsonDocument::fromJson(escaped + bytes.mid(begin), &error);
    const auto before = std::lower_bound(marks.begin(), marks.end(), error.offset) - marks.begin();
    error.offset -= static_cast<int>(before) * (ESCAPED_MARK_SIZE - BYTE_ORDER_MARK_SIZE);
    return document;
}

void SetFromJson(IRGObject& object, const ObjectInfo& info, const QJsonObject& json)
{
    Take(object, info, json, QString());
}

} // namespace ReportCore
