#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/parser.h>

#include <reportcore/reportfile.h>

#include <algorithm>

namespace ReportTool {

namespace {

constexpr char DESCRIPTION[] =
    "Tells what is wrong with reports, one line for each problem: file, place, name of the error,\n"
    "text, and the field with the value that was found. The place is line and column in XML, and\n"
    "an offset in binary forms. Prints nothing for a good report.\n"
    "\n"
    "Exit codes: 0 all reports are good, 1 a report is invalid, 2 a file cannot be read or the\n"
    "command line is wrong.";

int CheckFile(const QString& name, Console& console)
{
    QByteArray bytes;
    QString error;
    if (!console.Read(name, bytes, error))
        return EXIT_UNUSABLE;
    const ReportCore::ReportFile file = ReportCore::ReadReport(bytes);
    for (const ReportCore::Problem& problem : file.problems)
        console.Output().Line(FileLine(name, problem));
    return file.IsGood() ? EXIT_GOOD : EXIT_INVALID;
}

int Check(const QStringList& arguments, Console& console)
{
    Parser parser(DESCRIPTION, "check");
    parser.AddFiles();
    parser.ParseOrThrow(arguments);
    if (parser.AsksForHelp()) {
        console.Output().Text(parser.helpText());
        return EXIT_GOOD;
    }
    int exitCode = EXIT_GOOD;
    for (const QString& name : parser.Files())
        exitCode = std::max(exitCode, CheckFile(name, console));
    return exitCode;
}

} // namespace

const Command CHECK_COMMAND = {"check", "FILE...", "tell what is wrong with reports", Check};

} // namespace ReportTool
