#include "shape.h"

#include <reportcore/exporting/outline.h>

#include <QtCore/QtEndian>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace ReportColumns {

using ReportCore::Geometry;
using ReportCore::Point;
using ReportCore::Points;

namespace {

constexpr std::uint8_t LITTLE_ENDIAN_ORDER = 1;

/// Types of well-known binary.
enum class Wkb : std::uint32_t
{
    Point = 1,
    Line = 2,
    Area = 3,
    SeveralLines = 5,
    SeveralAreas = 6
};

void PutWord(Buffer& out, std::size_t word)
{
    out.Append(qToLittleEndian(static_cast<std::uint32_t>(word)));
}

void PutHead(Buffer& out, Wkb type)
{
    out.Append(LITTLE_ENDIAN_ORDER);
    PutWord(out, static_cast<std::size_t>(type));
}

void PutPoint(Buffer& out, const Point& point)
{
    const double values[] = {point.longitude, point.latitude};
    if constexpr (Q_BYTE_ORDER == Q_LITTLE_ENDIAN) {
        out.Append(values, sizeof values);
    } else {
        for (const double value : values) {
            std::uint64_t bits = 0;
            std::memcpy(&bits, &value, sizeof bits);
            out.Append(qToLittleEndian(bits));
        }
    }
}

void PutPoints(Buffer& out, const Points& points)
{
    PutWord(out, points.size());
    for (const Point& point : points)
        PutPoint(out, point);
}

void PutLine(Buffer& out, const Points& line)
{
    PutHead(out, Wkb::Line);
    PutPoints(out, line);
}

void PutArea(Buffer& out, const Points& ring)
{
    PutHead(out, Wkb::Area);
    PutWord(out, 1);
    PutPoints(out, ring);
}

template <class PutPart>
void PutParts(Buffer& out, const std::vector<Points>& parts, Wkb several, PutPart&& putPart)
{
    if (parts.size() > 1) {
        PutHead(out, several);
        PutWord(out, parts.size());
    }
    for (const Points& part : parts)
        putPart(out, part);
}

bool PutGeometry(Buffer& out, const Geometry& geometry)
{
    switch (geometry.shape) {
    case Geometry::Shape::None:
        return false;
    case Geometry::Shape::Point:
        PutHead(out, Wkb::Point);
        PutPoint(out, geometry.parts.front().front());
        break;
    case Geometry::Shape::Line:
        PutParts(out, geometry.parts, Wkb::SeveralLines, PutLine);
        break;
    case Geometry::Shape::Area:
        PutParts(out, geometry.parts, Wkb::SeveralAreas, PutArea);
        break;
    }
    return true;
}

// --- Most outlines

bool IsShortWay(const Point& from, const Point& to)
{
    return std::abs(to.longitude - from.longitude) <= ReportCore::HALF_TURN;
}

/// Makes the ring that `GeometryOf` gives as the only one, of an outline that nowhere crosses the antimeridian. False, with the
/// points less those that are repeated, for others.
bool MakeSimpleRing(Points& outline)
{
    constexpr std::size_t leastOfRing = 3;
    outline = ReportCore::Opened(ReportCore::WithoutRepeated(std::move(outline)));
    if (outline.size() < leastOfRing || !IsShortWay(outline.back(), outline.front()))
        return false;
    for (std::size_t i = 1; i < outline.size(); ++i) {
        if (!IsShortWay(outline[i - 1], outline[i]))
            return false;
    }
    if (ReportCore::SignedArea(outline) < 0.0)
        std::reverse(outline.begin() + 1, outline.end());
    outline.push_back(outline.front());
    return true;
}

} // namespace

bool PutShape(Buffer& out, Points& outline)
{
    if (!MakeSimpleRing(outline))
        return PutGeometry(out, ReportCore::GeometryOf(outline));
    PutArea(out, outline);
    return true;
}

} // namespace ReportColumns
