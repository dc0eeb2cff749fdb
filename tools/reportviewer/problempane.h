#ifndef REPORTVIEWER_PROBLEMPANE_H
#define REPORTVIEWER_PROBLEMPANE_H

#include <reportviewer/contents.h>

#include <QtWidgets/QWidget>

class QLabel;
class QTreeView;

namespace ReportViewer {

class ProblemModel;

/// The problems of a report. Choosing one by a click or Enter leads to its place.
class ProblemPane : public QWidget
{
    Q_OBJECT

public:
    explicit ProblemPane(QWidget* parent = nullptr);

    void SetContents(const ContentsPointer& contents);

    /// Chooses the next one, or the first behind the last, or the other way round.
    void ChooseNext(int direction);

    /// "2 problems, 1 warning".
    QString Summary() const;

Q_SIGNALS:
    void Chosen(const ReportCore::Problem& problem);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Choose(const QModelIndex& index);
    void FitColumns();

    ProblemModel* m_model;
    int m_chosen = -1;
    QLabel* m_summary;
    QTreeView* m_list;
};

} // namespace ReportViewer

#endif
