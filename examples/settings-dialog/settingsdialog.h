#ifndef SETTINGS_DIALOG_SETTINGSDIALOG_H
#define SETTINGS_DIALOG_SETTINGSDIALOG_H

#include <reportgenerator/reportbase/listlogger.h>
#include <reportgenerator/reportbase/settingsnotifier.h>

#include <QtWidgets/QDialog>

#include <memory>
#include <vector>

class QKeyEvent;
class QPlainTextEdit;
class QPushButton;
class SettingsForm;
class TakingSettings;

/// Hands XML fragments to the settings objects of a program and shows what became of them.
///
/// "Apply" gives the text of the fragment pane to the notifier, and the forms follow its signals. Applying
/// resets the objects that the fragment leaves out; a message says which, what in the fragment nobody took,
/// and which values an object did not keep as they were given. A fragment that an object cannot read, or that
/// is malformed, is told and stays where it is; the last good one is kept, and "Restore last good" brings it
/// back into pane and objects. The replaced text can be had back by the pane's undo. The Escape key does not
/// close the dialog.
///
/// The widgets are named "fragment", "apply", "restore", "message" and "log".
class SettingsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit SettingsDialog(QWidget* parent = nullptr);

    /// Puts a text into the fragment pane without applying it.
    void SetFragment(const QString& fragment);

    /// The last fragment that was applied without a problem, null when there has been none.
    const QString& GetLastGoodFragment() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// A settings object, by its id, and the form that shows it.
    struct Entry
    {
        long long id = 0;
        REPORTGENERATOR::IRGObject* object = nullptr;
        TakingSettings* taking = nullptr;
        SettingsForm* form = nullptr;
        bool isTaken = false;
    };

    void RegisterSettings();
    template <class Object>
    Object* Register(long long id);
    void CreateWidgets();

    void Apply();
    void Restore();
    void ShowSettings(REPORTGENERATOR::IRGObject* object);
    void MarkTaken(REPORTGENERATOR::RegisterCenter* center);

    QString GetFragment() const;
    QStringList Distribute(const QString& fragment);
    QStringList ObjectNames(bool isTaken) const;
    QStringList ChangedValues(const QString& fragment) const;
    void ShowMessage(const QStringList& problems, const QStringList& remarks);
    void ShowLog();

    std::shared_ptr<REPORTGENERATOR::ListLogger> m_logger;
    REPORTGENERATOR::SettingsNotifier m_notifier;
    std::vector<Entry> m_entries;
    QString m_lastGoodFragment;

    QPlainTextEdit* m_fragment;
    QPushButton* m_apply;
    QPushButton* m_restore;
    QPlainTextEdit* m_message;
    QPlainTextEdit* m_log;
};

#endif
