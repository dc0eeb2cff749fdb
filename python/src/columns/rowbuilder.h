#ifndef REPORTCOLUMNS_ROWBUILDER_H
#define REPORTCOLUMNS_ROWBUILDER_H

#include "columnbuilder.h"
#include "columntable.h"

#include <reportcore/exporting/geometry.h>

#include <reportgenerator/reportbase/schema/reportbaseschema.h>

#include <string>
#include <vector>

namespace ReportColumns {

/// Reports, each a row of the chosen columns.
class RowBuilder
{
public:
    explicit RowBuilder(const ColumnChoice& choice);

    /// A good report.
    void AppendReport(const REPORTGENERATOR::ReportBaseData& data);

    /// What is wrong with one, whose values all are null.
    void AppendProblem(const QString& problem);

    /// Nothing but nulls.
    void AppendNull();

    std::int64_t Rows() const { return m_rows; }

    /// Whether no more rows are wanted, far below what 32 bits can count.
    bool IsFull() const;

    /// Room for a batch like the last one.
    void Reserve();

    /// The rows, with further columns of as many rows in front. The next batch begins with room for about as much.
    ColumnValues Finish(std::vector<ColumnValues> further = {});

private:
    template <class Data>
    void PutRows(const Data* data);

    // A row of a description for each kind. `data` is null for what isn't set as a whole.

    template <class Data, class D, class T>
    void Put(const Data* data, const REPORTGENERATOR::ScalarField<D, T, REPORTGENERATOR::PresenceBit>& row);
    template <class Data>
    void Put(const Data* data, const REPORTGENERATOR::FormatVersion<Data>& row);
    template <class Data, class Object>
    void Put(const Data* data, const REPORTGENERATOR::Member<Data, Object>& row);
    template <class Data>
    void Put(const Data* data, const REPORTGENERATOR::ItemList<Data, REPORTGENERATOR::Coordinate>& row);

    void PutValue(const double* value);
    void PutValue(const bool* value);
    void PutValue(const QString* value);
    void PutPoints(const QVector<REPORTGENERATOR::Coordinate>* points);
    void PutShape(const QVector<REPORTGENERATOR::Coordinate>* points);

    const ColumnChoice m_choice;

    // By the places of values in writing order; those of other kinds stay empty.
    std::vector<NumberBuilder> m_numbers;
    std::vector<SwitchBuilder> m_switches;
    std::vector<BytesBuilder> m_texts;

    BytesBuilder m_shapes;
    PointsBuilder m_points;
    BytesBuilder m_problems;

    std::int64_t m_rows = 0;
    std::size_t m_next = 0; ///< the value that comes next in a row
    ReportCore::Points m_outline;
};

} // namespace ReportColumns

#endif
