#include "columnbuilder.h"

#include <QtCore/QByteArray>

namespace ReportColumns {

namespace {

void Add(ColumnValues& values, Buffer& buffer)
{
    buffer.MakeSure();
    values.buffers.push_back(std::move(buffer));
}

ColumnValues NumbersWithoutNulls(Buffer& numbers, std::int64_t count)
{
    ColumnValues values;
    values.length = count;
    values.buffers.emplace_back();
    Add(values, numbers);
    return values;
}

} // namespace

ColumnValues Validity::Finish()
{
    ColumnValues values;
    values.length = m_length;
    values.nulls = m_nulls;
    Add(values, m_bits.Bytes());
    return values;
}

ColumnValues NumberBuilder::Finish()
{
    ColumnValues values = m_validity.Finish();
    Add(values, m_numbers);
    return values;
}

ColumnValues SwitchBuilder::Finish()
{
    ColumnValues values = m_validity.Finish();
    Add(values, m_switches.Bytes());
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
    Add(values, m_ends);
    Add(values, m_bytes);
    return values;
}

ColumnValues PointsBuilder::Finish()
{
    ColumnValues points;
    points.length = m_count;
    points.buffers.emplace_back();
    points.children.push_back(NumbersWithoutNulls(m_longitudes, m_count));
    points.children.push_back(NumbersWithoutNulls(m_latitudes, m_count));
    ColumnValues values = m_validity.Finish();
    Add(values, m_ends);
    values.children.push_back(std::move(points));
    return values;
}

} // namespace ReportColumns
