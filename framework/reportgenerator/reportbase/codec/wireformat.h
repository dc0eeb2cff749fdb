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

/// A tag as it is usually noted, in hexadecimal. Each stands with its field, below `schema/`.
constexpr qint32 Tag(quint32 bits)
{
    return static_cast<qint32>(bits);
}

} // namespace REPORTGENERATOR::wire

#endif
