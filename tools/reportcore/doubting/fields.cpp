#include <reportcore/doubting/doubting.h>

#include <reportcore/areapoints.h>
#include <reportcore/ring.h>
#include <reportcore/spots.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/texts.h>

#include <cstddef>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;

namespace {

/// A finding about a field, whose place is looked for afterwards.
struct FieldDoubt
{
    FieldPath path;
    const char* name;
    QString text;
};

using FieldDoubts = std::vector<FieldDoubt>;

/// Bounds are fields that bear these names; what they bound is the field "value" beside them.
void DoubtBounds(const IRGObject& object, const ObjectInfo& info, const FieldPath& path, FieldDoubts& doubts)
{
    const auto number = [&object, &info](const char* name) {
        const Field* const field = info.FindName(QLatin1String(name));
        return field && field->Kind() == FieldKind::Number ? field->ValueIn(object) : QVariant();
    };
    const auto at = [&path, &info](const char* name) {
        FieldPath fieldPath = path;
        fieldPath.Enter(*info.FindName(QLatin1String(name)));
        return fieldPath;
    };
    const QVariant min = number("min");
    const QVariant max = number("max");
    const QVariant value = number("value");
    if (min.isValid() && max.isValid() && min.toDouble() > max.toDouble()) {
        doubts.push_back({at("min"), MIN_ABOVE_MAX,
                          QStringLiteral("min %1 is above max %2")
                              .arg(NumberText(min.toDouble()), NumberText(max.toDouble()))});
        return;
    }
    if (value.isValid() && min.isValid() && value.toDouble() < min.toDouble())
        doubts.push_back({at("value"), OUTSIDE_BOUNDS,
                          QStringLiteral("value %1 is below min %2")
                              .arg(NumberText(value.toDouble()), NumberText(min.toDouble()))});
    if (value.isValid() && max.isValid() && value.toDouble() > max.toDouble())
        doubts.push_back({at("value"), OUTSIDE_BOUNDS,
                          QStringLiteral("value %1 is above max %2")
                              .arg(NumberText(value.toDouble()), NumberText(max.toDouble()))});
}

void DoubtRing(const IRGObject& holder, const FieldPath& path, Look look, FieldDoubts& doubts)
{
    const Field& list = *path.Last().field;
    constexpr std::size_t FEWEST = 3;
    if (look == Look::Quick && list.CountIn(holder) > EDGES_OF_QUICK_LOOK)
        return;
    // What is no point has been told by the check.
    const Points ring = RingOf(holder, list);
    if (ring.size() < FEWEST && list.IsSetIn(holder))
        doubts.push_back(
            {path, TOO_FEW_POINTS, QStringLiteral("%1 different points surround nothing").arg(ring.size())});
    if (const std::optional<EdgePair> pair = FindCrossing(ring)) {
        FieldPath item = path;
        item.SetIndex(pair->first);
        doubts.push_back({item, CROSSING_EDGES,
                          QStringLiteral("the edges behind %1 %2 and %3 meet")
                              .arg(list.Name())
                              .arg(pair->first + 1)
                              .arg(pair->second + 1)});
    }
}

/// Doubts about an object and what it holds.
void DoubtFields(const IRGObject& object, const ObjectInfo& info, FieldPath& path, Look look,
                 FieldDoubts& doubts)
{
    DoubtBounds(object, info, path, doubts);
    for (const auto& field : info.All()) {
        if (!field->HasObjects())
            continue;
        path.Enter(*field);
        if (HoldsPoints(*field))
            DoubtRing(object, path, look, doubts);
        const int count = HoldsPoints(*field) ? 0 : field->CountIn(object);
        for (int i = 0; i < count; ++i) {
            if (field->Kind() == FieldKind::List)
                path.SetIndex(i);
            DoubtFields(field->ItemIn(object, i), field->Object(), path, look, doubts);
        }
        path.Leave();
    }
}

} // namespace

Problems FindFieldDoubts(const QByteArray& bytes, const ReportFile& file, Look look)
{
    FieldDoubts doubts;
    FieldPath path;
    DoubtFields(file.report, ReportInfo(), path, look, doubts);
    if (doubts.empty())
        return {};
    Spots spots;
    for (const FieldDoubt& doubt : doubts)
        spots.WantPath(doubt.path);
    if (file.form.IsBinary())
        spots.SearchBinary(bytes, file.form.isBinaryFile);
    else
        spots.SearchXml(bytes);
    Problems problems;
    for (const FieldDoubt& doubt : doubts) {
        Problem problem = {QLatin1String(doubt.name), doubt.text, {}, doubt.path.Text()};
        if (const Spot* const spot = spots.FindNearest(doubt.path)) {
            problem.place = spot->place;
            problem.value = spot->path == doubt.path ? spot->value : QString();
        }
        problems.push_back(problem);
    }
    return problems;
}

} // namespace ReportCore
