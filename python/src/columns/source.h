#ifndef REPORTCOLUMNS_SOURCE_H
#define REPORTCOLUMNS_SOURCE_H

#include "arrowabi.h"
#include "column.h"

#include <memory>
#include <vector>

namespace ReportColumns {

/// Batches that come into being when they are asked for.
class Source
{
public:
    Source() = default;
    virtual ~Source() = default;
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    virtual const ColumnType& Type() const = 0;

    /// The next one; null at the end. Throws exceptions of the standard library.
    virtual SharedValues Next() = 0;
};

/// Batches that are there.
std::unique_ptr<Source> SourceOf(ColumnType type, std::vector<SharedValues> batches);

/// Hands out a stream of the batches; whoever gets it releases it.
void ExportStream(std::unique_ptr<Source> source, ArrowArrayStream* out);

} // namespace ReportColumns

#endif
