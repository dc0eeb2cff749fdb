#include <reporttool/layouts.h>

#include <algorithm>
#include <iterator>

namespace ReportTool {

namespace {

namespace wire = REPORTGENERATOR::wire;
namespace tag = wire::tag;

constexpr ElementType FREQUENCY_TYPES[] = {{tag::MIN, "min", PayloadType::Utf8, nullptr},
                                           {tag::MAX, "max", PayloadType::Utf8, nullptr},
                                           {tag::USE, "use", PayloadType::Bool, nullptr},
                                           {tag::VALUE, "value", PayloadType::Utf8, nullptr}};
constexpr Layout FREQUENCY = {wire::FREQUENCY, FREQUENCY_TYPES, std::size(FREQUENCY_TYPES)};

constexpr ElementType BANDWIDTH_TYPES[] = {{tag::MIN, "min", PayloadType::Utf8, nullptr},
                                           {tag::MAX, "max", PayloadType::Utf8, nullptr},
                                           {tag::VALUE, "value", PayloadType::Utf8, nullptr}};
constexpr Layout BANDWIDTH = {wire::IF_BANDWIDTH, BANDWIDTH_TYPES, std::size(BANDWIDTH_TYPES)};

constexpr ElementType COORDINATE_TYPES[] = {{tag::LONGITUDE, "longitude", PayloadType::Utf8, nullptr},
                                            {tag::LATITUDE, "latitude", PayloadType::Utf8, nullptr}};
constexpr Layout COORDINATE = {wire::COORDINATE, COORDINATE_TYPES, std::size(COORDINATE_TYPES)};

constexpr ElementType AREA_TYPES[] = {
    {tag::AREA_VERSION, "version", PayloadType::Utf16, nullptr},
    {tag::AREA_NAME, "name", PayloadType::Utf8, nullptr},
    {tag::AREA_COORDINATES, "coordinates", PayloadType::Coordinates, &COORDINATE},
    {tag::AREA_SCRIPT_ID, "script identifier", PayloadType::Utf8, nullptr}};
constexpr Layout AREA = {wire::AREA, AREA_TYPES, std::size(AREA_TYPES)};

constexpr ElementType REPORT_TYPES[] = {
    {tag::REPORT_FREQUENCY, "frequency", PayloadType::Object, &FREQUENCY},
    {tag::REPORT_IF_BANDWIDTH, "IF bandwidth", PayloadType::Object, &BANDWIDTH},
    {tag::REPORT_AREA, "area", PayloadType::Object, &AREA}};
constexpr Layout REPORT = {wire::REPORT, REPORT_TYPES, std::size(REPORT_TYPES)};

constexpr const Layout* LAYOUTS[] = {&REPORT, &FREQUENCY, &BANDWIDTH, &AREA, &COORDINATE};

} // namespace

const Layout* FindLayout(const QString& objectName)
{
    const auto* const found =
        std::find_if(std::cbegin(LAYOUTS), std::cend(LAYOUTS),
                     [&objectName](const Layout* layout) { return objectName == layout->objectName; });
    return found == std::cend(LAYOUTS) ? nullptr : *found;
}

const ElementType* FindType(const Layout* layout, qint32 tag)
{
    if (!layout)
        return nullptr;
    const ElementType* const end = layout->types + layout->count;
    const ElementType* const found =
        std::find_if(layout->types, end, [tag](const ElementType& type) { return type.tag == tag; });
    return found == end ? nullptr : found;
}

} // namespace ReportTool
