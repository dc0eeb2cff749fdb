#ifndef REPORTCOLUMNS_ENCODING_H
#define REPORTCOLUMNS_ENCODING_H

#include "column.h"
#include "inputcolumn.h"
#include "source.h"
#include "workers.h"

#include <reportcore/form.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace ReportColumns {

struct EncodeOptions
{
    ReportCore::FileForm form = {ReportCore::Form::Plain, false};

    /// zlib's, for compressed forms: 0 to 9, or -1 for its default.
    int level = -1;

    int threads = 0;
    std::int64_t batchRows = 16384;

    /// Called between batches.
    Checkpoint checkpoint = {};

    /// Whether a row that is no good report becomes null. Otherwise it ends the encoding.
    bool skipsRefused = false;

    /// What a message counts the first row of the array as.
    std::int64_t firstRow = 0;
};

/// Bytes of the reports whose values stand in an array of structures, by the names of `AllColumns()`: for each row what the library
/// writes. Columns that aren't there are null. The area's outline follows from its points, and its version is the library's, whatever
/// stands there. A row with a problem is no good report; one without a value is null.
///
/// Throws `std::invalid_argument` for other types, and for the first row that is refused, with its number.
std::vector<SharedValues> Encode(const ArrowSchema& schema, const ArrowArray& array,
                                 const EncodeOptions& options);

/// The same of the arrays of a stream, each when it is asked for.
std::unique_ptr<Source> EncodeStream(OwnedStream stream, const EncodeOptions& options);

ColumnType EncodedType();

} // namespace ReportColumns

#endif
