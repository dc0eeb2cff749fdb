#ifndef TESTS_SUPPORT_REPORTS_H
#define TESTS_SUPPORT_REPORTS_H

// Reports that tests need again and again.
//
//     ReportBase report = CompleteReport();          // frequency 5, IF bandwidth 6, "Lake" with the point (1, 2)
//     EXPECT_EQ(Carried(report), "frequency bandwidth area ");
//     Rename(report.GetFrequency(), QStringLiteral("Rx"));

#include "support/bytes.h"
#include "support/states.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QString>

#include <string>

namespace Support {

REPORTGENERATOR::Frequency FrequencyOf(double value);
REPORTGENERATOR::IFBandwidth BandwidthOf(double value);

/// Name "Lake", one point, (1, 2).
REPORTGENERATOR::Area LakeWithoutScript();

/// Frequency 5, IF bandwidth 6, the lake.
REPORTGENERATOR::ReportBase CompleteReport();
ReportState CompleteReportState();

/// The complete report with other flags: members that are not carried keep their data.
REPORTGENERATOR::ReportBase ReportWithFlags(int flags);

/// The elements of the lake.
Bytes LakeElements();

/// The members that count as set.
std::string Carried(const REPORTGENERATOR::ReportBase& report);

/// Renames an object as a class derived from it may.
void Rename(REPORTGENERATOR::IRGObject& object, const QString& name);

} // namespace Support

#endif
