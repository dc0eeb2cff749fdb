#ifndef REPORTTOOL_COMMANDLINE_H
#define REPORTTOOL_COMMANDLINE_H

#include <reporttool/reportfile.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <variant>

namespace ReportTool {

/// A command line that asks for nothing that there is; the text is for people.
struct UsageError
{
    QString text;
};

struct ShowRequest
{
    QStringList files;
    bool asJson = false;
    bool withAllPoints = false;
    bool withDump = false;
};

struct ConvertRequest
{
    QString input;
    QString output;
    FileForm form;
    int level = 0;
};

struct CheckRequest
{
    QStringList files;
};

/// A text to be printed: help, or the version.
struct TextRequest
{
    QString text;
};

using Request = std::variant<ShowRequest, ConvertRequest, CheckRequest, TextRequest>;

/// What a command line asks for; the program's name comes first. Throws `UsageError`.
Request ParseCommandLine(const QStringList& arguments);

} // namespace ReportTool

#endif
