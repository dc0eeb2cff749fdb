#ifndef TESTS_COLUMNS_ARRAYS_H
#define TESTS_COLUMNS_ARRAYS_H

// Arrow arrays to try the columns with, and a look into those that come out.
//
//     const Given given({QByteArray("<ReportBase/>"), std::nullopt});
//     const Taken rows(ReportColumns::Decode(given.Input(), {}).front());
//     EXPECT_EQ(rows.Text("problem", 0), std::nullopt);

#include <columns/arrowowner.h>
#include <columns/column.h>
#include <columns/columntable.h>
#include <columns/inputcolumn.h>

#include <QtCore/QByteArray>

#include <optional>
#include <string>
#include <vector>

namespace ColumnTest {

/// An array of bytes.
class Given
{
public:
    explicit Given(const std::vector<std::optional<QByteArray>>& values);

    ReportColumns::BytesInput Input() const { return {*m_schema, *m_array, "the column"}; }
    const ArrowSchema& Schema() const { return *m_schema; }
    const ArrowArray& Array() const { return *m_array; }

private:
    ReportColumns::OwnedSchema m_schema;
    ReportColumns::OwnedArray m_array;
};

/// A batch as others see it.
class Taken
{
public:
    explicit Taken(const ReportColumns::SharedValues& values,
                   const ReportColumns::ColumnType& type = ReportColumns::ColumnChoice().Type());

    const ArrowSchema& Schema() const { return *m_schema; }
    const ArrowArray& Array() const { return *m_array; }
    std::int64_t Rows() const { return m_array->length; }

    const ArrowArray& Column(const std::string& name) const;
    std::optional<double> Number(const std::string& column, std::int64_t row) const;
    std::optional<bool> Switch(const std::string& column, std::int64_t row) const;
    std::optional<std::string> Text(const std::string& column, std::int64_t row) const;
    std::optional<std::vector<double>> Points(std::int64_t row) const; ///< longitude, latitude, longitude, …

    /// All values of a row, for comparing.
    std::string Row(std::int64_t row) const;

private:
    ReportColumns::OwnedSchema m_schema;
    ReportColumns::OwnedArray m_array;
};

/// Of an array of bytes.
std::vector<std::optional<QByteArray>> ValuesOf(const ReportColumns::SharedValues& bytes);

} // namespace ColumnTest

#endif
