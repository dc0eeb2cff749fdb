#include "inputcolumn.h"

#include <cstring>
#include <stdexcept>

namespace ReportColumns {

namespace {

// Of a view: its size, then its bytes, or their beginning, number of buffer and place in it.
constexpr std::size_t VIEW_SIZE = 16;
constexpr std::int32_t MOST_INLINE = 12;
constexpr std::size_t VIEW_BUFFER = 8;
constexpr std::size_t VIEW_PLACE = 12;

constexpr int FIRST_VIEWED = 2; ///< buffer that views point into

template <class T>
T ValueAt(const void* buffer, std::int64_t index)
{
    T value = {};
    std::memcpy(&value, static_cast<const char*>(buffer) + static_cast<std::size_t>(index) * sizeof(T),
                sizeof(T));
    return value;
}

} // namespace

bool IsThere(const ArrowArray& array, std::int64_t row)
{
    const void* const validity = array.n_buffers > 0 ? array.buffers[0] : nullptr;
    if (!validity || array.null_count == 0)
        return true;
    const std::int64_t place = array.offset + row;
    return ((static_cast<const unsigned char*>(validity)[place / 8] >> (place % 8)) & 1U) != 0;
}

BytesInput::BytesInput(const ArrowSchema& schema, const ArrowArray& array, const std::string& what)
    : m_array(&array)
{
    const std::string format = schema.dictionary ? "dictionary" : schema.format;
    if (format == "z" || format == "u")
        m_layout = Layout::Offsets32;
    else if (format == "Z" || format == "U")
        m_layout = Layout::Offsets64;
    else if (format == "vz" || format == "vu")
        m_layout = Layout::Views;
    else
        throw std::invalid_argument(what + " must be binary or text, not " + NameOfFormat(schema));
}

Bytes BytesInput::At(std::int64_t row) const
{
    switch (m_layout) {
    case Layout::Offsets32:
        return Between<std::int32_t>(row);
    case Layout::Offsets64:
        return Between<std::int64_t>(row);
    case Layout::Views:
        break;
    }
    return Viewed(row);
}

template <class Offset>
Bytes BytesInput::Between(std::int64_t row) const
{
    const auto begin = ValueAt<Offset>(m_array->buffers[1], m_array->offset + row);
    const auto end = ValueAt<Offset>(m_array->buffers[1], m_array->offset + row + 1);
    return {static_cast<const char*>(m_array->buffers[2]) + begin, static_cast<std::size_t>(end - begin)};
}

Bytes BytesInput::Viewed(std::int64_t row) const
{
    const char* const view = static_cast<const char*>(m_array->buffers[1]) +
                             static_cast<std::size_t>(m_array->offset + row) * VIEW_SIZE;
    const auto size = ValueAt<std::int32_t>(view, 0);
    if (size <= MOST_INLINE)
        return {view + sizeof size, static_cast<std::size_t>(size)};
    const auto buffer = ValueAt<std::int32_t>(view + VIEW_BUFFER, 0);
    const auto place = ValueAt<std::int32_t>(view + VIEW_PLACE, 0);
    return {static_cast<const char*>(m_array->buffers[FIRST_VIEWED + buffer]) + place,
            static_cast<std::size_t>(size)};
}

std::string NameOfFormat(const ArrowSchema& schema)
{
    if (schema.dictionary)
        return "a dictionary";
    return std::string("Arrow's type '") + schema.format + "'";
}

} // namespace ReportColumns
