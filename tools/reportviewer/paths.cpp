#include <reportviewer/paths.h>

#include <reportcore/reportfields.h>

#include <reportgenerator/reportbase/coordinate.h>

namespace ReportViewer {

using ReportCore::FieldKind;
using ReportCore::FieldPath;
using ReportCore::ObjectInfo;
using REPORTGENERATOR::Coordinate;

namespace {

bool FindPoints(const ObjectInfo& info, FieldPath& path)
{
    for (const auto& field : info.All()) {
        if (!field->HasObjects())
            continue;
        path.Enter(*field);
        const bool isList = field->Kind() == FieldKind::List &&
                            field->Object().ObjectName() == Coordinate::GetStaticObjectName();
        if (isList || (field->Kind() == FieldKind::Object && FindPoints(field->Object(), path)))
            return true;
        path.Leave();
    }
    return false;
}

} // namespace

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

FieldPath PathOfPoints(int index)
{
    static const FieldPath found = [] {
        FieldPath path;
        FindPoints(ReportCore::ReportInfo(), path);
        return path;
    }();
    FieldPath path = found;
    path.SetIndex(index);
    return path;
}

} // namespace ReportViewer
