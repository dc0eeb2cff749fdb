// The table that reports are decoded into, as others see it: its columns are a promise to those who keep them.

#include "arrays.h"

#include <gmock/gmock.h>

#include <cstring>
#include <map>
#include <stdexcept>

namespace {

using namespace ReportColumns;
using testing::ElementsAre;
using testing::Pair;

std::vector<std::string> Lines(const ColumnType& type)
{
    OwnedSchema schema;
    ExportSchema(type, schema.Get());
    std::vector<std::string> lines;
    for (std::int64_t i = 0; i < schema->n_children; ++i) {
        const ArrowSchema& child = *schema->children[i];
        lines.push_back(std::string(child.name) + ' ' + child.format +
                        ((child.flags & ARROW_FLAG_NULLABLE) != 0 ? "" : " not null"));
    }
    return lines;
}

/// As the interface has them: a count, then keys and values, each with its size in front.
std::map<std::string, std::string> Metadata(const char* bytes)
{
    std::map<std::string, std::string> all;
    const auto number = [&bytes] {
        std::int32_t value = 0;
        std::memcpy(&value, bytes, sizeof value);
        bytes += sizeof value;
        return value;
    };
    const auto text = [&] {
        const auto size = static_cast<std::size_t>(number());
        const std::string value(bytes, size);
        bytes += size;
        return value;
    };
    for (std::int32_t count = bytes ? number() : 0; count > 0; --count) {
        const std::string key = text();
        all[key] = text();
    }
    return all;
}

const ArrowSchema& Child(const OwnedSchema& schema, const std::string& name)
{
    for (std::int64_t i = 0; i < schema->n_children; ++i) {
        if (name == schema->children[i]->name)
            return *schema->children[i];
    }
    throw std::out_of_range(name);
}

TEST(ColumnsSchema, ColumnsHaveFixedNamesAndTypes)
{
    EXPECT_THAT(Lines(ColumnChoice().Type()),
                ElementsAre("frequency_value g", "frequency_min g", "frequency_max g", "frequency_use b",
                            "ifBandwidth_value g", "ifBandwidth_min g", "ifBandwidth_max g", "area_name u",
                            "area_version u", "area_scriptId u", "area z", "points +l", "problem u"));
}

TEST(ColumnsSchema, MetadataTellUnitsAndCoordinateSystem)
{
    OwnedSchema schema;
    ExportSchema(ColumnChoice().Type(), schema.Get());
    EXPECT_THAT(Metadata(Child(schema, "frequency_min").metadata), ElementsAre(Pair("unit", "Hz")));
    EXPECT_THAT(Metadata(Child(schema, "ifBandwidth_value").metadata), ElementsAre(Pair("unit", "Hz")));
    EXPECT_EQ(Child(schema, "frequency_use").metadata, nullptr);
    EXPECT_THAT(
        Metadata(Child(schema, "area").metadata),
        ElementsAre(Pair("ARROW:extension:metadata", R"({"crs":"OGC:CRS84","crs_type":"authority_code"})"),
                    Pair("ARROW:extension:name", "geoarrow.wkb")));
    const ArrowSchema& point = *Child(schema, "points").children[0];
    EXPECT_STREQ(point.format, "+s");
    ASSERT_EQ(point.n_children, 2);
    EXPECT_STREQ(point.children[0]->name, "longitude");
    EXPECT_STREQ(point.children[1]->name, "latitude");
    EXPECT_THAT(Metadata(point.children[1]->metadata), ElementsAre(Pair("unit", "degree")));
}

TEST(ColumnsSchema, SomeColumnsComeInTheOrderOfAll)
{
    EXPECT_THAT(Lines(ColumnChoice({"problem", "area", "frequency_value"}).Type()),
                ElementsAre("frequency_value g", "area z", "problem u"));
    EXPECT_THAT(Lines(ColumnChoice({"problem"}).Type({{"u", "file", false}})),
                ElementsAre("file u not null", "problem u"));
    EXPECT_THROW(ColumnChoice({"frequency"}), std::invalid_argument);
}

} // namespace
