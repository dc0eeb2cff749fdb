#ifndef REPORTCORE_EXPORTING_FEATURE_H
#define REPORTCORE_EXPORTING_FEATURE_H

#include <reportcore/exporting/geometry.h>

#include <reportgenerator/reflection/field.h>
#include <reportgenerator/reflection/fieldpath.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QString>
#include <QtCore/QVariant>

#include <vector>

namespace ReportCore {

/// A value of a report by the name that other programs know it by: its path with "_" for ".", which need not be quoted
/// in queries: "frequency_value".
struct PropertyType
{
    QString name;
    FieldKind kind = FieldKind::Text;
    FieldPath path;
};

/// All values of a report that stand in no list, in the order in which people want them.
const std::vector<PropertyType>& PropertyTypes();

/// A report as other programs take it.
struct Feature
{
    /// Name of the file that it was read from.
    QString file;

    /// Of its area; null where there is none.
    QString name;

    /// The values of `PropertyTypes()`; an invalid one is not set.
    std::vector<QVariant> values;

    /// The valid points of its area.
    Points outline;
};

Feature FeatureOf(const QString& file, const REPORTGENERATOR::ReportBase& report);

/// The value as text: numbers in fixed notation, switches as "true" and "false"; empty where there is none.
QString PropertyText(const QVariant& value);

} // namespace ReportCore

#endif
