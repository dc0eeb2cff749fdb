#ifndef REPORTTOOL_CONSOLE_H
#define REPORTTOOL_CONSOLE_H

#include <reporttool/textoutput.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace ReportCore {
struct Problem;
}

namespace ReportTool {

/// Where commands write: results to the output, what went wrong to the errors.
class Console
{
public:
    Console(TextOutput& output, TextOutput& errors) : m_output(output), m_errors(errors) {}

    TextOutput& Output() { return m_output; }
    TextOutput& Errors() { return m_errors; }

    /// Tells what is wrong, behind the program's name.
    void Complain(const QString& text);
    void Complain(const QString& file, const QString& text);
    void Complain(const QString& file, const ReportCore::Problem& problem);

    /// What there is to say of a file, in a line of the output.
    void Tell(const QString& file, const QString& text);
    void Tell(const QString& file, const ReportCore::Problem& problem);

    /// A line to the errors as it stands.
    void ErrorLine(const QString& text);

    /// Reads a file. One that cannot be read is complained about, and doesn't keep the next from being read: returns
    /// false, with the reason in `error`.
    bool Read(const QString& name, QByteArray& bytes, QString& error);

private:
    TextOutput& m_output;
    TextOutput& m_errors;
};

/// A file's name, printable, and what there is to say of it.
QString FileLine(const QString& file, const QString& text);

/// The line of a problem: "FILE:12:7: NAME: TEXT (...)".
QString FileLine(const QString& file, const ReportCore::Problem& problem);

} // namespace ReportTool

#endif
