#ifndef REPORTCOLUMNS_INPUTCOLUMN_H
#define REPORTCOLUMNS_INPUTCOLUMN_H

#include "arrowowner.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace ReportColumns {

// Arrow arrays of others are believed what they say of their layout, as Arrow has it.

/// What a value of bytes or text is.
struct Bytes
{
    const char* begin = nullptr;
    std::size_t size = 0;
};

/// Whether a row holds something.
bool IsThere(const ArrowArray& array, std::int64_t row);

/// An array of bytes or texts, of either width of offsets or as views.
class BytesInput
{
public:
    /// The array must outlive this. Throws `std::invalid_argument` for another type of array; `what` names it there.
    BytesInput(const ArrowSchema& schema, const ArrowArray& array, const std::string& what);

    std::int64_t Length() const { return m_array->length; }
    bool IsThere(std::int64_t row) const { return ReportColumns::IsThere(*m_array, row); }
    Bytes At(std::int64_t row) const;

private:
    enum class Layout
    {
        Offsets32,
        Offsets64,
        Views
    };

    template <class Offset>
    Bytes Between(std::int64_t row) const;
    Bytes Viewed(std::int64_t row) const;

    const ArrowArray* m_array;
    Layout m_layout = Layout::Offsets32;
};

/// What may go wrong with an array, for people: the type of a schema by its format.
std::string NameOfFormat(const ArrowSchema& schema);

} // namespace ReportColumns

#endif
