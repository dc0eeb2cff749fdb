#ifndef REPORTCOLUMNS_COLUMN_H
#define REPORTCOLUMNS_COLUMN_H

#include "arrowabi.h"
#include "buffer.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ReportColumns {

/// The type of a column: a field of an Arrow schema.
struct ColumnType
{
    std::string format;
    std::string name;
    bool isNullable = true;
    std::vector<std::pair<std::string, std::string>> metadata = {};
    std::vector<ColumnType> children = {};
};

/// The values of a column, which nobody changes any more, in Arrow's layout.
struct ColumnValues
{
    std::int64_t length = 0;
    std::int64_t nulls = 0;

    /// In the order of the layout; the first one, of validity, counts only where there are nulls. The values of structures
    /// have no other.
    std::vector<Buffer> buffers = {};
    std::vector<ColumnValues> children = {};
};

using SharedValues = std::shared_ptr<const ColumnValues>;

/// Hands out the type; whoever gets it releases it.
void ExportSchema(const ColumnType& type, ArrowSchema* out);

/// Hands out the values without copying them: they stay until the last structure that points at them is released.
void ExportArray(const SharedValues& values, ArrowArray* out);

} // namespace ReportColumns

#endif
