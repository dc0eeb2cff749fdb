#ifndef REPORTTOOL_PROBLEM_H
#define REPORTTOOL_PROBLEM_H

#include <QtCore/QString>

#include <vector>

namespace ReportTool {

/// One thing that is wrong with a report.
struct Problem
{
    /// Name of the library's exception, or one of the names below.
    QString name;
    QString text;

    /// Line of an XML file that the reader had reached, 0 where there is none.
    qint64 line = 0;
};

using Problems = std::vector<Problem>;

// What the library passes over, but what no writer of a report would have written.

/// Neither XML nor one of the binary forms.
constexpr char UNKNOWN_FORM[] = "UnknownForm";

/// Well-formed, but without a report in it.
constexpr char NO_REPORT[] = "NoReport";

/// A length, size or count that doesn't fit what there is.
constexpr char LENGTH_MISMATCH[] = "LengthMismatch";

/// Compressed data that cannot be uncompressed.
constexpr char DAMAGED_DATA[] = "DamagedData";

/// Something behind the end of the report.
constexpr char TRAILING_DATA[] = "TrailingData";

/// More than this program takes.
constexpr char TOO_LARGE[] = "TooLarge";

} // namespace ReportTool

#endif
