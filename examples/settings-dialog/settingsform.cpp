#include "settingsform.h"

#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLineEdit>

SettingsForm::SettingsForm(const QString& objectName, const std::vector<Row>& rows, QWidget* parent)
    : QGroupBox(objectName, parent)
{
    setObjectName(objectName);
    auto* layout = new QFormLayout(this);
    for (const Row& row : rows) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(objectName + QLatin1Char('.') + row.name);
        edit->setReadOnly(true);
        edit->setPlaceholderText(tr("not set"));
        layout->addRow(row.name, edit);
        m_fields.push_back({edit, row.text});
    }
    Refresh();
}

void SettingsForm::Refresh()
{
    for (const Field& field : m_fields)
        field.edit->setText(field.text());
}
