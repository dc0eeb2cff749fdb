#include <reportviewer/outline.h>

#include <reportviewer/paths.h>

#include <reportcore/reportfields.h>

#include <algorithm>
#include <iterator>

namespace ReportViewer {

using ReportCore::Field;
using ReportCore::FieldPath;
using ReportCore::ObjectInfo;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;

namespace {

/// Whether all values of a point are set and in range.
bool IsWhole(const IRGObject& point, const ObjectInfo& info)
{
    return std::all_of(info.All().begin(), info.All().end(), [&point](const auto& field) {
        return !field->Facts().isMandatory || (field->IsSetIn(point) && field->IsGoodIn(point));
    });
}

} // namespace

Outline OutlineOf(const ReportBase& report)
{
    Outline outline;
    const FieldPath path = PathOfPoints();
    const Field& list = *path.Last().field;
    const IRGObject* const holder = ReportCore::FindHolder(report, path);
    const int count = holder ? list.CountIn(*holder) : 0;
    outline.items.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const auto& point = static_cast<const Coordinate&>(list.ItemIn(*holder, i));
        if (IsWhole(point, list.Object()))
            outline.items.push_back({{point.GetLongitude(), point.GetLatitude()}, i});
    }
    ReportCore::Points points;
    points.reserve(outline.items.size());
    std::transform(outline.items.begin(), outline.items.end(), std::back_inserter(points),
                   [](const Outline::Item& item) { return item.point; });
    outline.geometry = ReportCore::UncutGeometryOf(points);
    return outline;
}

} // namespace ReportViewer
