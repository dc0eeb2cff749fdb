#ifndef REPORTCOLUMNS_REPORTINPUT_H
#define REPORTCOLUMNS_REPORTINPUT_H

#include "inputcolumn.h"

#include <reportgenerator/reportbase/schema/reportbaseschema.h>

#include <optional>
#include <vector>

namespace ReportColumns {

/// Reports in an array of structures.
class ReportInput
{
public:
    /// The array must outlive this. Throws `std::invalid_argument` for columns of other types than those that are decoded.
    ReportInput(const ArrowSchema& schema, const ArrowArray& array);

    std::int64_t Length() const { return m_array->length; }

    /// Whether the row says anything at all.
    bool IsThere(std::int64_t row) const;

    /// Whether a problem stands in the row.
    bool HasProblem(std::int64_t row) const;

    /// Puts what the row says into a record that nothing was put into yet. Throws `RGException` for what a setter refuses. Returns
    /// whether all texts are of characters that every form keeps.
    bool Read(std::int64_t row, REPORTGENERATOR::ReportBaseData& data) const;

private:
    /// A column that is there; of numbers and switches only the array.
    struct Column
    {
        const ArrowArray* array = nullptr;
        std::optional<BytesInput> texts = {};
    };

    class Row;

    void Take(const ArrowSchema& schema, const ArrowArray& array);
    void TakePoints(const ArrowSchema& schema, const ArrowArray& array);

    /// Of a child of the array: the row in it.
    std::int64_t RowBelow(std::int64_t row) const { return m_array->offset + row; }

    const ArrowArray* m_array;
    std::vector<Column> m_values; ///< by their places in writing order
    Column m_problems;
    const ArrowArray* m_points = nullptr;
    bool m_hasWideLists = false;
    const ArrowArray* m_point = nullptr; ///< the structures in the lists
    std::vector<const ArrowArray*> m_pointNumbers;
};

} // namespace ReportColumns

#endif
