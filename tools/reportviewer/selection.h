#ifndef REPORTVIEWER_SELECTION_H
#define REPORTVIEWER_SELECTION_H

#include <reportcore/problem.h>

#include <QtCore/QObject>

namespace ReportViewer {

class BytesPane;
class MapView;
class ProblemPane;
class TreePane;

/// Has all parts of a window show the field that is chosen in one of them.
class Selection : public QObject
{
    Q_OBJECT

public:
    Selection(TreePane& tree, MapView& map, BytesPane& bytes, ProblemPane& problems,
              QObject* parent = nullptr);

    /// Shows what is chosen in the tree once more, since there are other bytes.
    void Renew();

private:
    void ShowProblem(const ReportCore::Problem& problem);
    void ShowOnMap(const QString& path);
    void ShowInBytes(const QString& path);

    TreePane& m_tree;
    MapView& m_map;
    BytesPane& m_bytes;
};

} // namespace ReportViewer

#endif
