#include "floorbuffers.h"

namespace Bench::Floor {

namespace {

constexpr int MOST_AROUND_COORDINATES = 512;
constexpr int MOST_PER_COORDINATE = 56;

} // namespace

char* CharactersOf(QByteArray& bytes)
{
    return bytes.data();
}

char16_t* CharactersOf(QString& text)
{
    return reinterpret_cast<char16_t*>(text.data());
}

int Most(const PlainReport& report, int perCoordinate, int aroundCoordinates)
{
    const int mostPerCharacter = 3; // of UTF-8, for one of UTF-16
    return aroundCoordinates + mostPerCharacter * static_cast<int>(report.areaName.size()) +
           perCoordinate * static_cast<int>(report.points.size());
}

QByteArray Filled(const PlainReport& report, char* (*put)(char*, const PlainReport&))
{
    QByteArray bytes(Most(report, MOST_PER_COORDINATE, MOST_AROUND_COORDINATES), Qt::Uninitialized);
    const char* const end = put(bytes.data(), report);
    bytes.truncate(static_cast<int>(end - bytes.constData()));
    return bytes;
}

} // namespace Bench::Floor
