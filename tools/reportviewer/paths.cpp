#include <reportviewer/paths.h>

#include <reportcore/reportfields.h>

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

} // namespace ReportViewer
