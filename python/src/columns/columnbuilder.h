#ifndef REPORTCOLUMNS_COLUMNBUILDER_H
#define REPORTCOLUMNS_COLUMNBUILDER_H

#include "buffer.h"
#include "column.h"

#include <QtCore/QString>

#include <cstdint>

namespace ReportColumns {

// What columns of one kind grow in. Each value or null is a row. `Finish` hands the rows out, and the next column begins.

/// Which rows hold something.
class Validity
{
public:
    void Append(bool isThere)
    {
        m_bits.Append(isThere);
        ++m_length;
        m_nulls += isThere ? 0 : 1;
    }

    std::int64_t Length() const { return m_length; }

    void Reserve() { m_bits.Reserve(); }

    /// Columns begin with this.
    ColumnValues Finish();

private:
    Bits m_bits;
    std::int64_t m_length = 0;
    std::int64_t m_nulls = 0;
};

/// Where each row ends in what all rows have together.
class Ends
{
public:
    void Append(std::size_t end)
    {
        if (m_ends.Size() == 0)
            m_ends.Append(std::int32_t(0));
        m_ends.Append(static_cast<std::int32_t>(end));
    }

    void Reserve() { m_ends.Reserve(); }

    Buffer Take()
    {
        if (m_ends.Size() == 0)
            m_ends.Append(std::int32_t(0));
        return m_ends.Take();
    }

private:
    Buffer m_ends;
};

class NumberBuilder
{
public:
    void Append(double number)
    {
        m_validity.Append(true);
        m_numbers.Append(number);
    }
    void AppendNull()
    {
        m_validity.Append(false);
        m_numbers.Append(0.0);
    }
    void Reserve()
    {
        m_validity.Reserve();
        m_numbers.Reserve();
    }
    ColumnValues Finish();

private:
    Validity m_validity;
    Buffer m_numbers;
};

class SwitchBuilder
{
public:
    void Append(bool isOn)
    {
        m_validity.Append(true);
        m_switches.Append(isOn);
    }
    void AppendNull()
    {
        m_validity.Append(false);
        m_switches.Append(false);
    }
    void Reserve()
    {
        m_validity.Reserve();
        m_switches.Reserve();
    }
    ColumnValues Finish();

private:
    Validity m_validity;
    Bits m_switches;
};

/// Texts in UTF-8, or bytes.
class BytesBuilder
{
public:
    std::int64_t Length() const { return m_validity.Length(); }
    std::size_t Size() const { return m_bytes.Size(); }

    void Append(const char* bytes, std::size_t size)
    {
        m_bytes.Append(bytes, size);
        EndRow();
    }
    void Append(const QString& text);
    void AppendNull()
    {
        m_validity.Append(false);
        PutEnd();
    }

    /// For values that are written piece by piece: what was put there becomes a row.
    Buffer& Room() { return m_bytes; }
    void EndRow()
    {
        m_validity.Append(true);
        PutEnd();
    }
    void Reserve()
    {
        m_validity.Reserve();
        m_ends.Reserve();
        m_bytes.Reserve();
    }
    ColumnValues Finish();

private:
    void PutEnd() { m_ends.Append(m_bytes.Size()); }

    Validity m_validity;
    Ends m_ends;
    Buffer m_bytes;
};

/// Lists of points.
class PointsBuilder
{
public:
    /// Of all rows.
    std::size_t Count() const { return m_count; }

    void AppendPoint(double longitude, double latitude)
    {
        m_longitudes.Append(longitude);
        m_latitudes.Append(latitude);
        ++m_count;
    }

    /// What was appended since the last row becomes one.
    void EndRow()
    {
        m_validity.Append(true);
        m_ends.Append(m_count);
    }
    void AppendNull()
    {
        m_validity.Append(false);
        m_ends.Append(m_count);
    }
    void Reserve()
    {
        m_validity.Reserve();
        m_ends.Reserve();
        m_longitudes.Reserve();
        m_latitudes.Reserve();
    }
    ColumnValues Finish();

private:
    Validity m_validity;
    Ends m_ends;
    Buffer m_longitudes;
    Buffer m_latitudes;
    std::size_t m_count = 0;
};

} // namespace ReportColumns

#endif
