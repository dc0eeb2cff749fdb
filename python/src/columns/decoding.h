#ifndef REPORTCOLUMNS_DECODING_H
#define REPORTCOLUMNS_DECODING_H

#include "column.h"
#include "columntable.h"
#include "inputcolumn.h"
#include "source.h"
#include "workers.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace ReportColumns {

struct DecodeOptions
{
    ColumnChoice columns;

    /// At a time; 0 for as many as there are cores.
    int threads = 0;

    /// In a batch, unless there is so much in them that fewer fit; 0 for all in one.
    std::int64_t batchRows = 16384;

    /// Called between batches.
    Checkpoint checkpoint = {};
};

/// Batches of rows, a row for each value of the array, in its order.
std::vector<SharedValues> Decode(const BytesInput& input, const DecodeOptions& options);

/// The same of the arrays of a stream, each when it is asked for. Throws what `BytesInput` throws.
std::unique_ptr<Source> DecodeStream(OwnedStream stream, const DecodeOptions& options);

/// A row for each file, whose name is the column "file", a few batches at a time. Names are as the system has them, in UTF-8. A file
/// that cannot be read has that as its problem.
std::unique_ptr<Source> DecodeFiles(std::vector<std::string> paths, const DecodeOptions& options);

/// Of what `Decode` gives.
ColumnType DecodedType(const ColumnChoice& columns);

} // namespace ReportColumns

#endif
