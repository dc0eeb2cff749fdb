#ifndef REPORTVIEWER_TREEPANE_H
#define REPORTVIEWER_TREEPANE_H

#include <reportgenerator/models/reportmodel.h>

#include <QtWidgets/QTreeView>

#include <functional>

class QAction;

namespace ReportViewer {

/// The report as a tree whose values are edited.
class TreePane : public QTreeView
{
    Q_OBJECT

public:
    explicit TreePane(REPORTGENERATOR::ReportModel& model, QWidget* parent = nullptr);

    /// Opens what has few rows below it, since the model shows another report.
    void ExpandAll();

    /// Goes to the row of the path, or to that of what is around it, without telling anybody.
    void ShowPath(const QString& path);
    QString CurrentPath() const;

    /// Takes what is being typed into a value. False when it is refused; then it can be typed on.
    bool TakeTyped();

    // What can be done with the current row, or with those that are selected

    QAction* EditAction() const { return m_edit; }
    QAction* UnsetAction() const { return m_unset; }
    QAction* AddAction() const { return m_add; }
    QAction* CopyPathAction() const { return m_copyPath; }

Q_SIGNALS:
    /// The user has gone to the row.
    void PathChosen(const QString& path);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    QAction* MakeAction(const QString& text, const QKeySequence& shortcut,
                        const std::function<void()>& function);
    void Edit();
    QModelIndexList ChosenRows() const;
    void Unset();
    void UnsetAll(const QModelIndexList& rows);
    void Add();
    void CopyPath() const;
    void UpdateActions();
    bool IsList(const QModelIndex& index) const;
    bool IsItem(const QModelIndex& index) const;

    REPORTGENERATOR::ReportModel& m_model;
    QAction* m_edit;
    QAction* m_add;
    QAction* m_unset;
    QAction* m_copyPath;
    bool m_isQuiet = false;
};

} // namespace ReportViewer

#endif
