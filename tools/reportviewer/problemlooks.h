#ifndef REPORTVIEWER_PROBLEMLOOKS_H
#define REPORTVIEWER_PROBLEMLOOKS_H

#include <reportcore/problem.h>

#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QIcon>

namespace ReportViewer {

// How problems and warnings look, wherever they are shown.

QIcon IconOf(bool isWarning);

/// For texts on the desktop's usual background, be it light or dark.
QColor ColourOf(bool isWarning);

/// What is wrong, then in which field and where.
QString TextFirst(const ReportCore::Problem& problem);

/// "2 problems, 1 warning, 3 losses"; empty when there are none.
QString CountText(int problems, int warnings, int losses = 0);

/// Text for a tool tip, as it is: what a file has may look like markup, and what is no markup isn't broken into lines.
QString ToolTipOf(const QString& text);

} // namespace ReportViewer

#endif
