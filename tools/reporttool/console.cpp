#include <reporttool/console.h>

#include <reportcore/files.h>
#include <reportcore/problem.h>

#include <reportgenerator/reflection/texts.h>

namespace ReportTool {

using ReportCore::Printable;
using ReportCore::Problem;

namespace {

// What stands behind the name of a file in a line.

QString Behind(const QString& text)
{
    return QStringLiteral(": ") + Printable(text);
}

QString Behind(const Problem& problem)
{
    const QString separator = problem.place.IsKnown() ? QStringLiteral(":") : QStringLiteral(": ");
    return separator + ReportCore::ProblemLine(problem);
}

} // namespace

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

void Console::Tell(const QString& file, const QString& text)
{
    m_output.FileNameInLine(file);
    m_output.Line(Behind(text));
}

void Console::Tell(const QString& file, const Problem& problem)
{
    m_output.FileNameInLine(file);
    m_output.Line(Behind(problem));
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
    return Printable(file) + Behind(text);
}

QString FileLine(const QString& file, const Problem& problem)
{
    return Printable(file) + Behind(problem);
}

} // namespace ReportTool
