#include <reportcore/doubting/doubting.h>

#include <reportcore/areapoints.h>
#include <reportcore/ring.h>
#include <reportcore/spots.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/texts.h>

#include <cstddef>
#include <optional>

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
    static const QString MIN = QStringLiteral("min");
    static const QString MAX = QStringLiteral("max");
    static const QString VALUE = QStringLiteral("value");
    const auto number = [&object, &info](const QString& name) {
        const Field* const field = info.FindName(name);
        return field ? field->NumberIn(object) : std::nullopt;
    };
    const auto at = [&path, &info](const QString& name) {
        FieldPath fieldPath = path;
        fieldPath.Enter(*info.FindName(name));
        return fieldPath;
    };
    const std::optional<double> min = number(MIN);
    const std::optional<double> max = number(MAX);
    if (!min && !max)
        return;
    const std::optional<double> value = number(VALUE);
    if (min && max && *min > *max) {
        doubts.push_back({at(MIN), MIN_ABOVE_MAX,
                          QStringLiteral("min %1 is above max %2").arg(NumberText(*min), NumberText(*max))});
        return;
    }
    if (value && min && *value < *min)
        doubts.push_back(
            {at(VALUE), OUTSIDE_BOUNDS,
             QStringLiteral("value %1 is below min %2").arg(NumberText(*value), NumberText(*min))});
    if (value && max && *value > *max)
        doubts.push_back(
            {at(VALUE), OUTSIDE_BOUNDS,
             QStringLiteral("value %1 is above max %2").arg(NumberText(*value), NumberText(*max))});
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
