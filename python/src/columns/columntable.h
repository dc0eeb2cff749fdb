#ifndef REPORTCOLUMNS_COLUMNTABLE_H
#define REPORTCOLUMNS_COLUMNTABLE_H

#include "column.h"

#include <string>
#include <vector>

namespace ReportColumns {

enum class ColumnKind
{
    Number, ///< double
    Switch, ///< bool
    Text,   ///< utf8
    Shape,  ///< the area as well-known binary
    Points  ///< list of structures of doubles
};

/// A column of the table that reports are decoded into.
struct ReportColumn
{
    ColumnKind kind;
    ColumnType type;

    /// Of a value: its place among the values of a report in the order in which they are written. Otherwise -1.
    int value = -1;
};

/// All of them: the values of a report that stand in no list, as `reporttool export` names and orders them, "area", "points"
/// and "problem". They follow from the library's descriptions of its classes.
const std::vector<ReportColumn>& AllColumns();

/// Where columns that are no values stand in `AllColumns()`.
int ShapeColumn();
int PointsColumn();
int ProblemColumn();

/// Where a column stands in `AllColumns()`, by its place among the values.
int ColumnOfValue(int value);

/// Some of the columns, in the order of all.
class ColumnChoice
{
public:
    /// All of them.
    ColumnChoice();

    /// Throws `std::invalid_argument` for a name that none has.
    explicit ColumnChoice(const std::vector<std::string>& names);

    bool Has(int column) const { return m_has[static_cast<std::size_t>(column)]; }

    /// Of structures with these columns; `further` comes in front.
    ColumnType Type(const std::vector<ColumnType>& further = {}) const;

private:
    std::vector<bool> m_has;
};

} // namespace ReportColumns

#endif
