#include <reportcore/exporting/feature.h>

#include <reportcore/areapoints.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/texts.h>

namespace ReportCore {

using REPORTGENERATOR::ReportBase;

namespace {

void CollectTypes(const ObjectInfo& info, FieldPath& path, std::vector<PropertyType>& types)
{
    for (const Field* field : info.InReadingOrder()) {
        path.Enter(*field);
        if (field->Kind() == FieldKind::Object)
            CollectTypes(field->Object(), path, types);
        else if (field->Kind() != FieldKind::List)
            types.push_back({path.Text().replace(QLatin1Char('.'), QLatin1Char('_')), field->Kind(), path});
        path.Leave();
    }
}

} // namespace

const std::vector<PropertyType>& PropertyTypes()
{
    static const std::vector<PropertyType> types = [] {
        std::vector<PropertyType> collected;
        FieldPath path;
        CollectTypes(ReportInfo(), path, collected);
        return collected;
    }();
    return types;
}

Feature FeatureOf(const QString& file, const ReportBase& report)
{
    Feature feature;
    feature.file = file;
    for (const PropertyType& type : PropertyTypes())
        feature.values.push_back(ValueAt(report, type.path));
    if (report.IsAreaSet())
        feature.name = report.GetArea().GetName();
    feature.outline = ValidPoints(report);
    return feature;
}

QString PropertyText(const QVariant& value)
{
    return value.userType() == QMetaType::Double ? NumberText(value.toDouble()) : value.toString();
}

} // namespace ReportCore
