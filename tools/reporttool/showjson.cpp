#include <reporttool/showjson.h>

#include <reporttool/bounds.h>
#include <reporttool/texts.h>

#include <QtCore/QJsonArray>

#include <cmath>

namespace ReportTool {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ReportBase;

namespace {

using Json = QJsonValue;

/// JSON has no word for what is no number: that is given as a text.
Json Number(bool isSet, double number)
{
    if (!isSet)
        return Json();
    return std::isfinite(number) ? Json(number) : Json(NumberText(number));
}

Json Text(bool isSet, const QString& text)
{
    return isSet && !text.isNull() ? Json(text) : Json();
}

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

template <class Bounded>
QJsonObject BoundedJson(const Bounded& object)
{
    return {{QStringLiteral("value"), Number(object.IsValueSet(), object.GetValue())},
            {QStringLiteral("min"), Number(object.IsMinSet(), object.GetMin())},
            {QStringLiteral("max"), Number(object.IsMaxSet(), object.GetMax())}};
}

Json FrequencyJson(const Frequency& frequency)
{
    QJsonObject json = BoundedJson(frequency);
    json.insert(QStringLiteral("use"), frequency.IsUseSet() ? Json(frequency.GetUse()) : Json());
    return json;
}

Json BoundsJson(const Bounds& bounds)
{
    if (bounds.isEmpty)
        return Json();
    return QJsonObject{{QStringLiteral("west"), bounds.west},
                       {QStringLiteral("east"), bounds.east},
                       {QStringLiteral("south"), bounds.south},
                       {QStringLiteral("north"), bounds.north}};
}

Json CoordinatesJson(const QVector<Coordinate>& points)
{
    QJsonArray json;
    for (const Coordinate& point : points) {
        json.append(
            QJsonObject{{QStringLiteral("longitude"), Number(point.IsLongitudeSet(), point.GetLongitude())},
                        {QStringLiteral("latitude"), Number(point.IsLatitudeSet(), point.GetLatitude())}});
    }
    return json;
}

Json AreaJson(const Area& area)
{
    const QVector<Coordinate>& points = area.GetCoordinate();
    const QString& version = area.GetInitialVersionLoaded();
    return QJsonObject{
        {QStringLiteral("name"), Text(area.IsNameSet(), area.GetName())},
        {QStringLiteral("version"), Text(!version.isEmpty(), version)},
        {QStringLiteral("scriptId"), Text(area.IsScriptIDSet(), area.GetScriptID())},
        {QStringLiteral("bounds"), BoundsJson(BoundsOf(points))},
        {QStringLiteral("coordinates"), area.IsCoordinateSet() ? CoordinatesJson(points) : Json()}};
}

QJsonArray ProblemsJson(const Problems& problems)
{
    QJsonArray json;
    for (const Problem& problem : problems) {
        json.append(QJsonObject{{QStringLiteral("name"), problem.name},
                                {QStringLiteral("text"), problem.text},
                                {QStringLiteral("line"), problem.line > 0 ? Json(problem.line) : Json()}});
    }
    return json;
}

/// All keys, with nothing known of the file.
QJsonObject Unknown(const QString& name)
{
    QJsonObject json{{QStringLiteral("file"), name}};
    for (const char* key : {"error", "form", "representation", "size", "name", "valid", "frequency",
                            "ifBandwidth", "area", "problems"})
        json.insert(QLatin1String(key), Json());
    return json;
}

} // namespace

QJsonObject ToJson(const QString& name, const ReportFile& file)
{
    const ReportBase& report = file.report;
    QJsonObject json = Unknown(name);
    json[QStringLiteral("form")] = FormName(file.form);
    json[QStringLiteral("representation")] = RepresentationName(file.form);
    json[QStringLiteral("size")] = file.size;
    json[QStringLiteral("name")] = Text(!file.objectName.isEmpty(), file.objectName);
    json[QStringLiteral("valid")] = file.IsGood();
    if (report.IsFrequencySet())
        json[QStringLiteral("frequency")] = FrequencyJson(report.GetFrequency());
    if (report.IsIFBandwidthSet())
        json[QStringLiteral("ifBandwidth")] = BoundedJson(report.GetIFBandwidth());
    if (report.IsAreaSet())
        json[QStringLiteral("area")] = AreaJson(report.GetArea());
    json[QStringLiteral("problems")] = ProblemsJson(file.problems);
    return json;
}

QJsonObject ToJson(const QString& name, const QString& error)
{
    QJsonObject json = Unknown(name);
    json[QStringLiteral("error")] = error;
    return json;
}

} // namespace ReportTool
