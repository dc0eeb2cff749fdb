#ifndef REPORTGENERATOR_CODEC_WIREFORMAT_H
#define REPORTGENERATOR_CODEC_WIREFORMAT_H

#include <reportgenerator/reportbase/codec/name.h>

/// The numbers and names of the wire forms, for the library and its tools alike. Programs and files hold all
/// of them.
namespace REPORTGENERATOR::wire {

// --- Streams

/// Version of every stream that the library writes and reads (that of Qt 4.6).
constexpr int STREAM_VERSION = 12;

/// Size of a tag, of a length and of a count.
constexpr qint64 WORD_SIZE = sizeof(qint32);

/// The size that stands for a text or byte array that is not there at all.
constexpr quint32 NULL_SIZE = 0xFFFFFFFF;

/// The most bytes that a byte of a deflate stream can stand for.
constexpr qint64 MAX_INFLATION = 1032;

// --- Frames

constexpr Name PLAIN_MARKER = REPORTBASE_NAME("IRGObject");
constexpr Name COMPRESSED_MARKER = REPORTBASE_NAME("IRGObjectQCompress");
constexpr qint32 ROOT_TAG = 1;

// --- Objects: their names, which are those of their elements too

constexpr Name REPORT = REPORTBASE_NAME("ReportBase");
constexpr Name FREQUENCY = REPORTBASE_NAME("Frequency");
constexpr Name IF_BANDWIDTH = REPORTBASE_NAME("IFBandwidth");
constexpr Name AREA = REPORTBASE_NAME("Area");
constexpr Name COORDINATE = REPORTBASE_NAME("Coordinate");

/// The attribute of every class with a format version.
constexpr Name VERSION_ATTRIBUTE = REPORTBASE_NAME("Version");

/// The version of areas.
constexpr Name AREA_VERSION = REPORTBASE_NAME("1.0");

// --- Tags

/// A tag as it is usually noted, in hexadecimal.
constexpr qint32 Tag(quint32 bits)
{
    return static_cast<qint32>(bits);
}

namespace tag {

constexpr qint32 REPORT_FREQUENCY = Tag(0xCF452ADA);
constexpr qint32 REPORT_IF_BANDWIDTH = Tag(0xCA8F8C7C);
constexpr qint32 REPORT_AREA = Tag(0xA838BE37);

// Frequency and IF bandwidth share theirs, so that either can read the other's body.
constexpr qint32 VALUE = Tag(0x8AFF57B3);
constexpr qint32 MIN = Tag(0x4ECB4E58);
constexpr qint32 MAX = Tag(0x6E8DD7F5);
constexpr qint32 USE = Tag(0xAA39C731);

constexpr qint32 AREA_VERSION = Tag(0xCCFEDFA1);
constexpr qint32 AREA_NAME = Tag(0x8C9FBCA8);
constexpr qint32 AREA_COORDINATES = Tag(0x6F69083F);
constexpr qint32 AREA_SCRIPT_ID = Tag(0xC22211A9);

constexpr qint32 LONGITUDE = Tag(0x247E7491);
constexpr qint32 LATITUDE = Tag(0xCB2F4B76);

} // namespace tag
} // namespace REPORTGENERATOR::wire

#endif
