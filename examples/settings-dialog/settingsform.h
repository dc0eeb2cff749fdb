#ifndef SETTINGS_DIALOG_SETTINGSFORM_H
#define SETTINGS_DIALOG_SETTINGSFORM_H

#include <QtWidgets/QGroupBox>

#include <functional>
#include <vector>

class QLineEdit;

/// Shows the values of one settings object. The field of a value is named "Object.Value" and is empty while
/// the value is not set.
class SettingsForm : public QGroupBox
{
    Q_OBJECT

public:
    struct Row
    {
        QString name;
        std::function<QString()> text;
    };

    SettingsForm(const QString& objectName, const std::vector<Row>& rows, QWidget* parent);

    /// Shows the values that the object has now.
    void Refresh();

private:
    struct Field
    {
        QLineEdit* edit;
        std::function<QString()> text;
    };

    std::vector<Field> m_fields;
};

#endif
