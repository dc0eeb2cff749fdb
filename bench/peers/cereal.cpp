#include "peers/peers.h"
#include "suite.h"

#include <cereal/archives/binary.hpp>
#include <cereal/archives/xml.hpp>
#include <cereal/types/string.hpp>
#include <cereal/types/vector.hpp>

#include <sstream>

namespace Bench {

namespace {

struct CerealPoint
{
    double longitude = 0.0;
    double latitude = 0.0;

    template <class Archive>
    void serialize(Archive& archive)
    {
        archive(CEREAL_NVP(longitude), CEREAL_NVP(latitude));
    }
};

struct CerealReport
{
    double frequency = 0.0;
    double frequencyMin = 0.0;
    double frequencyMax = 0.0;
    bool frequencyUse = false;
    double bandwidth = 0.0;
    double bandwidthMin = 0.0;
    std::string areaName;
    std::vector<CerealPoint> points;

    template <class Archive>
    void serialize(Archive& archive)
    {
        archive(CEREAL_NVP(frequency), CEREAL_NVP(frequencyMin), CEREAL_NVP(frequencyMax),
                CEREAL_NVP(frequencyUse), CEREAL_NVP(bandwidth), CEREAL_NVP(bandwidthMin),
                CEREAL_NVP(areaName), CEREAL_NVP(points));
    }
};

CerealReport Fill(const PlainReport& plain)
{
    CerealReport report;
    report.frequency = plain.frequency;
    report.frequencyMin = plain.frequencyMin;
    report.frequencyMax = plain.frequencyMax;
    report.frequencyUse = plain.frequencyUse;
    report.bandwidth = plain.bandwidth;
    report.bandwidthMin = plain.bandwidthMin;
    report.areaName = plain.areaName.toStdString();
    for (const Point& point : plain.points)
        report.points.push_back({point.longitude, point.latitude});
    return report;
}

PlainReport Values(const CerealReport& report)
{
    PlainReport plain;
    plain.frequency = report.frequency;
    plain.frequencyMin = report.frequencyMin;
    plain.frequencyMax = report.frequencyMax;
    plain.frequencyUse = report.frequencyUse;
    plain.bandwidth = report.bandwidth;
    plain.bandwidthMin = report.bandwidthMin;
    plain.areaName = QString::fromStdString(report.areaName);
    for (const CerealPoint& point : report.points)
        plain.points.append({point.longitude, point.latitude});
    return plain;
}

/// Enough for six decimals of a coordinate.
constexpr int SIGNIFICANT_DIGITS = 9;

std::string WriteXml(const CerealReport& report)
{
    std::ostringstream stream;
    {
        const auto options = cereal::XMLOutputArchive::Options().precision(SIGNIFICANT_DIGITS);
        cereal::XMLOutputArchive archive(stream, options);
        archive(cereal::make_nvp("ReportBase", report));
    } // the archive writes when it is left
    return stream.str();
}

CerealReport ReadXml(const std::string& text)
{
    std::istringstream stream(text);
    cereal::XMLInputArchive archive(stream);
    CerealReport report;
    archive(cereal::make_nvp("ReportBase", report));
    return report;
}

std::string WriteBinary(const CerealReport& report)
{
    std::ostringstream stream;
    cereal::BinaryOutputArchive archive(stream);
    archive(report);
    return stream.str();
}

CerealReport ReadBinary(const std::string& bytes)
{
    std::istringstream stream(bytes);
    cereal::BinaryInputArchive archive(stream);
    CerealReport report;
    archive(report);
    return report;
}

} // namespace

void AddCereal(Suite& suite)
{
    suite.AddForm("cereal_xml", Contender<CerealReport>{"cereal_xml", Fill, Values}, WriteXml, ReadXml);
    suite.AddForm("cereal_binary", Contender<CerealReport>{"cereal_binary", Fill, Values}, WriteBinary,
                  ReadBinary);
}

} // namespace Bench
