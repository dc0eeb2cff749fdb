#include "samples.h"

#include "support/recordelements.h"
#include "support/vectors.h"

namespace ToolTest {

using Support::Bytes;

namespace {

constexpr char FULL[] = "reportbase/frequency_bandwidth_area";

/// Marker and object name with their sizes.
constexpr int FRAME_OF_PLAIN = 4 + 18 + 4 + 20;

QString FileOf(const char* suffix)
{
    return QLatin1String(FULL) + QLatin1String(suffix);
}

} // namespace

QByteArray FullXml()
{
    return Support::LoadXmlVector(FileOf(".xml")).toUtf8();
}

QByteArray FullPlain()
{
    return Support::LoadVector(FileOf(".hex")).Data();
}

QByteArray FullCompressed()
{
    return Support::LoadVector(FileOf(".zhex")).Data();
}

QByteArray InFile(const QByteArray& representation)
{
    return Support::BinaryFile(Support::Raw(representation.toStdString())).Data();
}

QByteArray FullBody()
{
    return FullPlain().mid(FRAME_OF_PLAIN);
}

QByteArray Plain(const Bytes& elements)
{
    return Support::Representation(u"ReportBase", elements).Data();
}

QByteArray NamedAreaXml(const char* name)
{
    return QByteArray("<ReportBase><Area Version=\"1.0\"><Name>") + name +
           "</Name><Coordinate><Longitude>8.5</Longitude><Latitude>47.25</Latitude></Coordinate></Area>"
           "</ReportBase>";
}

Bytes NamedArea(std::string_view name)
{
    return Support::AreaElement(Support::Version(u"1.0") + Support::Name(name) +
                                Support::Coordinates(1, Support::Point("8.500000", "47.250000")));
}

} // namespace ToolTest
