#ifndef REPORTTOOL_EXITCODES_H
#define REPORTTOOL_EXITCODES_H

namespace ReportTool {

// Of several files the greatest counts.

constexpr int EXIT_GOOD = 0;
constexpr int EXIT_INVALID = 1;
constexpr int EXIT_UNUSABLE = 2;

} // namespace ReportTool

#endif
