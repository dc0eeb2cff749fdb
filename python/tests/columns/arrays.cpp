#include "arrays.h"

#include <columns/columnbuilder.h>
#include <columns/encoding.h>

#include <sstream>
#include <stdexcept>

namespace ColumnTest {

using namespace ReportColumns;

namespace {

void Put(std::ostream& out, const std::vector<double>& numbers)
{
    for (const double number : numbers)
        out << number << ' ';
}

} // namespace

Given::Given(const std::vector<std::optional<QByteArray>>& values)
{
    BytesBuilder column;
    for (const auto& value : values) {
        if (value)
            column.Append(value->constData(), static_cast<std::size_t>(value->size()));
        else
            column.AppendNull();
    }
    ExportSchema(EncodedType(), m_schema.Get());
    ExportArray(std::make_shared<const ColumnValues>(column.Finish()), m_array.Get());
}

Taken::Taken(const SharedValues& values, const ColumnType& type)
{
    ExportSchema(type, m_schema.Get());
    ExportArray(values, m_array.Get());
}

const ArrowArray& Taken::Column(const std::string& name) const
{
    for (std::int64_t i = 0; i < m_schema->n_children; ++i) {
        if (name == m_schema->children[i]->name)
            return *m_array->children[i];
    }
    throw std::out_of_range(name);
}

std::optional<double> Taken::Number(const std::string& column, std::int64_t row) const
{
    const ArrowArray& array = Column(column);
    if (!IsThere(array, row))
        return std::nullopt;
    return static_cast<const double*>(array.buffers[1])[row];
}

std::optional<bool> Taken::Switch(const std::string& column, std::int64_t row) const
{
    const ArrowArray& array = Column(column);
    if (!IsThere(array, row))
        return std::nullopt;
    const unsigned bits = static_cast<const unsigned char*>(array.buffers[1])[row / 8];
    return ((bits >> (row % 8)) & 1U) != 0;
}

std::optional<std::string> Taken::Text(const std::string& column, std::int64_t row) const
{
    const ArrowArray& array = Column(column);
    if (!IsThere(array, row))
        return std::nullopt;
    const auto* const ends = static_cast<const std::int32_t*>(array.buffers[1]);
    return std::string(static_cast<const char*>(array.buffers[2]) + ends[row],
                       static_cast<std::size_t>(ends[row + 1] - ends[row]));
}

std::optional<std::vector<double>> Taken::Points(std::int64_t row) const
{
    const ArrowArray& array = Column("points");
    if (!IsThere(array, row))
        return std::nullopt;
    const auto* const ends = static_cast<const std::int32_t*>(array.buffers[1]);
    const ArrowArray& points = *array.children[0];
    std::vector<double> numbers;
    for (std::int32_t i = ends[row]; i < ends[row + 1]; ++i) {
        for (int axis = 0; axis < 2; ++axis)
            numbers.push_back(static_cast<const double*>(points.children[axis]->buffers[1])[i]);
    }
    return numbers;
}

std::string Taken::Row(std::int64_t row) const
{
    std::ostringstream out;
    out.precision(17);
    for (const ReportColumn& column : AllColumns()) {
        const std::string& name = column.type.name;
        out << name << '=';
        if (!IsThere(Column(name), row))
            out << "null";
        else if (column.kind == ColumnKind::Number)
            out << *Number(name, row);
        else if (column.kind == ColumnKind::Switch)
            out << *Switch(name, row);
        else if (column.kind == ColumnKind::Points)
            Put(out, *Points(row));
        else
            out << *Text(name, row);
        out << '\n';
    }
    return out.str();
}

std::vector<std::optional<QByteArray>> ValuesOf(const SharedValues& bytes)
{
    OwnedSchema schema;
    OwnedArray array;
    ExportSchema(EncodedType(), schema.Get());
    ExportArray(bytes, array.Get());
    const BytesInput input(*schema, *array, "bytes");
    std::vector<std::optional<QByteArray>> values;
    for (std::int64_t row = 0; row < input.Length(); ++row) {
        values.emplace_back();
        if (input.IsThere(row))
            values.back() = QByteArray(input.At(row).begin, static_cast<int>(input.At(row).size));
    }
    return values;
}

} // namespace ColumnTest
