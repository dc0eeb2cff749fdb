#include <reportcore/areapoints.h>

#include <reportgenerator/reflection/reportfields.h>

namespace ReportCore {

using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;

namespace {

bool FindPoints(const ObjectInfo& info, FieldPath& path)
{
    for (const auto& field : info.All()) {
        if (!field->HasObjects())
            continue;
        path.Enter(*field);
        if (HoldsPoints(*field) || (field->Kind() == FieldKind::Object && FindPoints(field->Object(), path)))
            return true;
        path.Leave();
    }
    return false;
}

} // namespace

bool HoldsPoints(const Field& field)
{
    return field.Kind() == FieldKind::List &&
           field.Object().ObjectName() == Coordinate::GetStaticObjectName();
}

FieldPath PathOfPoints(int index)
{
    static const FieldPath found = [] {
        FieldPath path;
        FindPoints(ReportInfo(), path);
        return path;
    }();
    FieldPath path = found;
    path.SetIndex(index);
    return path;
}

bool IsValidPoint(const Coordinate& point)
{
    return point.HasData() && point.IsValidLongitude(point.GetLongitude()) &&
           point.IsValidLatitude(point.GetLatitude());
}

int CountPoints(const ReportBase& report)
{
    const FieldPath path = PathOfPoints();
    const IRGObject* const parent = FindParent(report, path);
    return parent ? path.Last().field->CountIn(*parent) : 0;
}

Points ValidPoints(const IRGObject& parent, const Field& list)
{
    Points points;
    const int count = list.CountIn(parent);
    points.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const auto& point = static_cast<const Coordinate&>(list.ItemIn(parent, i));
        if (IsValidPoint(point))
            points.push_back({point.GetLongitude(), point.GetLatitude(), i});
    }
    return points;
}

Points ValidPoints(const ReportBase& report)
{
    const FieldPath path = PathOfPoints();
    const IRGObject* const parent = FindParent(report, path);
    return parent ? ValidPoints(*parent, *path.Last().field) : Points();
}

} // namespace ReportCore
