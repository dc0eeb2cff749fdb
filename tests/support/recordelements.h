#ifndef TESTS_SUPPORT_RECORDELEMENTS_H
#define TESTS_SUPPORT_RECORDELEMENTS_H

// The elements of the record-based classes in the tagged form, and the pieces of their raw forms.
//
//     EXPECT_BYTES(BodyOf(frequency), Element(1, Min("2.00") + Value("1.00")));
//     EXPECT_EQ(ReadElements(area, Version(u"1.0") + Name("Lake") + Coordinates(1, Point("1", "2"))), 0);

#include "support/bytes.h"
#include "support/records.h"

#include <string_view>

namespace Support {

// --- Frequency and IFBandwidth ----------------------------------------------------------------------------

inline Bytes Value(std::string_view number)
{
    return Element(Tag::FREQUENCY_VALUE, ByteArray(number));
}

inline Bytes Min(std::string_view number)
{
    return Element(Tag::FREQUENCY_MIN, ByteArray(number));
}

inline Bytes Max(std::string_view number)
{
    return Element(Tag::FREQUENCY_MAX, ByteArray(number));
}

inline Bytes Use(bool use)
{
    return Element(Tag::FREQUENCY_USE, Bool(use));
}

// --- Coordinate -------------------------------------------------------------------------------------------

inline Bytes Longitude(std::string_view number)
{
    return Element(Tag::COORDINATE_LONGITUDE, ByteArray(number));
}

inline Bytes Latitude(std::string_view number)
{
    return Element(Tag::COORDINATE_LATITUDE, ByteArray(number));
}

// --- Area -------------------------------------------------------------------------------------------------

inline Bytes Version(std::u16string_view version)
{
    return Element(Tag::AREA_VERSION, String(version));
}

inline Bytes Name(std::string_view name)
{
    return Element(Tag::AREA_NAME, ByteArray(name));
}

inline Bytes NullName()
{
    return Element(Tag::AREA_NAME, NullByteArray());
}

inline Bytes ScriptID(std::string_view scriptID)
{
    return Element(Tag::AREA_SCRIPT_ID, ByteArray(scriptID));
}

inline Bytes NullScriptID()
{
    return Element(Tag::AREA_SCRIPT_ID, NullByteArray());
}

/// A coordinate as it stands in the list of an area.
inline Bytes Point(std::string_view longitude, std::string_view latitude)
{
    return Body(Longitude(longitude) + Latitude(latitude));
}

inline Bytes Coordinates(long long count, const Bytes& points)
{
    return Element(Tag::AREA_COORDINATES, Int32(count) + points);
}

/// A coordinate as it stands in the raw form of an area.
inline Bytes RawPoint(int flags, double longitude, double latitude)
{
    return Byte(flags) + Double(longitude) + Double(latitude);
}

// --- ReportBase -------------------------------------------------------------------------------------------

inline Bytes FrequencyElement(std::string_view value)
{
    return Element(Tag::REPORT_FREQUENCY, Value(value));
}

inline Bytes BandwidthElement(std::string_view value)
{
    return Element(Tag::REPORT_IF_BANDWIDTH, Value(value));
}

inline Bytes AreaElement(const Bytes& elements)
{
    return Element(Tag::REPORT_AREA, elements);
}

} // namespace Support

#endif
