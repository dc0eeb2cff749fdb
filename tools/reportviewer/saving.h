#ifndef REPORTVIEWER_SAVING_H
#define REPORTVIEWER_SAVING_H

#include <reportviewer/questions.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace REPORTGENERATOR {
class ReportModel;
}

namespace ReportViewer {

class Changes;
class Document;
class NoticeBar;
class TreePane;

/// Saves the report of a window, and asks before anything gets lost. What cannot be done is said in the window.
class Saving
{
public:
    Saving(Document& document, const REPORTGENERATOR::ReportModel& model, Changes& changes, TreePane& tree,
           Questions& questions, NoticeBar& notice);

    // All three take what is being typed as though Enter had been pressed, and go no further when it is refused. A file
    // that is on its way doesn't take the report's place while the user is asked: its loading is cancelled.

    // Both tell whether it is saved.

    /// To its own file and in its own form.
    bool Save();

    /// To a file and in a form that the user names, until it is one that may be written.
    bool SaveAs();

    /// Whether the report may be replaced by another: it has no changes, or they are saved or nobody wants them.
    bool MayLeave();

private:
    bool Begin();
    bool WriteDraft(const ReportCore::FileForm& form);
    bool MayReplace(const QString& name) const;
    bool MayLose() const;
    bool Save(const Questions::Target& target);
    void Refuse(const QString& why);

    Document& m_document;
    const REPORTGENERATOR::ReportModel& m_model;
    Changes& m_changes;
    TreePane& m_tree;
    Questions& m_questions;
    NoticeBar& m_notice;
    QByteArray m_draft;
};

} // namespace ReportViewer

#endif
