#include <reportviewer/questions.h>

#include <reportviewer/forms.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>

namespace ReportViewer {

namespace {

QString Tr(const char* text)
{
    return QCoreApplication::translate("ReportViewer::QuestionDialogs", text);
}

QString TextOf(Questions::Loss loss)
{
    return loss == Questions::Loss::OtherFile
               ? Tr("%1 is there already. Replace it?")
               : Tr("Another program has changed %1 since it was opened. Replace it?");
}

/// Shows a question as it stands: names of files may look like markup.
QMessageBox::StandardButton Ask(QWidget* window, QMessageBox::Icon icon, const QString& title,
                                const QString& text, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton usual)
{
    QMessageBox box(icon, title, text, buttons, window);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(usual);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

Questions::Changes QuestionDialogs::AskAboutChanges(const QString& name)
{
    const QString subject = name.isEmpty() ? Tr("the new report") : name;
    switch (Ask(m_window, QMessageBox::Warning, Tr("Changes"), Tr("Save the changes of %1?").arg(subject),
                QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save)) {
    case QMessageBox::Save:
        return Changes::Save;
    case QMessageBox::Discard:
        return Changes::Discard;
    default:
        return Changes::Cancel;
    }
}

bool QuestionDialogs::MayReplace(const QString& name, Loss loss)
{
    return Ask(m_window, QMessageBox::Question, Tr("Save"), TextOf(loss).arg(name),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

bool QuestionDialogs::MayLose(const QString& name, const QStringList& what)
{
    constexpr int MOST_LINES = 10;
    QStringList lines;
    for (const QString& each : what.mid(0, MOST_LINES))
        lines << QStringLiteral("- ") + each;
    if (what.size() > MOST_LINES)
        lines << Tr("and %1 more").arg(what.size() - MOST_LINES);
    const QString text = Tr("The report has not all that %1 says. Saving loses:\n\n%2\n\nSave it?");
    return Ask(m_window, QMessageBox::Warning, Tr("Save"), text.arg(name, lines.join(QLatin1Char('\n'))),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

QString QuestionDialogs::AskForFile(const QString& folder)
{
    return QFileDialog::getOpenFileName(m_window, Tr("Open Report"), folder, Tr("All files (*)"));
}

QString QuestionDialogs::AskForFolder(const QString& folder)
{
    return QFileDialog::getExistingDirectory(m_window, Tr("Open Folder"), folder);
}

std::optional<Questions::Target> QuestionDialogs::AskForTarget(const Target& proposal)
{
    QFileDialog dialog(m_window, Tr("Save Report"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // That is asked for every target, whether a dialog has named it or not.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    QStringList filters;
    for (const NamedForm& form : AllForms())
        filters << FilterOf(form);
    dialog.setNameFilters(filters);
    if (const NamedForm* const form = FindForm(proposal.form)) {
        dialog.selectNameFilter(FilterOf(*form));
        dialog.setDefaultSuffix(ReportCore::WordFor(form->form));
    }
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog, &filters](const QString& filter) {
                         const int index = static_cast<int>(filters.indexOf(filter));
                         if (index >= 0)
                             dialog.setDefaultSuffix(
                                 ReportCore::WordFor(AllForms()[static_cast<std::size_t>(index)].form));
                     });
    if (!proposal.name.isEmpty()) {
        dialog.setDirectory(QFileInfo(proposal.name).absoluteDir());
        dialog.selectFile(QFileInfo(proposal.name).fileName());
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const int index = static_cast<int>(filters.indexOf(dialog.selectedNameFilter()));
    if (index < 0)
        return std::nullopt;
    return Target{dialog.selectedFiles().constFirst(), AllForms()[static_cast<std::size_t>(index)].form};
}

} // namespace ReportViewer
