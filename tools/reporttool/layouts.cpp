#include <reporttool/layouts.h>

#include <algorithm>
#include <iterator>

namespace ReportTool {

namespace {

constexpr ElementType FREQUENCY_TYPES[] = {{0x4ECB4E58, "min", PayloadType::Utf8, nullptr},
                                           {0x6E8DD7F5, "max", PayloadType::Utf8, nullptr},
                                           {0xAA39C731, "use", PayloadType::Bool, nullptr},
                                           {0x8AFF57B3, "value", PayloadType::Utf8, nullptr}};
constexpr Layout FREQUENCY = {"Frequency", FREQUENCY_TYPES, std::size(FREQUENCY_TYPES)};

constexpr ElementType BANDWIDTH_TYPES[] = {{0x4ECB4E58, "min", PayloadType::Utf8, nullptr},
                                           {0x6E8DD7F5, "max", PayloadType::Utf8, nullptr},
                                           {0x8AFF57B3, "value", PayloadType::Utf8, nullptr}};
constexpr Layout BANDWIDTH = {"IFBandwidth", BANDWIDTH_TYPES, std::size(BANDWIDTH_TYPES)};

constexpr ElementType COORDINATE_TYPES[] = {{0x247E7491, "longitude", PayloadType::Utf8, nullptr},
                                            {0xCB2F4B76, "latitude", PayloadType::Utf8, nullptr}};
constexpr Layout COORDINATE = {"Coordinate", COORDINATE_TYPES, std::size(COORDINATE_TYPES)};

constexpr ElementType AREA_TYPES[] = {{0xCCFEDFA1, "version", PayloadType::Utf16, nullptr},
                                      {0x8C9FBCA8, "name", PayloadType::Utf8, nullptr},
                                      {0x6F69083F, "coordinates", PayloadType::Coordinates, &COORDINATE},
                                      {0xC22211A9, "script identifier", PayloadType::Utf8, nullptr}};
constexpr Layout AREA = {"Area", AREA_TYPES, std::size(AREA_TYPES)};

constexpr ElementType REPORT_TYPES[] = {{0xCF452ADA, "frequency", PayloadType::Object, &FREQUENCY},
                                        {0xCA8F8C7C, "IF bandwidth", PayloadType::Object, &BANDWIDTH},
                                        {0xA838BE37, "area", PayloadType::Object, &AREA}};
constexpr Layout REPORT = {"ReportBase", REPORT_TYPES, std::size(REPORT_TYPES)};

constexpr const Layout* LAYOUTS[] = {&REPORT, &FREQUENCY, &BANDWIDTH, &AREA, &COORDINATE};

} // namespace

const Layout* FindLayout(const QString& objectName)
{
    const auto* const found =
        std::find_if(std::cbegin(LAYOUTS), std::cend(LAYOUTS), [&objectName](const Layout* layout) {
            return objectName == QLatin1String(layout->objectName);
        });
    return found == std::cend(LAYOUTS) ? nullptr : *found;
}

const ElementType* FindType(const Layout* layout, quint32 tag)
{
    if (!layout)
        return nullptr;
    const ElementType* const end = layout->types + layout->count;
    const ElementType* const found =
        std::find_if(layout->types, end, [tag](const ElementType& type) { return type.tag == tag; });
    return found == end ? nullptr : found;
}

} // namespace ReportTool
