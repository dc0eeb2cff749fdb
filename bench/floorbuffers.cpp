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

QByteArray Filled(const PlainReport& report, char* (*put)(char*, const PlainReport&))
{
    const int most =
        MOST_AROUND_COORDINATES + 3 * report.areaName.size() + MOST_PER_COORDINATE * report.points.size();
    QByteArray bytes(most, Qt::Uninitialized);
    const char* const end = put(bytes.data(), report);
    bytes.truncate(static_cast<int>(end - bytes.constData()));
    return bytes;
}

} // namespace Bench::Floor
