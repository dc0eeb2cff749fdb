#include "settingsform.h"

#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLineEdit>

#include <limits>

SettingsForm::SettingsForm(const QString& objectName, const std::vector<Row>& rows, QWidget* parent)
    : QGroupBox(objectName, parent)
{
    setObjectName(objectName);
    auto* layout = new QFormLayout;
    setLayout(layout);
    for (const Row& row : rows) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(objectName + QLatin1Char('.') + row.name);
        edit->setReadOnly(true);
        // The length that a user may type is no measure for what the object holds.
        edit->setMaxLength(std::numeric_limits<int>::max());
        edit->setPlaceholderText(tr("not set"));
        layout->addRow(row.name, edit);
        m_fields.push_back({edit, row.text});
    }
    Refresh();
}

void SettingsForm::Refresh()
{
    for (const Field& field : m_fields) {
        field.edit->setText(field.text());
        field.edit->setCursorPosition(0);
    }
}
