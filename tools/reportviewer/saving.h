#ifndef REPORTVIEWER_SAVING_H
#define REPORTVIEWER_SAVING_H

#include <reportviewer/questions.h>

#include <QtCore/QString>

namespace REPORTGENERATOR {
class ReportModel;
}

namespace ReportViewer {

class Changes;
class Document;
class NoticeBar;

/// Saves the report of a window, and asks before anything gets lost. What cannot be done is said in the window.
class Saving
{
public:
    Saving(Document& document, const REPORTGENERATOR::ReportModel& model, Changes& changes,
           Questions& questions, NoticeBar& notice);

    // Both tell whether it is saved.

    /// To its own file and in its own form.
    bool Save();

    /// To a file and in a form that the user names.
    bool SaveAs();

    /// Whether the report may be replaced by another: it has no changes, or they are saved or nobody wants them.
    bool MayLeave();

private:
    bool MayWrite(const QString& name) const;
    bool Write(const Questions::Target& target);

    Document& m_document;
    const REPORTGENERATOR::ReportModel& m_model;
    Changes& m_changes;
    Questions& m_questions;
    NoticeBar& m_notice;
};

} // namespace ReportViewer

#endif
