#include <reportgenerator/reflection/fieldtexts.h>

#include <reportgenerator/reflection/texts.h>

#include <QtCore/QStringList>

namespace ReportCore {

QString ValueText(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Double:
        return NumberText(value.toDouble());
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QMetaType::QString:
        return value.toString().isNull() ? QStringLiteral("null") : Quoted(value.toString());
    default:
        return QStringLiteral("not set");
    }
}

QString ItemText(const REPORTGENERATOR::IRGObject& item, const ObjectInfo& info)
{
    QStringList values;
    for (const Field* field : info.InReadingOrder())
        values << ValueText(field->ValueIn(item));
    return values.join(QLatin1Char(' '));
}

} // namespace ReportCore
