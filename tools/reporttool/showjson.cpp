#include <reporttool/showjson.h>

#include <reportcore/reportfields.h>
#include <reportcore/reportjson.h>

namespace ReportTool {

using ReportCore::FileForm;
using ReportCore::Form;
using ReportCore::ReportFile;
using Json = QJsonValue;

namespace {

Json FormName(const FileForm& form)
{
    if (form.isBinaryFile)
        return QStringLiteral("file");
    switch (form.form) {
    case Form::Xml:
        return QStringLiteral("xml");
    case Form::Plain:
        return QStringLiteral("plain");
    case Form::Compressed:
        return QStringLiteral("compressed");
    case Form::Unknown:
        break;
    }
    return QStringLiteral("unknown");
}

/// What a binary file holds; nothing for other forms.
Json RepresentationName(const FileForm& form)
{
    return form.isBinaryFile ? FormName({form.form, false}) : Json();
}

/// All keys, with nothing known of the file.
QJsonObject Unknown(const QString& name)
{
    QJsonObject json{{QStringLiteral("file"), name}};
    for (const char* key : {"error", "form", "representation", "size", "name", "valid", "problems"})
        json.insert(QLatin1String(key), Json());
    for (const auto& field : ReportCore::ReportInfo().All())
        json.insert(field->Key(), Json());
    return json;
}

} // namespace

QJsonObject ToJson(const QString& name, const ReportFile& file)
{
    QJsonObject json = Unknown(name);
    const QJsonObject fields = ReportCore::FieldsToJson(file.report, ReportCore::ReportInfo());
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

} // namespace ReportTool
