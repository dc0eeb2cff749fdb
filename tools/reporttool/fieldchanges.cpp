#include <reporttool/fieldchanges.h>

#include <reporttool/console.h>
#include <reporttool/parser.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/texts.h>

#include <reportgenerator/reportbase/reportexception.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <algorithm>
#include <cmath>

namespace ReportTool {

using ReportCore::FieldPath;
using REPORTGENERATOR::ReportBase;

namespace {

FieldPath PathOf(const QString& text)
{
    try {
        return FieldPath::Parse(ReportCore::ReportInfo(), text);
    } catch (const ReportCore::PathError& error) {
        throw UsageError{error.text};
    }
}

/// In the order in which they can be unset by these paths, each of them once. What is unset within an item goes before
/// items are removed; of several items the last one goes first, so that the others keep their numbers.
std::vector<FieldPath> InOrderOfUnsetting(const std::vector<FieldPath>& paths)
{
    std::vector<FieldPath> ordered;
    for (const FieldPath& path : paths) {
        if (std::find(ordered.begin(), ordered.end(), path) == ordered.end())
            ordered.push_back(path);
    }
    const auto items = std::stable_partition(ordered.begin(), ordered.end(),
                                             [](const FieldPath& path) { return !path.IsItem(); });
    std::stable_sort(items, ordered.end(), [](const FieldPath& left, const FieldPath& right) {
        return left.Last().index > right.Last().index;
    });
    return ordered;
}

/// What isn't set can be unset all the same; but whoever names an item means one that is there.
void RequireItems(const ReportBase& report, const FieldPath& path)
{
    FieldPath way;
    for (int i = 0; i < path.Size(); ++i) {
        way.Enter(*path.At(i).field, path.At(i).index);
        if (way.IsItem() && !ReportCore::IsSet(report, way))
            throw RGException(QStringLiteral("there is no %1").arg(path.Text()));
    }
}

} // namespace

FieldChanges::FieldChanges(const QStringList& assignments, const QStringList& unset)
{
    for (const QString& argument : assignments)
        m_assignments.push_back(AssignmentOf(argument));
    std::vector<FieldPath> paths;
    for (const QString& path : unset)
        paths.push_back(PathOf(path));
    m_unset = InOrderOfUnsetting(paths);
    if (m_assignments.empty() && m_unset.empty())
        throw UsageError{QStringLiteral("there is nothing to set")};
}

FieldChanges::Assignment FieldChanges::AssignmentOf(const QString& argument)
{
    const auto sign = argument.indexOf(QLatin1Char('='));
    if (sign < 0)
        throw UsageError{QStringLiteral("'%1' is no assignment: PATH=VALUE").arg(argument)};
    const FieldPath path = PathOf(argument.left(sign));
    const QString text = argument.mid(sign + 1);
    const ReportCore::Field& field = *path.Last().field;
    try {
        const QVariant value = field.ValueOf(text);
        if (value.userType() == QMetaType::Double && !std::isfinite(value.toDouble()))
            throw UsageError{QStringLiteral("%1: %2 is a number, not %3")
                                 .arg(path.Text(), field.Name(), ReportCore::Quoted(text))};
        return {path, value};
    } catch (const ReportException& refused) {
        throw UsageError{QStringLiteral("%1: %2").arg(path.Text(), refused.GetErrorText())};
    }
}

bool FieldChanges::Mend(const ReportCore::Problem& problem) const
{
    if (problem.path.isEmpty() || problem.Is(ReportCore::LENGTH_MISMATCH))
        return false;
    const FieldPath path = FieldPath::Parse(ReportCore::ReportInfo(), problem.path);
    return std::any_of(m_assignments.begin(), m_assignments.end(),
                       [&path](const Assignment& assignment) { return assignment.path == path; }) ||
           std::any_of(m_unset.begin(), m_unset.end(),
                       [&path](const FieldPath& unset) { return unset.IsAbove(path); });
}

bool FieldChanges::MakeIn(ReportBase& report, const QString& file, Console& console) const
{
    QString path;
    try {
        for (const Assignment& assignment : m_assignments) {
            path = assignment.path.Text();
            ReportCore::SetValue(report, assignment.path, assignment.value);
        }
        for (const FieldPath& unset : m_unset) {
            path = unset.Text();
            RequireItems(report, unset);
        }
        for (const FieldPath& unset : m_unset) {
            path = unset.Text();
            ReportCore::Unset(report, unset);
        }
    } catch (const ReportException& refused) {
        console.Complain(
            file, QStringLiteral("%1: %2: %3").arg(path, refused.GetErrorName(), refused.GetErrorText()));
        return false;
    }
    return true;
}

} // namespace ReportTool
