#include <reporttool/reportchoice.h>

#include <reporttool/console.h>
#include <reporttool/parser.h>

#include <reportcore/files.h>
#include <reportcore/lint.h>
#include <reportcore/losses.h>
#include <reportcore/reportdocument.h>

#include <algorithm>
#include <cstddef>

namespace ReportTool {

using ReportCore::Problem;
using ReportCore::Problems;
using ReportCore::ReportDocument;

namespace {

/// Nobody reads on behind so many losses of one file.
constexpr std::size_t LOSSES_SHOWN = 10;

/// Finds out what is in a document only where somebody asks for it: most files hold one report.
template <typename Losses>
std::vector<ChosenReport> Read(const QString& name, const QByteArray& bytes, const ReportChoice& choice,
                               Console& console, const Losses& lossesOf)
{
    std::vector<ChosenReport> reports;
    if (!choice.IsMade()) {
        reports.push_back({ReportCore::ReadReport(bytes)});
        reports.back().losses = lossesOf(nullptr, reports.back());
        return reports;
    }
    const ReportDocument document(bytes);
    const int count = document.Count();
    if (choice.number > count) {
        console.Complain(
            name, QStringLiteral("there is no report %1, the last one is %2").arg(choice.number).arg(count));
        return reports;
    }
    const int first = choice.isAll ? 1 : choice.number;
    const int last = choice.isAll ? count : choice.number;
    for (int number = first; number <= last; ++number) {
        reports.push_back({document.Read(number - 1), number, count});
        reports.back().losses = lossesOf(&document, reports.back());
    }
    return reports;
}

Problems LossesOf(const QByteArray& bytes, const ReportDocument* document, const ChosenReport& report,
                  bool isReplaced)
{
    if (!document)
        return ReportCore::FindLosses(bytes, report.file);
    const int index = report.number - 1;
    Problems losses = document->LossesOf(index, report.file);
    // Whoever asks for a report has not asked for the rest of the document; but it is still there unless it is replaced.
    const Problems beside = isReplaced ? document->LossesBeside(index) : Problems();
    losses.insert(losses.begin(), beside.begin(), beside.end());
    return losses;
}

} // namespace

void AddReportNumber(Parser& parser)
{
    parser.AddOption("report", "Of a document with several reports take this one, counted from 1.", "number");
}

void AddAllReports(Parser& parser)
{
    parser.AddSwitch("all-reports", "Of a document with several reports take each by itself.");
}

void AddDiscard(Parser& parser)
{
    parser.AddSwitch("discard",
                     "Write also what lacks something of its file, which is refused without this.");
}

ReportChoice ChoiceOf(const Parser& parser)
{
    ReportChoice choice;
    choice.isAll = parser.Offers("all-reports") && parser.Has("all-reports");
    choice.discards = parser.Offers("discard") && parser.Has("discard");
    if (!parser.Offers("report") || !parser.Has("report"))
        return choice;
    bool isNumber = false;
    choice.number = parser.Value("report").toInt(&isNumber);
    if (!isNumber || choice.number < 1)
        throw UsageError{
            QStringLiteral("a report is a number from 1 on, not '%1'").arg(parser.Value("report"))};
    if (choice.isAll)
        throw UsageError{QStringLiteral("--report and --all-reports do not go together")};
    return choice;
}

std::vector<ChosenReport> ReadChosen(const QString& name, const QByteArray& bytes, const ReportChoice& choice,
                                     Console& console)
{
    return Read(
        name, bytes, choice, console,
        [](const ReportDocument* /*document*/, const ChosenReport& /*report*/) { return Problems(); });
}

std::vector<ChosenReport> ReadForWriting(const QString& name, const QString& output,
                                         const ReportChoice& choice, Console& console)
{
    const QByteArray bytes = ReportCore::ReadInput(name);
    const bool isReplaced = ReportCore::IsSameFile(name, output);
    return Read(name, bytes, choice, console,
                [&](const ReportDocument* document, const ChosenReport& report) {
                    const bool isSettled = choice.discards && report.file.wasReadWhole;
                    return isSettled ? Problems() : LossesOf(bytes, document, report, isReplaced);
                });
}

bool IsWhole(const QString& name, const ChosenReport& report, Console& console)
{
    const Problems& losses = report.losses;
    if (losses.empty())
        return true;
    const std::size_t shown = std::min(losses.size(), LOSSES_SHOWN);
    for (std::size_t i = 0; i < shown; ++i)
        console.Complain(name, {QStringLiteral("would be discarded"), losses[i].text, losses[i].place});
    if (losses.size() > shown)
        console.Complain(name, QStringLiteral("and %1 more would be discarded").arg(losses.size() - shown));
    const auto others = std::count_if(losses.begin(), losses.end(),
                                      [](const Problem& loss) { return loss.Is(ReportCore::SECOND_REPORT); });
    const bool isOneOfMany = others > 0 && report.count == 1;
    console.Complain(name, isOneOfMany
                               ? QStringLiteral("not written; 'convert --report N' takes one of its %1 "
                                                "reports, --discard the first one")
                                     .arg(others + 1)
                               : QStringLiteral("not written; --discard writes it without that"));
    return false;
}

GoodReports ReadGoodReports(const QString& name, const QString& output, const ReportChoice& choice,
                            Console& console)
{
    GoodReports good;
    std::vector<ChosenReport> chosen = choice.discards
                                           ? ReadChosen(name, ReportCore::ReadInput(name), choice, console)
                                           : ReadForWriting(name, output, choice, console);
    good.areAll = !chosen.empty();
    for (ChosenReport& report : chosen) {
        for (const Problem& problem : report.file.problems)
            console.Complain(name, problem);
        if (report.file.IsGood() && IsWhole(name, report, console))
            good.reports.push_back(std::move(report));
        else
            good.areAll = false;
    }
    return good;
}

} // namespace ReportTool
