#include <reporttool/showmap.h>

#include <reportgenerator/reflection/texts.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace ReportTool {

using ReportCore::Geometry;
using ReportCore::NumberText;
using ReportCore::Point;
using ReportCore::Points;

namespace {

constexpr int MOST_COLUMNS = 64;
constexpr int MOST_ROWS = 24;

/// A character is about twice as high as it is wide.
constexpr double HEIGHT_OF_CHARACTER = 2.0;

constexpr char OUTLINE = '*';
constexpr char INSIDE = '.';

class Grid
{
public:
    explicit Grid(const Geometry& geometry) : m_points(geometry.parts.front())
    {
        FindBounds();
        const double narrowing = ReportCore::Narrowing((m_south + m_north) / 2.0);
        const double width = (m_east - m_west) * narrowing;
        const double height = m_north - m_south;
        const double cell =
            std::max(width / (MOST_COLUMNS - 1), height / HEIGHT_OF_CHARACTER / (MOST_ROWS - 1));
        if (cell > 0.0) {
            m_columns = static_cast<int>(std::lround(width / cell)) + 1;
            m_rows = static_cast<int>(std::lround(height / HEIGHT_OF_CHARACTER / cell)) + 1;
        }
        m_lines =
            std::vector<QString>(static_cast<std::size_t>(m_rows), QString(m_columns, QLatin1Char(' ')));
        if (geometry.shape == Geometry::Shape::Area)
            Fill();
        DrawOutline();
    }

    QStringList Lines() const
    {
        const QString border = QLatin1Char('+') + QString(m_columns, QLatin1Char('-')) + QLatin1Char('+');
        QStringList lines{border};
        for (const QString& line : m_lines)
            lines << QLatin1Char('|') + line + QLatin1Char('|');
        lines << border;
        lines[1] += QLatin1Char(' ') + NumberText(m_north);
        if (m_rows > 1)
            lines[m_rows] += QLatin1Char(' ') + NumberText(m_south);
        const QString west = NumberText(ReportCore::Within(m_west));
        const QString east = m_columns > 1 ? NumberText(ReportCore::Within(m_east)) : QString();
        const auto gap = std::max<int>(m_columns + 1 - static_cast<int>(west.size() + east.size()), 1);
        lines << QLatin1Char(' ') + (west + QString(gap - 1, QLatin1Char(' ')) + east).trimmed();
        return lines;
    }

private:
    void FindBounds()
    {
        m_west = m_east = m_points.front().longitude;
        m_south = m_north = m_points.front().latitude;
        for (const Point& point : m_points) {
            m_west = std::min(m_west, point.longitude);
            m_east = std::max(m_east, point.longitude);
            m_south = std::min(m_south, point.latitude);
            m_north = std::max(m_north, point.latitude);
        }
    }

    double ColumnOf(double longitude) const
    {
        return m_columns == 1 ? 0.0 : (longitude - m_west) / (m_east - m_west) * (m_columns - 1);
    }

    double RowOf(double latitude) const
    {
        return m_rows == 1 ? 0.0 : (m_north - latitude) / (m_north - m_south) * (m_rows - 1);
    }

    void Set(double column, double row, char character)
    {
        m_lines[static_cast<std::size_t>(std::lround(row))][static_cast<int>(std::lround(column))] =
            QLatin1Char(character);
    }

    /// In each row what stands between two crossings with the outline, in pairs from the west.
    void Fill()
    {
        for (int row = 0; row < m_rows; ++row) {
            std::vector<double> crossings;
            for (std::size_t i = 0; i + 1 < m_points.size(); ++i)
                AddCrossing(m_points[i], m_points[i + 1], row, crossings);
            std::sort(crossings.begin(), crossings.end());
            for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
                for (auto column = std::lround(std::ceil(crossings[i]));
                     static_cast<double>(column) <= crossings[i + 1]; ++column)
                    Set(static_cast<double>(column), row, INSIDE);
            }
        }
    }

    void AddCrossing(const Point& from, const Point& to, int row, std::vector<double>& crossings) const
    {
        const double begin = RowOf(from.latitude);
        const double end = RowOf(to.latitude);
        if ((begin <= row) == (end <= row))
            return;
        const double part = (row - begin) / (end - begin);
        crossings.push_back(ColumnOf(from.longitude + part * (to.longitude - from.longitude)));
    }

    void DrawOutline()
    {
        for (std::size_t i = 0; i < m_points.size(); ++i) {
            const Point& from = m_points[i];
            const Point& to = m_points[std::min(i + 1, m_points.size() - 1)];
            const double column = ColumnOf(from.longitude);
            const double row = RowOf(from.latitude);
            const double columns = ColumnOf(to.longitude) - column;
            const double rows = RowOf(to.latitude) - row;
            const auto steps =
                std::max(std::lround(std::ceil(std::max(std::abs(columns), std::abs(rows)))), 1L);
            for (long step = 0; step <= steps; ++step) {
                const auto done = static_cast<double>(step);
                const auto all = static_cast<double>(steps);
                Set(column + columns * done / all, row + rows * done / all, OUTLINE);
            }
        }
    }

    const Points& m_points;
    double m_west = 0.0;
    double m_east = 0.0;
    double m_south = 0.0;
    double m_north = 0.0;
    int m_columns = 1;
    int m_rows = 1;
    std::vector<QString> m_lines;
};

} // namespace

QStringList MapLines(const Points& outline)
{
    const Geometry geometry = ReportCore::UncutGeometryOf(outline);
    return geometry.parts.empty() ? QStringList() : Grid(geometry).Lines();
}

} // namespace ReportTool
