#include <reportviewer/statusline.h>

#include <QtGui/QKeySequence>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolButton>

namespace ReportViewer {

StatusLine::StatusLine(QStatusBar& bar)
    : QObject(&bar), m_bar(bar), m_step(new QLabel), m_progress(new QProgressBar), m_cancel(new QToolButton),
      m_update(new QLabel)
{
    m_progress->setRange(0, 100);
    m_progress->setMaximumWidth(160);
    m_progress->setAccessibleName(tr("How far loading has got"));
    m_cancel->setText(tr("Cancel"));
    m_cancel->setShortcut(QKeySequence(Qt::Key_Escape));
    m_cancel->setFocusPolicy(Qt::TabFocus);
    m_cancel->setObjectName(QStringLiteral("cancel"));
    connect(m_cancel, &QToolButton::clicked, this, &StatusLine::LoadingCancelled);
    bar.addWidget(m_step);
    bar.addWidget(m_progress);
    bar.addWidget(m_cancel);
    m_update->setObjectName(QStringLiteral("update"));
    m_update->setTextFormat(Qt::PlainText);
    // A long reason doesn't make the window wider.
    m_update->setMinimumWidth(1);
    bar.addWidget(m_update);
    m_coordinates = MakeLabel("coordinates", tr("Coordinates under the pointer"));
    m_place = MakeLabel("place", tr("Place in the file"));
    m_file = MakeLabel("file", tr("File"));
    EndProgress();
    EndUpdate();
}

QLabel* StatusLine::MakeLabel(const char* name, const QString& accessibleName)
{
    auto* const label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setAccessibleName(accessibleName);
    label->setTextFormat(Qt::PlainText);
    m_bar.addPermanentWidget(label);
    return label;
}

void StatusLine::ShowProgress(const QString& step, int percent)
{
    m_step->setText(step);
    m_progress->setValue(percent);
    m_step->show();
    m_progress->show();
    m_cancel->show();
}

void StatusLine::EndProgress()
{
    m_step->hide();
    m_progress->hide();
    m_cancel->hide();
}

void StatusLine::ShowUpdate(int percent)
{
    TellUpdate(tr("Updating map, problems and bytes: %1 %").arg(percent));
}

void StatusLine::ShowOutdated(const QString& reason)
{
    TellUpdate(tr("Map, problems and bytes are out of date: %1").arg(reason));
}

void StatusLine::EndUpdate()
{
    m_update->clear();
    m_update->hide();
}

void StatusLine::TellUpdate(const QString& text)
{
    m_update->setText(text);
    m_update->show();
}

void StatusLine::ShowCoordinates(const QString& text)
{
    m_coordinates->setText(text);
}

void StatusLine::ShowPlace(const QString& text)
{
    m_place->setText(text);
}

void StatusLine::ShowFile(const QString& text)
{
    m_file->setText(text);
}

} // namespace ReportViewer
