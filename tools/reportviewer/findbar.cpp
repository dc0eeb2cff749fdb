#include <reportviewer/findbar.h>

#include <reportviewer/bytespane.h>
#include <reportviewer/finding.h>
#include <reportviewer/treepane.h>

#include <reportgenerator/models/reportmodel.h>

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolButton>

namespace ReportViewer {

using REPORTGENERATOR::ReportModel;

FindBar::FindBar(const ReportModel& model, TreePane& tree, BytesPane& bytes)
    : m_model(model), m_tree(tree), m_bytes(bytes), m_title(new QLabel(this)), m_text(new QLineEdit(this)),
      m_outcome(new QLabel(this))
{
    setObjectName(QStringLiteral("findBar"));
    m_text->setObjectName(QStringLiteral("find"));
    m_text->setClearButtonEnabled(true);
    m_outcome->setObjectName(QStringLiteral("findOutcome"));
    m_outcome->setTextFormat(Qt::PlainText);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_title);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_outcome);
    const auto addButton = [&](const QString& text, const QString& name, const auto& function) {
        auto* const button = new QToolButton(this);
        button->setText(text);
        button->setAccessibleName(name);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        connect(button, &QToolButton::clicked, this, function);
        layout->addWidget(button);
    };
    addButton(tr("Previous"), tr("Find the previous one"), [this] { FindNext(-1); });
    addButton(tr("Next"), tr("Find the next one"), [this] { FindNext(1); });
    addButton(tr("Close"), tr("Stop finding"), [this] { Close(); });
    connect(m_text, &QLineEdit::textEdited, m_outcome, &QLabel::clear);
    hide();
}

void FindBar::Open(Where where)
{
    m_where = where;
    Open();
}

void FindBar::Open()
{
    const QString title = m_where == Where::Bytes ? tr("Find in bytes:") : tr("Find in fields:");
    m_title->setText(title);
    m_text->setAccessibleName(title);
    m_outcome->clear();
    show();
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

void FindBar::FindNext(int direction)
{
    if (m_text->text().isEmpty())
        Open();
    else
        m_outcome->setText(Find(direction) ? QString() : tr("Not found"));
}

bool FindBar::Find(int direction)
{
    if (m_where == Where::Bytes)
        return m_bytes.Find(m_text->text(), direction);
    const QModelIndex found = FindField(m_model, m_text->text(), m_tree.currentIndex(), direction);
    if (!found.isValid())
        return false;
    m_tree.setCurrentIndex(found.sibling(found.row(), ReportModel::ValueColumn));
    m_tree.scrollTo(found);
    return true;
}

bool FindBar::HasKeyboard() const
{
    return m_text->hasFocus();
}

void FindBar::keyPressEvent(QKeyEvent* event)
{
    const bool isBackwards = (event->modifiers() & Qt::ShiftModifier) != 0;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        FindNext(isBackwards ? -1 : 1);
        break;
    case Qt::Key_Escape:
        Close();
        break;
    default:
        QFrame::keyPressEvent(event);
    }
}

/// The keyboard goes to where something was found.
void FindBar::Close()
{
    hide();
    Searched().setFocus(Qt::OtherFocusReason);
}

QWidget& FindBar::Searched() const
{
    if (m_where == Where::Bytes)
        return m_bytes;
    return m_tree;
}

} // namespace ReportViewer
