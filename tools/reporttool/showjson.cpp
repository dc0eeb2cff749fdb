#include <reporttool/showjson.h>

#include <reportcore/jsonreading.h>
#include <reportcore/jsonwriting.h>

#include <reportgenerator/reflection/reportfields.h>

namespace ReportTool {

using ReportCore::FileForm;
using ReportCore::Form;
using ReportCore::ReportFile;
using Json = QJsonValue;

namespace {

Json FormName(const FileForm& form)
{
    return ReportCore::WordFor(form);
}

/// What a binary file holds; nothing for other forms.
Json RepresentationName(const FileForm& form)
{
    return form.isBinaryFile ? FormName({form.form, false}) : Json();
}

/// The keys beside those of the report's fields.
constexpr const char* FILE_KEYS[] = {"file", "error", "form",  "representation",
                                     "size", "name",  "valid", "problems"};

/// The text of a key; null where there is none.
Json TextOf(const QJsonObject& json, const char* key)
{
    Json text = json.value(QLatin1String(key));
    if (text.isNull() || text.isUndefined())
        return Json();
    if (!text.isString())
        throw ReportCore::JsonError{QStringLiteral("%1: a text is expected").arg(QLatin1String(key))};
    return text;
}

/// The form that is told of. A report that a person has written down needs none.
FileForm FormOf(const QJsonObject& json)
{
    const Json form = TextOf(json, "form");
    Json representation = TextOf(json, "representation");
    if (form.isNull())
        return {Form::Xml, false};
    if (representation.isNull() && form == FormName({Form::Plain, true}))
        representation = FormName({Form::Plain, false});
    for (const Form known : {Form::Xml, Form::Plain, Form::Compressed}) {
        for (const bool isBinaryFile : {false, true}) {
            const FileForm found = {known, isBinaryFile && known != Form::Xml};
            if (FormName(found) == form && RepresentationName(found) == representation)
                return found;
        }
    }
    throw ReportCore::JsonError{QStringLiteral("form: no form is called so")};
}

/// All keys, with nothing known of the file.
QJsonObject Unknown(const QString& name)
{
    QJsonObject json;
    for (const char* key : FILE_KEYS)
        json.insert(QLatin1String(key), Json());
    ReportCore::InsertFileName(json, QStringLiteral("file"), name);
    for (const auto& field : ReportCore::ReportInfo().All())
        json.insert(field->Key(), Json());
    return json;
}

} // namespace

QJsonObject ToJson(const QString& name, const ReportFile& file, ReportCore::JsonPoints points)
{
    QJsonObject json = Unknown(name);
    const QJsonObject fields = ReportCore::FieldsToJson(file.report, ReportCore::ReportInfo(), points);
    for (auto i = fields.begin(); i != fields.end(); ++i)
        json.insert(i.key(), i.value());
    json[QStringLiteral("form")] = FormName(file.form);
    json[QStringLiteral("representation")] = RepresentationName(file.form);
    json[QStringLiteral("size")] = file.size;
    json[QStringLiteral("name")] = file.objectName.isEmpty() ? Json() : Json(file.objectName);
    json[QStringLiteral("valid")] = file.IsGood();
    json[QStringLiteral("problems")] = ReportCore::ProblemsToJson(file.problems);
    return json;
}

QJsonObject ToJson(const QString& name, const QString& error)
{
    QJsonObject json = Unknown(name);
    json[QStringLiteral("error")] = error;
    return json;
}

void FromJson(const QJsonObject& json, ReportFile& file)
{
    if (json.value(QStringLiteral("error")).isString())
        throw ReportCore::JsonError{
            QStringLiteral("there is no report: %1").arg(json.value(QStringLiteral("error")).toString())};
    if (json.value(QStringLiteral("valid")) == Json(false))
        throw ReportCore::JsonError{QStringLiteral("the report was not valid")};
    file.form = FormOf(json);
    file.objectName = json.value(QStringLiteral("name")).toString();
    QJsonObject fields = json;
    for (const char* key : FILE_KEYS)
        fields.remove(QLatin1String(key));
    fields.remove(QLatin1String(REPORT_KEY));
    fields.remove(QLatin1String("file") + QLatin1String(ReportCore::BASE64_SUFFIX));
    ReportCore::SetFromJson(file.report, ReportCore::ReportInfo(), fields);
}

} // namespace ReportTool
