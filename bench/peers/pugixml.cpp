#include "peers/peers.h"
#include "suite.h"

#include <pugixml.hpp>

namespace Bench {

namespace {

/// Enough for six decimals of a coordinate.
constexpr int SIGNIFICANT_DIGITS = 9;

struct StringWriter final : pugi::xml_writer
{
    void write(const void* data, std::size_t size) override
    {
        text.append(static_cast<const char*>(data), size);
    }

    std::string text;
};

void AppendNumber(pugi::xml_node& parent, const char* name, double number)
{
    parent.append_child(name).text().set(number, SIGNIFICANT_DIGITS);
}

double NumberOf(const pugi::xml_node& parent, const char* name)
{
    return parent.child(name).text().as_double();
}

void AppendArea(pugi::xml_node& root, const PlainReport& report)
{
    pugi::xml_node area = root.append_child("Area");
    area.append_child("Name").text().set(report.areaName.toUtf8().constData());
    for (const Point& point : report.points) {
        pugi::xml_node coordinate = area.append_child("Coordinate");
        AppendNumber(coordinate, "Longitude", point.longitude);
        AppendNumber(coordinate, "Latitude", point.latitude);
    }
}

std::string Write(const PlainReport& report)
{
    pugi::xml_document document;
    pugi::xml_node root = document.append_child("ReportBase");

    pugi::xml_node frequency = root.append_child("Frequency");
    frequency.append_attribute("Min").set_value(report.frequencyMin);
    frequency.append_attribute("Max").set_value(report.frequencyMax);
    frequency.append_attribute("Use").set_value(report.frequencyUse);
    frequency.text().set(report.frequency);

    pugi::xml_node bandwidth = root.append_child("IFBandwidth");
    bandwidth.append_attribute("Min").set_value(report.bandwidthMin);
    bandwidth.text().set(report.bandwidth);

    if (report.HasArea())
        AppendArea(root, report);

    StringWriter writer;
    document.save(writer, "    ", pugi::format_indent | pugi::format_no_declaration, pugi::encoding_utf8);
    return std::move(writer.text);
}

PlainReport Read(const std::string& text)
{
    pugi::xml_document document;
    document.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
    const pugi::xml_node root = document.child("ReportBase");

    PlainReport report;
    const pugi::xml_node frequency = root.child("Frequency");
    report.frequencyMin = frequency.attribute("Min").as_double();
    report.frequencyMax = frequency.attribute("Max").as_double();
    report.frequencyUse = frequency.attribute("Use").as_bool();
    report.frequency = frequency.text().as_double();

    const pugi::xml_node bandwidth = root.child("IFBandwidth");
    report.bandwidthMin = bandwidth.attribute("Min").as_double();
    report.bandwidth = bandwidth.text().as_double();

    const pugi::xml_node area = root.child("Area");
    report.areaName = QString::fromUtf8(area.child("Name").text().get());
    for (const pugi::xml_node& coordinate : area.children("Coordinate"))
        report.points.append({NumberOf(coordinate, "Longitude"), NumberOf(coordinate, "Latitude")});
    return report;
}

} // namespace

void AddPugixml(Suite& suite)
{
    suite.AddForm("pugixml", Contender<PlainReport>{"pugixml", Itself, Itself}, Write, Read);
}

} // namespace Bench
