#include <reportviewer/losing.h>

#include <reportviewer/contents.h>
#include <reportviewer/paths.h>

#include <reportcore/areapoints.h>
#include <reportcore/losses.h>

#include <reportgenerator/reflection/reportfields.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QSet>

#include <algorithm>
#include <iterator>

namespace ReportViewer {

using ReportCore::FieldPath;
using ReportCore::Problem;
using ReportCore::Problems;
using REPORTGENERATOR::ReportBase;

namespace {

QVariant ValueAt(const ReportBase& report, const FieldPath& path)
{
    const auto* const parent = ReportCore::FindParent(report, path);
    return parent && path.Last().field->IsSetIn(*parent) ? path.Last().field->ValueIn(*parent) : QVariant();
}

/// Two places of which each is that of a value.
QString KeyOf(const Problem& problem, const QString& what)
{
    return ReportCore::PlaceCode(problem.place) + QLatin1Char('\n') + what;
}

} // namespace

Problems LossesLeft(const Contents& file, const ReportBase& changed)
{
    const ReportBase& read = file.file.report;
    const bool areNumbered = ReportCore::CountPoints(read) != ReportCore::CountPoints(changed);
    const auto isTakenCareOf = [&](const Problem& loss) {
        // Items that came or went have given others their numbers.
        const bool isValue = loss.Is(ReportCore::LOST_VALUE) && !loss.value.isNull() &&
                             !(areNumbered && loss.path.contains(QLatin1Char('[')));
        const FieldPath path = isValue ? ParsedPath(loss.path) : FieldPath();
        return !path.IsEmpty() && ValueAt(read, path) != ValueAt(changed, path);
    };
    Problems left;
    std::remove_copy_if(file.losses.begin(), file.losses.end(), std::back_inserter(left), isTakenCareOf);
    return left;
}

Problems LossesToList(const Problems& losses, const Problems& problems, const Problems& lint)
{
    QSet<QString> told;
    for (const Problems* const all : {&problems, &lint}) {
        for (const Problem& problem : *all) {
            told << KeyOf(problem, problem.name);
            if (problem.place.IsKnown() && !problem.path.isEmpty())
                told << KeyOf(problem, problem.path);
        }
    }
    Problems listed;
    for (const Problem& loss : losses) {
        if (told.contains(KeyOf(loss, loss.name)) || told.contains(KeyOf(loss, loss.path)))
            continue;
        listed.push_back(loss);
        listed.back().text =
            QCoreApplication::translate("ReportViewer::Losing", "%1 (lost by saving)").arg(loss.text);
    }
    return listed;
}

} // namespace ReportViewer
