#include "reportinput.h"

#include "columntable.h"

#include <reportgenerator/reportbase/records/stagingrecord.h>
#include <reportgenerator/reportbase/records/storing.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>

namespace ReportColumns {

using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::RecordAccess;
using REPORTGENERATOR::ReportBaseData;
using REPORTGENERATOR::Schema;

namespace {

double NumberAt(const ArrowArray& array, std::int64_t row)
{
    double number = 0.0;
    std::memcpy(&number, static_cast<const double*>(array.buffers[1]) + array.offset + row, sizeof number);
    return number;
}

bool SwitchAt(const ArrowArray& array, std::int64_t row)
{
    const std::int64_t place = array.offset + row;
    return ((static_cast<const unsigned char*>(array.buffers[1])[place / 8] >> (place % 8)) & 1U) != 0;
}

[[noreturn]] void Refuse(const std::string& text)
{
    throw std::invalid_argument(text);
}

void Require(const ArrowSchema& schema, const char* format, const std::string& what, const char* wanted)
{
    if (schema.dictionary || std::strcmp(schema.format, format) != 0)
        Refuse(what + " must be " + wanted + ", not " + NameOfFormat(schema));
}

/// A text that is no UTF-8 is refused, and one that no form gives back whole.
QString TextOf(const Bytes& bytes, const QString& objectName)
{
    const auto size = static_cast<int>(bytes.size);
    const QString text = QString::fromUtf8(bytes.begin, size);
    if (text.toUtf8() != QByteArray::fromRawData(bytes.begin, size) || text.contains(QChar(QChar::Null)))
        throw RGException(QStringLiteral("%1: a text that is no UTF-8, or holds a NUL").arg(objectName));
    return text.isNull() ? QLatin1String("") : text;
}

bool IsKeptByAll(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar character) {
        return character.unicode() >= ' ' && !character.isSurrogate();
    });
}

} // namespace

// --- The columns

ReportInput::ReportInput(const ArrowSchema& schema, const ArrowArray& array)
    : m_array(&array), m_values(AllColumns().size())
{
    Require(schema, "+s", "the table", "a structure");
    for (std::int64_t i = 0; i < schema.n_children; ++i) {
        if (array.n_children > i)
            Take(*schema.children[i], *array.children[i]);
    }
}

void ReportInput::Take(const ArrowSchema& schema, const ArrowArray& array)
{
    const std::string name = schema.name ? schema.name : "";
    const auto column = std::find_if(AllColumns().begin(), AllColumns().end(),
                                     [&name](const ReportColumn& one) { return one.type.name == name; });
    if (column == AllColumns().end() || column->kind == ColumnKind::Shape)
        return;
    if (column->kind == ColumnKind::Points) {
        TakePoints(schema, array);
        return;
    }
    Column& taken = column->value < 0 ? m_problems : m_values[static_cast<std::size_t>(column->value)];
    const std::string what = "the column '" + name + "'";
    // A column without any value has no type of its own in some programs.
    if (std::strcmp(schema.format, "n") == 0)
        return;
    taken.array = &array;
    if (column->kind == ColumnKind::Number)
        Require(schema, "g", what, "double");
    else if (column->kind == ColumnKind::Switch)
        Require(schema, "b", what, "bool");
    else
        taken.texts.emplace(schema, array, what);
}

void ReportInput::TakePoints(const ArrowSchema& schema, const ArrowArray& array)
{
    const std::string what = "the column '" + std::string(schema.name) + "'";
    if (std::strcmp(schema.format, "n") == 0)
        return;
    m_hasWideLists = std::strcmp(schema.format, "+L") == 0;
    if (!m_hasWideLists)
        Require(schema, "+l", what, "lists");
    const ArrowSchema& point = *schema.children[0];
    Require(point, "+s", what, "lists of structures");
    m_point = array.children[0];
    for (const ColumnType& wanted :
         AllColumns()[static_cast<std::size_t>(PointsColumn())].type.children.front().children) {
        std::int64_t i = 0;
        while (i < point.n_children && wanted.name != point.children[i]->name)
            ++i;
        if (i == point.n_children)
            Refuse(what + " lacks '" + wanted.name + "'");
        Require(*point.children[i], "g", what + ": '" + wanted.name + "'", "double");
        m_pointNumbers.push_back(m_point->children[i]);
    }
    m_points = &array;
}

bool ReportInput::IsThere(std::int64_t row) const
{
    if (!ReportColumns::IsThere(*m_array, row))
        return false;
    const auto holds = [&](const ArrowArray* array) {
        return array && ReportColumns::IsThere(*array, RowBelow(row));
    };
    return holds(m_points) || std::any_of(m_values.begin(), m_values.end(),
                                          [&](const Column& column) { return holds(column.array); });
}

bool ReportInput::HasProblem(std::int64_t row) const
{
    return m_problems.array && ReportColumns::IsThere(*m_array, row) &&
           ReportColumns::IsThere(*m_problems.array, RowBelow(row));
}

// --- A row

