#include <reportcore/lint.h>

#include <reportcore/linting/linting.h>

#include <reportgenerator/reflection/reportfields.h>

#include <QtCore/QSet>

#include <algorithm>
#include <cmath>
#include <optional>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;

namespace {

// --- When there is nothing to look for

/// Whether a report has a number that a text which is no number may have become.
bool HasOddNumber(const IRGObject& object, const ObjectInfo& info)
{
    return std::any_of(info.All().begin(), info.All().end(), [&object](const auto& field) {
        if (const std::optional<double> number = field->NumberIn(object))
            return *number == 0.0 || !std::isfinite(*number);
        const int count = field->CountIn(object);
        for (int i = 0; i < count; ++i) {
            if (HasOddNumber(field->ItemIn(object, i), field->Object()))
                return true;
        }
        return false;
    });
}

/// Whether the bytes may hold something odd that isn't in the report.
bool MayBeOdd(const QByteArray& bytes, const ReportFile& file, Look look)
{
    if (file.wasReadWhole)
        return false;
    if (!file.IsGood() || !file.form.IsBinary())
        return true;
    return look == Look::Thorough || bytes.size() <= BYTES_OF_QUICK_LOOK ||
           HasOddNumber(file.report, ReportInfo());
}

bool Has(const Problems& problems, const char* name)
{
    return std::any_of(problems.begin(), problems.end(),
                       [name](const Problem& problem) { return problem.Is(name); });
}

/// Whether compressed data are to be uncompressed once more.
bool IsWorthUncompressing(const QByteArray& bytes, const ReportFile& file, Look look)
{
    return file.form.form == Form::Compressed &&
           (look == Look::Thorough || bytes.size() <= BYTES_OF_QUICK_LOOK) &&
           !Has(file.problems, TOO_LARGE) && !Has(file.problems, DAMAGED_DATA);
}

/// Takes away what is about the field of a problem. How a name is spelt, no problem tells.
void RemoveTold(const Problems& problems, Problems& lint)
{
    QSet<QString> told;
    for (const Problem& problem : problems) {
        if (!problem.path.isEmpty())
            told.insert(problem.path);
    }
    lint.erase(std::remove_if(lint.begin(), lint.end(),
                              [&told](const Problem& warning) {
                                  return !warning.Is(MISSPELT_NAME) && told.contains(warning.path);
                              }),
               lint.end());
}

} // namespace

Problems FindLint(const QByteArray& bytes, const ReportFile& file, Look look)
{
    if (file.form.form == Form::Unknown)
        return {};
    Problems lint;
    if (MayBeOdd(bytes, file, look))
        lint = FindDocumentLint(bytes, file.form);
    if (IsWorthUncompressing(bytes, file, look)) {
        const Problems behind = FindDataBehind(bytes, file.form.isBinaryFile);
        lint.insert(lint.end(), behind.begin(), behind.end());
    }
    const Problems ofFields = FindFieldLint(bytes, file, look);
    lint.insert(lint.end(), ofFields.begin(), ofFields.end());
    RemoveTold(file.problems, lint);
    std::stable_sort(lint.begin(), lint.end(), StandsBefore);
    return lint;
}

} // namespace ReportCore
