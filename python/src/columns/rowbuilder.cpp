#include "rowbuilder.h"

#include "shape.h"

#include <algorithm>
#include <utility>

namespace ReportColumns {

using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::RecordAccess;
using REPORTGENERATOR::ReportBaseData;
using REPORTGENERATOR::Schema;

namespace {

constexpr std::size_t MOST_BYTES = std::size_t(128) << 20;
constexpr std::size_t MOST_POINTS = MOST_BYTES / (2 * sizeof(double));

} // namespace

RowBuilder::RowBuilder(const ColumnChoice& choice)
    : m_choice(choice), m_numbers(AllColumns().size()), m_switches(AllColumns().size()),
      m_texts(AllColumns().size())
{
}

bool RowBuilder::IsFull() const
{
    std::size_t bytes = m_shapes.Size() + m_problems.Size();
    for (const BytesBuilder& text : m_texts)
        bytes += text.Size();
    return bytes >= MOST_BYTES || m_points.Count() >= MOST_POINTS;
}

void RowBuilder::Reserve()
{
    const auto reserve = [](auto& builder) { builder.Reserve(); };
    std::for_each(m_numbers.begin(), m_numbers.end(), reserve);
    std::for_each(m_switches.begin(), m_switches.end(), reserve);
    std::for_each(m_texts.begin(), m_texts.end(), reserve);
    m_shapes.Reserve();
    m_points.Reserve();
    m_problems.Reserve();
}

void RowBuilder::AppendReport(const ReportBaseData& data)
{
    PutRows(&data);
    if (m_choice.Has(ProblemColumn()))
        m_problems.AppendNull();
}

void RowBuilder::AppendProblem(const QString& problem)
{
    PutRows<ReportBaseData>(nullptr);
    if (m_choice.Has(ProblemColumn()))
        m_problems.Append(problem);
}

void RowBuilder::AppendNull()
{
    PutRows<ReportBaseData>(nullptr);
    if (m_choice.Has(ProblemColumn()))
        m_problems.AppendNull();
}

template <class Data>
void RowBuilder::PutRows(const Data* data)
{
    if constexpr (std::is_same_v<Data, ReportBaseData>) {
        m_next = 0;
        ++m_rows;
    }
    REPORTGENERATOR::ForEachField(Schema<Data>::FIELDS, [&](const auto& row) { Put(data, row); });
}

template <class Data, class D, class T>
void RowBuilder::Put(const Data* data,
                     const REPORTGENERATOR::ScalarField<D, T, REPORTGENERATOR::PresenceBit>& row)
{
    PutValue(data && row.IsSetIn(*data) ? &row.In(*data) : nullptr);
}

template <class Data>
void RowBuilder::Put(const Data* data, const REPORTGENERATOR::FormatVersion<Data>& row)
{
    const QString* const version = data ? &(data->*(row.loaded)) : nullptr;
    PutValue(version && !version->isEmpty() ? version : nullptr);
}

template <class Data, class Object>
void RowBuilder::Put(const Data* data, const REPORTGENERATOR::Member<Data, Object>& row)
{
    PutRows<typename Object::RecordData>(data && row.IsSetIn(*data) ? RecordAccess::Get(row.In(*data))
                                                                    : nullptr);
}

template <class Data>
void RowBuilder::Put(const Data* data, const REPORTGENERATOR::ItemList<Data, Coordinate>& row)
{
    const QVector<Coordinate>* const points = data && row.IsSetIn(*data) ? &row.In(*data).Values() : nullptr;
    if (m_choice.Has(ShapeColumn()))
        PutShape(points);
    if (m_choice.Has(PointsColumn()))
        PutPoints(points);
}

void RowBuilder::PutValue(const double* value)
{
    const std::size_t place = m_next++;
    if (!m_choice.Has(ColumnOfValue(static_cast<int>(place))))
        return;
    if (value)
        m_numbers[place].Append(*value);
    else
        m_numbers[place].AppendNull();
}

void RowBuilder::PutValue(const bool* value)
{
    const std::size_t place = m_next++;
    if (!m_choice.Has(ColumnOfValue(static_cast<int>(place))))
        return;
    if (value)
        m_switches[place].Append(*value);
    else
        m_switches[place].AppendNull();
}

void RowBuilder::PutValue(const QString* value)
{
    const std::size_t place = m_next++;
    if (!m_choice.Has(ColumnOfValue(static_cast<int>(place))))
        return;
    if (value)
        m_texts[place].Append(*value);
    else
        m_texts[place].AppendNull();
}

void RowBuilder::PutPoints(const QVector<Coordinate>* points)
{
    if (!points) {
        m_points.AppendNull();
        return;
    }
    for (const Coordinate& point : *points) {
        const auto& data = *RecordAccess::Get(point);
        m_points.AppendPoint(data.longitude, data.latitude);
    }
    m_points.EndRow();
}

void RowBuilder::PutShape(const QVector<Coordinate>* points)
{
    m_outline.clear();
    if (points) {
        for (const Coordinate& point : *points) {
            const auto& data = *RecordAccess::Get(point);
            m_outline.push_back({data.longitude, data.latitude, 0});
        }
    }
    if (ReportColumns::PutShape(m_shapes.Room(), m_outline))
        m_shapes.EndRow();
    else
        m_shapes.AppendNull();
}

ColumnValues RowBuilder::Finish(std::vector<ColumnValues> further)
{
    ColumnValues rows;
    rows.length = std::exchange(m_rows, 0);
    rows.buffers.emplace_back();
    rows.children = std::move(further);
    for (std::size_t i = 0; i < AllColumns().size(); ++i) {
        const int column = static_cast<int>(i);
        if (!m_choice.Has(column))
            continue;
        const auto value = static_cast<std::size_t>(AllColumns()[i].value);
        if (column == ProblemColumn())
            rows.children.push_back(m_problems.Finish());
        else if (AllColumns()[i].kind == ColumnKind::Shape)
            rows.children.push_back(m_shapes.Finish());
        else if (AllColumns()[i].kind == ColumnKind::Points)
            rows.children.push_back(m_points.Finish());
        else if (AllColumns()[i].kind == ColumnKind::Number)
            rows.children.push_back(m_numbers[value].Finish());
        else if (AllColumns()[i].kind == ColumnKind::Switch)
            rows.children.push_back(m_switches[value].Finish());
        else
            rows.children.push_back(m_texts[value].Finish());
    }
    return rows;
}

} // namespace ReportColumns
