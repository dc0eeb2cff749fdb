#include <reportviewer/saving.h>

#include <reportviewer/changes.h>
#include <reportviewer/document.h>
#include <reportviewer/forms.h>
#include <reportviewer/noticebar.h>
#include <reportviewer/treepane.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QStringList>

namespace ReportViewer {

using Loss = Questions::Loss;

Saving::Saving(Document& document, const REPORTGENERATOR::ReportModel& model, Changes& changes,
               TreePane& tree, Questions& questions, NoticeBar& notice)
    : m_document(document), m_model(model), m_changes(changes), m_tree(tree), m_questions(questions),
      m_notice(notice)
{
}

bool Saving::Begin()
{
    m_document.CancelLoading();
    return m_tree.TakeTyped();
}

bool Saving::Save()
{
    if (!Begin())
        return false;
    if (m_document.FileName().isEmpty())
        return SaveAs();
    const Questions::Target target = {m_document.FileName(), m_document.Form()};
    return WriteDraft(target.form) && MayReplace(target.name) && MayLose() && Save(target);
}

bool Saving::SaveAs()
{
    if (!Begin())
        return false;
    Questions::Target proposal = {m_document.FileName(), m_document.Form()};
    if (proposal.name.isEmpty())
        proposal.name = QStringLiteral("report.") + ReportCore::WordFor(proposal.form);
    while (const auto target = m_questions.AskForTarget(proposal)) {
        if (!WriteDraft(target->form))
            return false;
        if (MayReplace(target->name))
            return MayLose() && Save(*target);
        proposal = *target;
    }
    return false;
}

bool Saving::MayLeave()
{
    if (!m_tree.TakeTyped())
        return false;
    if (m_changes.Stack().isClean())
        return true;
    m_document.CancelLoading();
    switch (m_questions.AskAboutChanges(m_document.FileName())) {
    case Questions::Changes::Save:
        return Save();
    case Questions::Changes::Discard:
        return true;
    default:
        return false;
    }
}

/// What a check refuses is said before anything is asked.
bool Saving::WriteDraft(const ReportCore::FileForm& form)
{
    const Document::Draft draft = Document::Write(m_model.Report(), form);
    m_draft = draft.bytes;
    if (draft.refusal.isEmpty())
        return true;
    Refuse(draft.refusal);
    if (!draft.path.isEmpty())
        m_tree.setCurrentIndex(m_model.IndexOf(draft.path, REPORTGENERATOR::ReportModel::ValueColumn));
    return false;
}

bool Saving::MayReplace(const QString& name) const
{
    const QFileInfo info(name);
    if (!info.exists())
        return true;
    if (m_document.FileName().isEmpty() || info != QFileInfo(m_document.FileName()))
        return m_questions.MayReplace(name, Loss::OtherFile);
    return !m_document.HasFileChanged() || m_questions.MayReplace(name, Loss::ChangedFile);
}

bool Saving::MayLose() const
{
    QStringList losses;
    for (const ReportCore::Problem& loss : m_document.Losses(m_model.Report()))
        losses << loss.text;
    return losses.isEmpty() || m_questions.MayLose(m_document.FileName(), losses);
}

bool Saving::Save(const Questions::Target& target)
{
    const QString failure = m_document.Save(m_draft, target.name, target.form);
    if (!failure.isEmpty()) {
        Refuse(failure);
        return false;
    }
    m_changes.Stack().setClean();
    m_notice.Clear();
    return true;
}

void Saving::Refuse(const QString& why)
{
    m_notice.Say(QCoreApplication::translate("ReportViewer::Saving", "Not saved: %1").arg(why));
}

} // namespace ReportViewer
