#include "columnbuilder.h"

#include <QtCore/QByteArray>

#include <utility>

namespace ReportColumns {

namespace {

ColumnValues NumbersWithoutNulls(Buffer& numbers, std::int64_t count)
{
    ColumnValues values;
    values.length = count;
    values.buffers.emplace_back();
    values.buffers.push_back(numbers.Take());
    return values;
}

} // namespace

ColumnValues Validity::Finish()
{
    ColumnValues values;
    values.length = std::exchange(m_length, 0);
    values.nulls = std::exchange(m_nulls, 0);
    values.buffers.push_back(m_bits.Take());
    return values;
}

ColumnValues NumberBuilder::Finish()
{
    ColumnValues values = m_validity.Finish();
    values.buffers.push_back(m_numbers.Take());
    return values;
}

ColumnValues SwitchBuilder::Finish()
{
    ColumnValues values = m_validity.Finish();
    values.buffers.push_back(m_switches.Take());
    return values;
}

void BytesBuilder::Append(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    Append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

ColumnValues BytesBuilder::Finish()
{
    ColumnValues values = m_validity.Finish();
    values.buffers.push_back(m_ends.Take());
    values.buffers.push_back(m_bytes.Take());
    return values;
}

ColumnValues PointsBuilder::Finish()
{
    const auto count = static_cast<std::int64_t>(std::exchange(m_count, 0));
    ColumnValues points;
    points.length = count;
    points.buffers.emplace_back();
    points.children.push_back(NumbersWithoutNulls(m_longitudes, count));
    points.children.push_back(NumbersWithoutNulls(m_latitudes, count));
    ColumnValues values = m_validity.Finish();
    values.buffers.push_back(m_ends.Take());
    values.children.push_back(std::move(points));
    return values;
}

} // namespace ReportColumns
