#ifndef REPORTVIEWER_CHANGES_H
#define REPORTVIEWER_CHANGES_H

#include <reportgenerator/models/reportmodel.h>

#include <QUndoStack>
#include <QtCore/QObject>

namespace ReportViewer {

/// The changes that are made to the report of a model, so that they can be undone.
class Changes : public QObject
{
    Q_OBJECT

public:
    explicit Changes(REPORTGENERATOR::ReportModel& model, QObject* parent = nullptr);

    QUndoStack& Stack() { return m_stack; }

    /// The model shows another report, to which nothing has been done yet.
    void Forget();

    /// Puts a former or later report into the model.
    void Restore(const REPORTGENERATOR::ReportBase& report);

private:
    void Name(const QString& what, const QModelIndex& index);
    void Keep();

    REPORTGENERATOR::ReportModel& m_model;
    QUndoStack m_stack;
    REPORTGENERATOR::ReportBase m_last;
    QString m_name;
    bool m_isRestoring = false;
};

} // namespace ReportViewer

#endif
