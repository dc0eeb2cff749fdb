#ifndef REPORTVIEWER_QUESTIONS_H
#define REPORTVIEWER_QUESTIONS_H

#include <reportcore/form.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

class QWidget;

namespace ReportViewer {

/// What the window asks its user in boxes of their own. Tests answer in another way.
class Questions
{
public:
    enum class Changes
    {
        Save,
        Discard,
        Cancel
    };

    /// Where to save, and as what.
    struct Target
    {
        QString name;
        ReportCore::FileForm form;
    };

    virtual ~Questions() = default;

    /// What to do with the changes of this file, which would get lost.
    virtual Changes AskAboutChanges(const QString& name) = 0;

    /// What gets lost when a file is replaced.
    enum class Loss
    {
        OtherFile,   ///< all of a file that isn't the one that is shown
        ChangedFile, ///< what somebody else has written to it since it was opened
    };

    /// Whether to write the file all the same.
    virtual bool MayReplace(const QString& name, Loss loss) = 0;

    /// Whether to save although this is lost of what the file said.
    virtual bool MayLose(const QString& name, const QStringList& what) = 0;

    // Nothing, or an empty name, when the user has changed his mind

    virtual QString AskForFile(const QString& folder) = 0;
    virtual QString AskForFolder(const QString& folder) = 0;
    virtual std::optional<Target> AskForTarget(const Target& proposal) = 0;
};

/// Asks in dialogs above the window.
class QuestionDialogs : public Questions
{
public:
    explicit QuestionDialogs(QWidget* window) : m_window(window) {}

    Changes AskAboutChanges(const QString& name) override;
    bool MayReplace(const QString& name, Loss loss) override;
    bool MayLose(const QString& name, const QStringList& what) override;
    QString AskForFile(const QString& folder) override;
    QString AskForFolder(const QString& folder) override;
    std::optional<Target> AskForTarget(const Target& proposal) override;

private:
    QWidget* m_window;
};

} // namespace ReportViewer

#endif
