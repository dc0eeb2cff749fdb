#include <reporttool/console.h>

#include <reportcore/files.h>
#include <reportcore/problem.h>
#include <reportcore/texts.h>

namespace ReportTool {

using ReportCore::Printable;
using ReportCore::Problem;

void Console::Complain(const QString& text)
{
    // What came before stands before it on a terminal, too.
    m_output.Flush();
    m_errors.Line(QStringLiteral("reporttool: ") + text);
}

void Console::Complain(const QString& file, const QString& text)
{
    Complain(FileLine(file, text));
}

void Console::Complain(const QString& file, const Problem& problem)
{
    Complain(FileLine(file, problem));
}

void Console::ErrorLine(const QString& text)
{
    m_errors.Line(text);
}

bool Console::Read(const QString& name, QByteArray& bytes, QString& error)
{
    try {
        bytes = ReportCore::ReadInput(name);
        return true;
    } catch (const ReportCore::UnusableFile& unusable) {
        error = unusable.text;
    }
    Complain(name, error);
    return false;
}

QString FileLine(const QString& file, const QString& text)
{
    return QStringLiteral("%1: %2").arg(Printable(file), Printable(text));
}

QString FileLine(const QString& file, const Problem& problem)
{
    const QString separator = problem.place.IsKnown() ? QStringLiteral(":") : QStringLiteral(": ");
    return Printable(file) + separator + ReportCore::ProblemLine(problem);
}

} // namespace ReportTool
