#include "columntable.h"

#include <reportcore/areapoints.h>
#include <reportcore/exporting/feature.h>

#include <reportgenerator/reflection/reportfields.h>

#include <algorithm>
#include <stdexcept>

namespace ReportColumns {

using ReportCore::FieldKind;
using ReportCore::ObjectInfo;

namespace {

constexpr char SHAPE[] = "area";
constexpr char POINTS[] = "points";
constexpr char PROBLEM[] = "problem";

// Formats of Arrow's C data interface.
constexpr char FORMAT_NUMBER[] = "g";
constexpr char FORMAT_SWITCH[] = "b";
constexpr char FORMAT_TEXT[] = "u";
constexpr char FORMAT_BYTES[] = "z";
constexpr char FORMAT_LIST[] = "+l";
constexpr char FORMAT_STRUCTURE[] = "+s";

std::string Text(const QString& text)
{
    return text.toStdString();
}

/// For those who look at a schema: the unit in which a number is kept.
std::vector<std::pair<std::string, std::string>> MetadataOf(const ReportCore::Field& field)
{
    if (field.Kind() != FieldKind::Number)
        return {};
    switch (field.Facts().unit) {
    case REPORTGENERATOR::Unit::Hertz:
        return {{"unit", "Hz"}};
    case REPORTGENERATOR::Unit::Degrees:
        return {{"unit", "degree"}};
    case REPORTGENERATOR::Unit::None:
        break;
    }
    return {};
}

ColumnKind KindOf(FieldKind kind)
{
    switch (kind) {
    case FieldKind::Number:
        return ColumnKind::Number;
    case FieldKind::Switch:
        return ColumnKind::Switch;
    default:
        return ColumnKind::Text;
    }
}

const char* FormatOf(ColumnKind kind)
{
    switch (kind) {
    case ColumnKind::Number:
        return FORMAT_NUMBER;
    case ColumnKind::Switch:
        return FORMAT_SWITCH;
    default:
        return FORMAT_TEXT;
    }
}

/// The paths of the values in the order in which they are written.
void CollectPaths(const ObjectInfo& info, ReportCore::FieldPath& path, std::vector<QString>& paths)
{
    for (const auto& field : info.All()) {
        path.Enter(*field);
        if (field->Kind() == FieldKind::Object)
            CollectPaths(field->Object(), path, paths);
        else if (field->Kind() != FieldKind::List)
            paths.push_back(path.Text());
        path.Leave();
    }
}

std::vector<QString> PathsInWritingOrder()
{
    std::vector<QString> paths;
    ReportCore::FieldPath path;
    CollectPaths(ReportCore::ReportInfo(), path, paths);
    return paths;
}

ReportColumn ValueColumn(const ReportCore::PropertyType& property, const std::vector<QString>& paths)
{
    const ColumnKind kind = KindOf(property.kind);
    const auto found = std::find(paths.begin(), paths.end(), property.path.Text());
    const ColumnType type = {FormatOf(kind), Text(property.name), true,
                             MetadataOf(*property.path.Last().field)};
    return {kind, type, static_cast<int>(found - paths.begin())};
}

/// The area as programs for maps take it. Well-known binary, since areas of two points are lines, of one points, and those
/// across the antimeridian have several parts: no type of polygons alone holds them all.
ReportColumn ShapeColumnType()
{
    return {ColumnKind::Shape,
            {FORMAT_BYTES,
             SHAPE,
             true,
             {{"ARROW:extension:name", "geoarrow.wkb"},
              {"ARROW:extension:metadata", R"({"crs":"OGC:CRS84","crs_type":"authority_code"})"}}}};
}

/// The points as they stand in the area.
ReportColumn PointsColumnType()
{
    const ReportCore::Field& list = *ReportCore::PathOfPoints().Last().field;
    ColumnType point = {FORMAT_STRUCTURE, "item", false};
    for (const auto& field : list.Object().All())
        point.children.push_back({FORMAT_NUMBER, Text(field->Name()), false, MetadataOf(*field)});
    return {ColumnKind::Points, {FORMAT_LIST, POINTS, true, {}, {point}}};
}

} // namespace

const std::vector<ReportColumn>& AllColumns()
{
    static const std::vector<ReportColumn> columns = [] {
        std::vector<ReportColumn> all;
        const std::vector<QString> paths = PathsInWritingOrder();
        for (const ReportCore::PropertyType& property : ReportCore::PropertyTypes())
            all.push_back(ValueColumn(property, paths));
        all.push_back(ShapeColumnType());
        all.push_back(PointsColumnType());
        all.push_back({ColumnKind::Text, {FORMAT_TEXT, PROBLEM, true}});
        return all;
    }();
    return columns;
}

int ShapeColumn()
{
    return static_cast<int>(AllColumns().size()) - 3;
}

int PointsColumn()
{
    return static_cast<int>(AllColumns().size()) - 2;
}

int ProblemColumn()
{
    return static_cast<int>(AllColumns().size()) - 1;
}

int ColumnOfValue(int value)
{
    static const std::vector<int> positions = [] {
        std::vector<int> all(AllColumns().size());
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (AllColumns()[i].value >= 0)
                all[static_cast<std::size_t>(AllColumns()[i].value)] = static_cast<int>(i);
        }
        return all;
    }();
    return positions[static_cast<std::size_t>(value)];
}

ColumnChoice::ColumnChoice() : m_has(AllColumns().size(), true) {}

ColumnChoice::ColumnChoice(const std::vector<std::string>& names) : m_has(AllColumns().size(), false)
{
    for (const std::string& name : names) {
        const auto found = std::find_if(AllColumns().begin(), AllColumns().end(),
                                        [&name](const auto& column) { return column.type.name == name; });
        if (found == AllColumns().end())
            throw std::invalid_argument("no column is called '" + name + "'");
        m_has[static_cast<std::size_t>(found - AllColumns().begin())] = true;
    }
}

ColumnType ColumnChoice::Type(const std::vector<ColumnType>& further) const
{
    ColumnType type = {FORMAT_STRUCTURE, "", false};
    type.children = further;
    for (std::size_t i = 0; i < m_has.size(); ++i) {
        if (m_has[i])
            type.children.push_back(AllColumns()[i].type);
    }
    return type;
}

} // namespace ReportColumns