/// Walks the rows of the descriptions in writing order, with the columns of their values.
class ReportInput::Row
{
public:
    Row(const ReportInput& input, std::int64_t row) : m_input(input), m_row(input.RowBelow(row)) {}

    bool HasPlainTexts() const { return m_hasPlainTexts; }

    /// Returns whether the row says anything of the object.
    template <class Data>
    bool Read(Data& data)
    {
        bool isAnySet = false;
        REPORTGENERATOR::ForEachField(Schema<Data>::FIELDS, [&](const auto& row) {
            const bool isSet = Put(data, row);
            isAnySet = isAnySet || isSet;
        });
        return isAnySet;
    }

private:
    template <class Data, class D, class T>
    bool Put(Data& data, const REPORTGENERATOR::ScalarField<D, T, REPORTGENERATOR::PresenceBit>& row)
    {
        const Column& column = m_input.m_values[m_next++];
        if (!column.array || !ReportColumns::IsThere(*column.array, m_row))
            return false;
        T value{};
        Get(column, value, Schema<Data>::NAME.Text());
        PutAdmitted<Data>(data, row, value);
        return true;
    }

    /// The library writes its own.
    template <class Data>
    bool Put(Data& /*data*/, const REPORTGENERATOR::FormatVersion<Data>& /*row*/)
    {
        ++m_next;
        return false;
    }

    template <class Data, class Object>
    bool Put(Data& data, const REPORTGENERATOR::Member<Data, Object>& row)
    {
        const bool isSet = Read(RecordAccess::Make(row.In(data)));
        if (isSet)
            REPORTGENERATOR::SetFlag(data, row.setBy);
        return isSet;
    }

    template <class Data>
    bool Put(Data& data, const REPORTGENERATOR::ItemList<Data, Coordinate>& row)
    {
        if (!m_input.m_points || !ReportColumns::IsThere(*m_input.m_points, m_row))
            return false;
        const auto [begin, end] = Between();
        QVector<Coordinate> points(static_cast<int>(end - begin));
        std::int64_t place = begin;
        for (Coordinate& point : points)
            ReadPoint(RecordAccess::Make(point), place++);
        // A list without points is none to those who read the report.
        if (points.isEmpty())
            return true;
        row.In(data).Take(points);
        REPORTGENERATOR::SetFlag(data, row.setBy);
        return true;
    }

    std::pair<std::int64_t, std::int64_t> Between() const
    {
        const ArrowArray& lists = *m_input.m_points;
        const std::int64_t place = lists.offset + m_row;
        if (m_input.m_hasWideLists) {
            const auto* const ends = static_cast<const std::int64_t*>(lists.buffers[1]);
            return {ends[place], ends[place + 1]};
        }
        const auto* const ends = static_cast<const std::int32_t*>(lists.buffers[1]);
        return {ends[place], ends[place + 1]};
    }

    void ReadPoint(REPORTGENERATOR::CoordinateData& data, std::int64_t place)
    {
        const std::int64_t below = m_input.m_point->offset + place;
        std::size_t number = 0;
        REPORTGENERATOR::ForEachField(Schema<REPORTGENERATOR::CoordinateData>::FIELDS, [&](const auto& row) {
            const ArrowArray& numbers = *m_input.m_pointNumbers[number++];
            if (ReportColumns::IsThere(*m_input.m_point, place) && ReportColumns::IsThere(numbers, below))
                PutAdmitted<REPORTGENERATOR::CoordinateData>(data, row, NumberAt(numbers, below));
        });
        if (!REPORTGENERATOR::AreMandatoryFieldsSet(&data, Schema<REPORTGENERATOR::CoordinateData>::FIELDS))
            throw RGException(QStringLiteral("a point lacks a number"));
    }

    template <class Data, class D, class T>
    void PutAdmitted(Data& data, const REPORTGENERATOR::ScalarField<D, T, REPORTGENERATOR::PresenceBit>& row,
                     const T& value)
    {
        if (REPORTGENERATOR::PutValue(data, row, value))
            return;
        if constexpr (!std::is_same_v<T, bool>) {
            const typename Schema<Data>::Object object;
            throw RGException(OutOfRangeException(REPORTGENERATOR::NotAdmitted(object, row, value)));
        }
    }

    void Get(const Column& column, double& value, const QString& /*objectName*/) const
    {
        value = NumberAt(*column.array, m_row);
    }
    void Get(const Column& column, bool& value, const QString& /*objectName*/) const
    {
        value = SwitchAt(*column.array, m_row);
    }
    void Get(const Column& column, QString& value, const QString& objectName)
    {
        value = TextOf(column.texts->At(m_row), objectName);
        m_hasPlainTexts = m_hasPlainTexts && IsKeptByAll(value);
    }

    const ReportInput& m_input;
    const std::int64_t m_row;
    std::size_t m_next = 0;
    bool m_hasPlainTexts = true;
};

bool ReportInput::Read(std::int64_t row, ReportBaseData& data) const
{
    Row reading(*this, row);
    reading.Read(data);
    return reading.HasPlainTexts();
}

} // namespace ReportColumns
