#include <reportcore/losses.h>

#include <reportcore/inspect/binaryinspector.h>
#include <reportcore/linting/linting.h>
#include <reportcore/losing/losing.h>

#include <algorithm>

namespace ReportCore {

namespace {

/// With such a problem there is no report.
bool IsAboutAll(const Problem& problem)
{
    return problem.Is(UNKNOWN_FORM) || problem.Is(NO_REPORT) || problem.Is(DAMAGED_DATA) ||
           problem.Is(TOO_LARGE);
}

/// The library's words for what it could not go on with.
bool EndsReading(const Problem& problem)
{
    return problem.Is("RGException") || problem.Is("BinaryParsingException");
}

/// Whether the report has all that its file says. What stands around an element in its document has not been read with it.
bool IsWhole(const ReportFile& file)
{
    return file.wasReadWhole &&
           (file.form.IsBinary() || file.objectName == REPORTGENERATOR::ReportBase::GetStaticObjectName());
}

/// Where the bytes end that hold the fields.
FilePlace EndOf(const QByteArray& bytes, const ReportFile& file)
{
    BinaryInspector inspector(bytes, file.form.isBinaryFile, [](const Event& /*event*/) {});
    inspector.Envelope();
    return {0, 0, inspector.BodyOffset() + inspector.BodyBytes().size(), inspector.IsCompressed()};
}

/// Reading broke off: an object that is lost then goes on to where nobody knows.
void LoseRest(const FilePlace& end, Problems& losses)
{
    const bool isLastObject = !losses.empty() && losses.back().Is(LOST_VALUE) && losses.back().value.isNull();
    if (!isLastObject)
        losses.push_back({QLatin1String(LOST_REST), QStringLiteral("what stands"), end});
    Problem& last = losses.back();
    last.name = QLatin1String(LOST_REST);
    last.text = QStringLiteral("%1 from %2 on").arg(last.text, PlaceText(last.place));
}

/// What reading itself has told: bytes that belong to nothing, claims that nothing stands behind, the rest of what it
/// could not read.
void AddProblems(const QByteArray& bytes, const ReportFile& file, Problems& losses)
{
    const bool isXml = file.form.form == Form::Xml;
    const bool isBrokenOff = std::any_of(file.problems.begin(), file.problems.end(), EndsReading);
    for (const Problem& problem : file.problems) {
        if (EndsReading(problem))
            LoseRest(isXml ? problem.place : EndOf(bytes, file), losses);
        else if (isXml && problem.Is(TRAILING_DATA))
            losses.push_back({problem.name,
                              QStringLiteral("what stands from %1 on").arg(PlaceText(problem.place)),
                              problem.place});
        else if (problem.Is(TRAILING_DATA) || (problem.Is(LENGTH_MISMATCH) && !isBrokenOff))
            losses.push_back(problem);
    }
}

} // namespace

Problems FindLosses(const QByteArray& bytes, const ReportFile& file)
{
    // Where reading broke off before the first element there is no report either.
    const auto all =
        std::find_if(file.problems.begin(), file.problems.end(), [&file](const Problem& problem) {
            return IsAboutAll(problem) || (EndsReading(problem) && file.objectName.isEmpty());
        });
    if (all != file.problems.end()) {
        Problem whole = *all;
        whole.text = QStringLiteral("the whole file: ") + all->text;
        return {whole};
    }
    Problems losses;
    if (!IsWhole(file))
        losses = FindDocumentLosses(bytes, file);
    std::stable_sort(losses.begin(), losses.end(), StandsBefore);
    AddProblems(bytes, file, losses);
    if (file.form.form == Form::Compressed) {
        const Problems behind = FindDataBehind(bytes, file.form.isBinaryFile);
        losses.insert(losses.end(), behind.begin(), behind.end());
    }
    std::stable_sort(losses.begin(), losses.end(), StandsBefore);
    return losses;
}

} // namespace ReportCore
