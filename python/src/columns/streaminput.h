#ifndef REPORTCOLUMNS_STREAMINPUT_H
#define REPORTCOLUMNS_STREAMINPUT_H

#include "arrowowner.h"

#include <stdexcept>
#include <utility>

namespace ReportColumns {

/// The arrays of a stream of somebody else's, each until it is done with, so that none is lost by what throws meanwhile. What goes
/// wrong in the stream is thrown as `std::runtime_error`.
class StreamInput
{
public:
    explicit StreamInput(OwnedStream stream) : m_stream(std::move(stream))
    {
        Demand(m_stream.Get()->get_schema(m_stream.Get(), m_schema.Get()));
    }

    const ArrowSchema& Schema() const { return *m_schema; }

    /// False at the end.
    bool HasArray()
    {
        if (m_array.IsEmpty())
            Demand(m_stream.Get()->get_next(m_stream.Get(), m_array.Get()));
        return !m_array.IsEmpty();
    }

    const ArrowArray& Array() const { return *m_array; }

    /// Done with the array.
    void Advance() { m_array = OwnedArray(); }

private:
    void Demand(int result)
    {
        if (result == 0)
            return;
        const char* const error = m_stream.Get()->get_last_error(m_stream.Get());
        throw std::runtime_error(error ? error : "the stream of columns failed");
    }

    OwnedStream m_stream;
    OwnedSchema m_schema;
    OwnedArray m_array;
};

} // namespace ReportColumns

#endif
