#ifndef BENCH_PEERWIRE_H
#define BENCH_PEERWIRE_H

#include <QtCore/QtGlobal>

// Tags of the binary forms, spelled once more: what the library is measured against must not depend on it.
// That both write the same bytes is checked before anything is timed.

namespace Bench {

constexpr qint32 Tag(quint32 bits)
{
    return static_cast<qint32>(bits);
}

constexpr qint32 ROOT_TAG = 1;

constexpr qint32 FREQUENCY_TAG = Tag(0xCF452ADA);
constexpr qint32 IF_BANDWIDTH_TAG = Tag(0xCA8F8C7C);
constexpr qint32 AREA_TAG = Tag(0xA838BE37);

constexpr qint32 MIN_TAG = Tag(0x4ECB4E58);
constexpr qint32 MAX_TAG = Tag(0x6E8DD7F5);
constexpr qint32 USE_TAG = Tag(0xAA39C731);
constexpr qint32 VALUE_TAG = Tag(0x8AFF57B3);

constexpr qint32 VERSION_TAG = Tag(0xCCFEDFA1);
constexpr qint32 NAME_TAG = Tag(0x8C9FBCA8);
constexpr qint32 COORDINATES_TAG = Tag(0x6F69083F);

constexpr qint32 LONGITUDE_TAG = Tag(0x247E7491);
constexpr qint32 LATITUDE_TAG = Tag(0xCB2F4B76);

constexpr int VALUE_DECIMALS = 2;
constexpr int COORDINATE_DECIMALS = 6;

/// Bytes of a length or a count.
constexpr int SIZE_BYTES = 4;

// First bytes of the raw forms: every field is set, but for the maximum of the IF bandwidth and the area's
// script identifier.
constexpr quint8 RAW_FREQUENCY_AND_BANDWIDTH = 0x03;
constexpr quint8 RAW_WITH_AREA = 0x07;
constexpr quint8 RAW_FREQUENCY = 0x0F;
constexpr quint8 RAW_BANDWIDTH = 0x03;
constexpr quint8 RAW_AREA = 0x03;
constexpr quint8 RAW_COORDINATE = 0x03;

} // namespace Bench

#endif
