#ifndef REPORTVIEWER_COMMANDLINE_H
#define REPORTVIEWER_COMMANDLINE_H

#include <QtCore/QStringList>

namespace ReportViewer {

/// What the command line asks for.
struct CommandLine
{
    enum class Request
    {
        Open,
        Help,
        Version,
        Wrong
    };

    Request request = Request::Open;

    /// Files and folders.
    QStringList names;

    /// Where to put a picture of the window when the file is there; then the program ends.
    QString picture;

    /// The field that is chosen then.
    QString field;

    /// Whether to go to the first problem.
    bool showsProblem = false;

    /// The help, or what is wrong.
    QString text;
};

CommandLine ParseCommandLine(const QStringList& arguments);

} // namespace ReportViewer

#endif
