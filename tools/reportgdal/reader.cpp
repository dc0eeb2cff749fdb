#include <reportgdal/reader.h>

#include <reportgdal/files.h>

#include <reportcore/files.h>
#include <reportcore/losses.h>

#include <algorithm>

namespace ReportGdal {

using ReportCore::Problem;
using ReportCore::Problems;
using ReportCore::ReportFile;
using ReportCore::UnusableFile;

namespace {

/// What the report says otherwise than its file. What else stands in the file is still there.
Problems FalseValues(Problems losses)
{
    losses.erase(std::remove_if(losses.begin(), losses.end(),
                                [](const Problem& loss) {
                                    return !loss.Is(ReportCore::LOST_VALUE) &&
                                           !loss.Is(ReportCore::LOST_REST);
                                }),
                 losses.end());
    return losses;
}

QString LossLine(const Problem& loss)
{
    const QString place = ReportCore::PlaceCode(loss.place);
    const QString line = QStringLiteral("would be lost: ") + loss.text;
    return place.isEmpty() ? line : QStringLiteral("%1: %2").arg(place, line);
}

QString WithFurther(const QString& line, std::size_t count)
{
    return count == 1 ? line : QStringLiteral("%1 (and %2 more)").arg(line).arg(count - 1);
}

} // namespace

Reader::Reader(const std::string& name)
    : m_name(name), m_bytes(ReadBytes(name)), m_first(ReportCore::ReadReport(m_bytes))
{
    if (!m_first.wasReadWhole)
        m_document.emplace(m_bytes);
}

REPORTGENERATOR::ReportBase Reader::Report(int index) const
{
    const bool isOnlyOne = Count() == 1;
    const ReportFile file = isOnlyOne ? m_first : m_document->Read(index);
    if (!file.IsGood())
        throw UnusableFile{TextOf(m_name),
                           WithFurther(ProblemLine(file.problems.front()), file.problems.size())};
    if (file.wasReadWhole)
        return file.report;
    const Problems losses =
        FalseValues(isOnlyOne ? ReportCore::FindLosses(m_bytes, file) : m_document->LossesOf(index, file));
    if (!losses.empty())
        throw UnusableFile{TextOf(m_name), WithFurther(LossLine(losses.front()), losses.size())};
    return file.report;
}

} // namespace ReportGdal
