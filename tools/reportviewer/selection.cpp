#include <reportviewer/selection.h>

#include <reportviewer/bytespane.h>
#include <reportviewer/mapview.h>
#include <reportviewer/paths.h>
#include <reportviewer/problempane.h>
#include <reportviewer/treepane.h>

#include <reportcore/areapoints.h>

namespace ReportViewer {

using ReportCore::FieldPath;

namespace {

/// Of the point to which the field belongs; -1 for a field that belongs to none.
int PointOf(const FieldPath& path)
{
    const FieldPath points = ReportCore::PathOfPoints();
    const int depth = points.Size() - 1;
    if (path.Size() <= depth || path.At(depth).field != points.Last().field)
        return FieldPath::WHOLE;
    return path.At(depth).index;
}

} // namespace

Selection::Selection(TreePane& tree, MapView& map, BytesPane& bytes, ProblemPane& problems, QObject* parent)
    : QObject(parent), m_tree(tree), m_map(map), m_bytes(bytes)
{
    connect(&tree, &TreePane::PathChosen, this, [this](const QString& path) {
        ShowOnMap(path);
        ShowInBytes(path);
    });
    connect(&map, &MapView::PointChosen, this, [this](int index) {
        const QString path = ReportCore::PathOfPoints(index).Text();
        m_tree.ShowPath(path);
        ShowInBytes(path);
    });
    connect(&bytes, &BytesPane::FieldChosen, this, [this](const QString& path) {
        m_tree.ShowPath(path);
        ShowOnMap(path);
    });
    connect(&bytes, &BytesPane::FieldActivated, &tree, [&tree] { tree.setFocus(Qt::OtherFocusReason); });
    connect(&problems, &ProblemPane::Chosen, this, &Selection::ShowProblem);
}

void Selection::Renew()
{
    const QString path = m_tree.CurrentPath();
    ShowOnMap(path);
    if (!path.isEmpty())
        ShowInBytes(path);
}

void Selection::ShowProblem(const ReportCore::Problem& problem)
{
    m_tree.ShowPath(problem.path);
    ShowOnMap(problem.path);
    if (problem.place.IsKnown())
        m_bytes.ShowPlace(problem.place);
    else if (!problem.path.isEmpty())
        ShowInBytes(problem.path);
}

void Selection::ShowOnMap(const QString& path)
{
    m_map.MarkPoint(PointOf(ParsedPath(path)));
}

void Selection::ShowInBytes(const QString& path)
{
    m_bytes.ShowField(ParsedPath(path));
}

} // namespace ReportViewer
