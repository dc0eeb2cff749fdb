#include <reportviewer/problemlooks.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

namespace ReportViewer {

namespace {

QString Tr(const char* text)
{
    return QCoreApplication::translate("ReportViewer::ProblemLooks", text);
}

} // namespace

QIcon IconOf(bool isWarning)
{
    return QApplication::style()->standardIcon(isWarning ? QStyle::SP_MessageBoxWarning
                                                         : QStyle::SP_MessageBoxCritical);
}

QColor ColourOf(bool isWarning)
{
    constexpr int MIDDLE = 128;
    const bool isDark = QApplication::palette().color(QPalette::Base).lightness() < MIDDLE;
    if (isDark)
        return isWarning ? QColor(250, 190, 80) : QColor(255, 130, 120);
    return isWarning ? QColor(130, 85, 0) : QColor(180, 0, 0);
}

QString TextFirst(const ReportCore::Problem& problem)
{
    QStringList lines{problem.text};
    const QString field = ReportCore::FieldText(problem);
    if (!field.isEmpty())
        lines << field;
    const QString place = ReportCore::PlaceText(problem.place);
    lines << (place.isEmpty() ? problem.name : Tr("%1, %2").arg(problem.name, place));
    return lines.join(QLatin1Char('\n'));
}

QString CountText(int problems, int warnings, int losses)
{
    QStringList parts;
    if (problems > 0)
        parts << (problems == 1 ? Tr("1 problem") : Tr("%1 problems").arg(problems));
    if (warnings > 0)
        parts << (warnings == 1 ? Tr("1 warning") : Tr("%1 warnings").arg(warnings));
    if (losses > 0)
        parts << (losses == 1 ? Tr("1 loss") : Tr("%1 losses").arg(losses));
    return parts.join(QStringLiteral(", "));
}

QString ToolTipOf(const QString& text)
{
    return QStringLiteral("<p style=\"white-space: pre-wrap\">%1</p>").arg(text.toHtmlEscaped());
}

} // namespace ReportViewer
