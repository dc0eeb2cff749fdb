#include <reportviewer/changes.h>

#include <reportcore/areapoints.h>

#include <QUndoCommand>

#include <algorithm>

namespace ReportViewer {

using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ReportModel;

namespace {

/// Each change of an area keeps a copy of its points.
constexpr int MOST_POINTS_KEPT = 4'000'000;
constexpr int MOST_CHANGES_KEPT = 1000;
constexpr int FEWEST_CHANGES_KEPT = 20;

class Change : public QUndoCommand
{
public:
    Change(Changes& changes, const QString& text, const ReportBase& before, const ReportBase& after)
        : QUndoCommand(text), m_changes(changes), m_before(before), m_after(after)
    {
    }

    void undo() override { m_changes.Restore(m_before); }

    /// The first time the model has been changed already.
    void redo() override
    {
        if (m_isDone)
            m_changes.Restore(m_after);
        m_isDone = true;
    }

private:
    Changes& m_changes;
    ReportBase m_before;
    ReportBase m_after;
    bool m_isDone = false;
};

} // namespace

Changes::Changes(ReportModel& model, QObject* parent)
    : QObject(parent), m_model(model), m_last(model.Report())
{
    connect(&model, &ReportModel::dataChanged, this,
            [this](const QModelIndex& index) { Name(tr("change of %1"), index); });
    connect(&model, &ReportModel::rowsInserted, this, [this](const QModelIndex& above, int first) {
        Name(tr("adding of %1"), m_model.index(first, 0, above));
    });
    connect(&model, &ReportModel::rowsAboutToBeRemoved, this, [this](const QModelIndex& above, int first) {
        Name(tr("removal of %1"), m_model.index(first, 0, above));
    });
    connect(&model, &ReportModel::ReportChanged, this, &Changes::Keep);
}

void Changes::Forget()
{
    m_stack.clear();
    m_last = m_model.Report();
    m_name.clear();
    const int points = std::max(ReportCore::CountPoints(m_last), 1);
    m_stack.setUndoLimit(std::clamp(MOST_POINTS_KEPT / points, FEWEST_CHANGES_KEPT, MOST_CHANGES_KEPT));
}

void Changes::Restore(const ReportBase& report)
{
    m_isRestoring = true;
    m_model.ChangeReport(report);
    m_isRestoring = false;
    m_last = m_model.Report();
    m_name.clear();
}

/// What is told of first is what was done; the rest follows from it.
void Changes::Name(const QString& what, const QModelIndex& index)
{
    if (m_name.isEmpty())
        m_name = what.arg(m_model.PathOf(index));
}

void Changes::Keep()
{
    if (m_isRestoring)
        return;
    const ReportBase before = m_last;
    m_last = m_model.Report();
    m_stack.push(new Change(*this, m_name, before, m_last));
    m_name.clear();
}

} // namespace ReportViewer
