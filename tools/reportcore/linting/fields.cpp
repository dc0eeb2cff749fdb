#include <reportcore/linting/linting.h>

#include <reportcore/areapoints.h>
#include <reportcore/inspect/sourcemap.h>
#include <reportcore/ring.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/texts.h>

#include <cstddef>
#include <optional>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;

namespace {

/// Bounds are fields that bear these names; what they bound is the field "value" beside them.
void LintBounds(const IRGObject& object, const ObjectInfo& info, const FieldPath& path, Findings& lint)
{
    static const QString MIN = QStringLiteral("min");
    static const QString MAX = QStringLiteral("max");
    static const QString VALUE = QStringLiteral("value");
    const auto number = [&object, &info](const QString& name) {
        const Field* const field = info.FindName(name);
        return field ? field->NumberIn(object) : std::nullopt;
    };
    const auto warn = [&](const QString& about, const char* warning, const QString& words, double left,
                          double right) {
        FieldPath fieldPath = path;
        fieldPath.Enter(*info.FindName(about));
        lint.push_back({{QLatin1String(warning), words.arg(NumberText(left), NumberText(right))}, fieldPath});
    };
    const std::optional<double> min = number(MIN);
    const std::optional<double> max = number(MAX);
    if (!min && !max)
        return;
    const std::optional<double> value = number(VALUE);
    if (min && max && *min > *max) {
        warn(MIN, MIN_ABOVE_MAX, QStringLiteral("min %1 is above max %2"), *min, *max);
        return;
    }
    if (value && min && *value < *min)
        warn(VALUE, OUTSIDE_BOUNDS, QStringLiteral("value %1 is below min %2"), *value, *min);
    if (value && max && *value > *max)
        warn(VALUE, OUTSIDE_BOUNDS, QStringLiteral("value %1 is above max %2"), *value, *max);
}

void LintRing(const IRGObject& parent, const FieldPath& path, Look look, Findings& lint)
{
    const Field& list = *path.Last().field;
    constexpr std::size_t FEWEST = 3;
    if (look == Look::Quick && list.CountIn(parent) > EDGES_OF_QUICK_LOOK)
        return;
    // What is no point has been told by the check.
    const Points ring = RingOf(parent, list);
    if (ring.size() < FEWEST && list.IsSetIn(parent))
        lint.push_back({{QLatin1String(TOO_FEW_POINTS),
                         QStringLiteral("%1 different points surround nothing").arg(ring.size())},
                        path});
    if (const std::optional<EdgePair> pair = FindCrossing(ring)) {
        FieldPath item = path;
        item.SetIndex(pair->first);
        lint.push_back({{QLatin1String(CROSSING_EDGES), QStringLiteral("the edges behind %1 %2 and %3 meet")
                                                            .arg(list.Name())
                                                            .arg(pair->first + 1)
                                                            .arg(pair->second + 1)},
                        item});
    }
}

/// Warnings about an object and what it holds.
void LintFields(const IRGObject& object, const ObjectInfo& info, FieldPath& path, Look look, Findings& lint)
{
    LintBounds(object, info, path, lint);
    for (const auto& field : info.All()) {
        if (!field->HasObjects())
            continue;
        path.Enter(*field);
        if (HoldsPoints(*field))
            LintRing(object, path, look, lint);
        const int count = HoldsPoints(*field) ? 0 : field->CountIn(object);
        for (int i = 0; i < count; ++i) {
            if (field->Kind() == FieldKind::List)
                path.SetIndex(i);
            LintFields(field->ItemIn(object, i), field->Object(), path, look, lint);
        }
        path.Leave();
    }
}

} // namespace

Problems FindFieldLint(const QByteArray& bytes, const ReportFile& file, Look look)
{
    Findings lint;
    FieldPath path;
    LintFields(file.report, ReportInfo(), path, look, lint);
    Locate(lint, bytes, file.form);
    return ProblemsOf(lint);
}

} // namespace ReportCore
