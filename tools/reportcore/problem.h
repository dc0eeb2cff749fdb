#ifndef REPORTCORE_PROBLEM_H
#define REPORTCORE_PROBLEM_H

#include <QtCore/QLatin1String>
#include <QtCore/QString>

#include <vector>

namespace ReportCore {

/// Where something stands in a file.
struct FilePlace
{
    // Of XML, counted from 1; 0 where there is none. Columns count characters.

    qint64 line = 0;
    qint64 column = 0;

    /// Of a binary form, from the start of the file; -1 where there is none.
    qint64 offset = -1;

    /// Whether the offset counts from the start of the uncompressed data instead.
    bool isUncompressed = false;

    bool IsKnown() const { return line > 0 || offset >= 0; }
};

/// One thing that is wrong with a report.
struct Problem
{
    /// Name of the library's exception, or one of the names below.
    QString name;
    QString text;
    FilePlace place = {};

    /// Path of the field, or of the object, that it is about; empty where there is none.
    QString path = {};

    /// The value that stands there, as it was found; null where there is none.
    QString value = {};

    bool Is(const char* problemName) const { return name == QLatin1String(problemName); }
};

using Problems = std::vector<Problem>;

/// The order of the places in a file.
bool StandsBefore(const Problem& left, const Problem& right);

/// The library's name of what it says of an object that lacks something.
constexpr char INCOMPLETE[] = "IncompleteDefinitionException";

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

/// The place for programs: "12:7" for line and column, "0x1a2" for an offset, "uncompressed:0x1a2" for one of
/// uncompressed data; empty where none is known.
QString PlaceCode(const FilePlace& place);

/// The place for people: "line 12, column 7", "offset 0x1a2", "offset 0x1a2 of the uncompressed data".
QString PlaceText(const FilePlace& place);

/// Field and value: area.coordinate[17].latitude = "200". A long value is cut off. Empty where neither is known.
QString FieldText(const Problem& problem);

/// One line without the file: "12:7: NAME: TEXT (area.coordinate[17].latitude = "200")".
QString ProblemLine(const Problem& problem);

} // namespace ReportCore

#endif
