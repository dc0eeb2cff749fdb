#ifndef REPORTTOOL_REPORTCHOICE_H
#define REPORTTOOL_REPORTCHOICE_H

#include <reportcore/problem.h>
#include <reportcore/reportfile.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <vector>

namespace ReportTool {

class Console;
class Parser;

/// Which reports of a file a command takes, and whether something may get lost by that.
struct ReportChoice
{
    int number = 0; ///< the one that is asked for, from 1; 0 where none is
    bool isAll = false;
    bool discards = false;

    /// Whether it says that reports are meant, and not the document around them.
    bool IsMade() const { return number > 0 || isAll; }
};

// The options that make the choice

void AddReportNumber(Parser& parser);
void AddAllReports(Parser& parser);
void AddDiscard(Parser& parser);

/// What they say. Throws `UsageError`.
ReportChoice ChoiceOf(const Parser& parser);

/// One of the reports of a file.
struct ChosenReport
{
    ReportCore::ReportFile file;
    int number = 1;
    int count = 1; ///< of the reports in the file, where one or all are asked for

    /// Of a report that is to be written: what of its file would get lost. Where that may happen, it isn't looked for in
    /// what was read whole.
    ReportCore::Problems losses = {};
};

/// The chosen reports with whatever problems they have; the first one where none is asked for. None of a number that isn't
/// there, which is complained about.
std::vector<ChosenReport> ReadChosen(const QString& name, const QByteArray& bytes, const ReportChoice& choice,
                                     Console& console);

/// The same of a file that is to be written as `output`, which may be the file itself. Throws `UnusableFile`.
std::vector<ChosenReport> ReadForWriting(const QString& name, const QString& output,
                                         const ReportChoice& choice, Console& console);

/// Complains about what would get lost. Returns whether that is nothing.
bool IsWhole(const QString& name, const ChosenReport& report, Console& console);

/// What comes of the chosen reports of a file for commands that write good ones.
struct GoodReports
{
    std::vector<ChosenReport> reports;
    bool areAll = false; ///< otherwise what is in the way of the others has been complained about
};

/// Those that have no problems and are whole. Throws as `ReadForWriting`.
GoodReports ReadGoodReports(const QString& name, const QString& output, const ReportChoice& choice,
                            Console& console);

} // namespace ReportTool

#endif
