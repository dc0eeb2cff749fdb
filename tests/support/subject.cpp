#include "support/subject.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QLatin1String>

namespace Support {

Subject::~Subject() = default;

std::unique_ptr<Subject> NewSubject(const QString& folder)
{
    if (folder == QLatin1String("frequency"))
        return std::make_unique<SubjectOf<REPORTGENERATOR::Frequency>>();
    if (folder == QLatin1String("ifbandwidth"))
        return std::make_unique<SubjectOf<REPORTGENERATOR::IFBandwidth>>();
    if (folder == QLatin1String("coordinate"))
        return std::make_unique<SubjectOf<REPORTGENERATOR::Coordinate>>();
    if (folder == QLatin1String("area"))
        return std::make_unique<SubjectOf<REPORTGENERATOR::Area>>();
    if (folder == QLatin1String("reportbase"))
        return std::make_unique<SubjectOf<REPORTGENERATOR::ReportBase>>();
    if (folder == QLatin1String("double"))
        return std::make_unique<SubjectOf<REPORTGENERATOR::Double>>();
    throw std::out_of_range("no class for the folder " + folder.toStdString());
}

} // namespace Support
