#ifndef REPORTVIEWER_LOSING_H
#define REPORTVIEWER_LOSING_H

#include <reportcore/problem.h>

#include <reportgenerator/reportbase/reportbase.h>

namespace ReportViewer {

struct Contents;

/// What of a file is lost when its report is saved after changes. What reading took for another value is no loss any more
/// when the user has given it a value.
ReportCore::Problems LossesLeft(const Contents& file, const REPORTGENERATOR::ReportBase& changed);

/// Those of which neither problems nor lint tell, as these are told.
ReportCore::Problems LossesToList(const ReportCore::Problems& losses, const ReportCore::Problems& problems,
                                  const ReportCore::Problems& lint);

} // namespace ReportViewer

#endif
