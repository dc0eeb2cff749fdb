#include <reportviewer/paths.h>

#include <reportgenerator/reflection/reportfields.h>

#include <algorithm>

namespace ReportViewer {

using ReportCore::FieldPath;

FieldPath ParsedPath(const QString& text)
{
    if (text.isEmpty())
        return FieldPath();
    try {
        return FieldPath::Parse(ReportCore::ReportInfo(), text);
    } catch (const ReportCore::PathError&) {
        return FieldPath();
    }
}

QString ParentPath(const QString& path)
{
    const auto end = std::max(path.lastIndexOf(QLatin1Char('.')), path.lastIndexOf(QLatin1Char('[')));
    return end < 0 ? QString() : path.left(end);
}

} // namespace ReportViewer
