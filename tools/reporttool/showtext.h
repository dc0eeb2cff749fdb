#ifndef REPORTTOOL_SHOWTEXT_H
#define REPORTTOOL_SHOWTEXT_H

#include <reportcore/reportfile.h>

namespace ReportTool {

class TextOutput;

/// Writes for people what a file holds, of a long list of coordinates only the first ones unless
/// `withAllPoints` is true.
void ShowText(const QString& name, const ReportCore::ReportFile& file, bool withAllPoints,
              TextOutput& output);

} // namespace ReportTool

#endif
