// Outlines as well-known binary: those that are made in one pass are those that are thought through.

#include <columns/shape.h>

#include <gmock/gmock.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <stdexcept>
#include <string>

namespace ReportCore {

void PrintTo(const Point& point, std::ostream* out)
{
    *out << '(' << point.longitude << ' ' << point.latitude << ')';
}

} // namespace ReportCore

namespace {

using ReportColumns::Buffer;
using ReportCore::Geometry;
using ReportCore::GeometryOf;
using ReportCore::Points;
using testing::ElementsAre;

/// Little-endian well-known binary, read from the front.
class Reader
{
public:
    explicit Reader(const Buffer& buffer)
        : m_next(static_cast<const unsigned char*>(buffer.Data())), m_end(m_next + buffer.Size())
    {
    }

    bool IsAtEnd() const { return m_next == m_end; }

    /// Of a geometry: its type.
    unsigned Head()
    {
        if (Bytes(1) != 1)
            throw std::runtime_error("not little-endian");
        return Word();
    }

    unsigned Word() { return static_cast<unsigned>(Bytes(4)); }

    Points Coordinates(unsigned count)
    {
        Points points;
        while (count-- > 0) {
            const double longitude = Number();
            points.push_back({longitude, Number(), 0});
        }
        return points;
    }

private:
    double Number()
    {
        const std::uint64_t bits = Bytes(8);
        double number = 0.0;
        std::memcpy(&number, &bits, sizeof number);
        return number;
    }

    std::uint64_t Bytes(int count)
    {
        std::uint64_t value = 0;
        for (int i = 0; i < count; ++i) {
            if (IsAtEnd())
                throw std::runtime_error("too short");
            value |= static_cast<std::uint64_t>(*m_next++) << (8 * i);
        }
        return value;
    }

    const unsigned char* m_next;
    const unsigned char* m_end;
};

Points Part(Reader& reader, unsigned type)
{
    if (type == 1)
        return reader.Coordinates(1);
    if (type == 3 && reader.Word() != 1)
        throw std::runtime_error("rings within a ring");
    return reader.Coordinates(reader.Word());
}

Geometry GeometryIn(const Buffer& buffer)
{
    constexpr Geometry::Shape SHAPES[] = {Geometry::Shape::None, Geometry::Shape::Point,
                                          Geometry::Shape::Line, Geometry::Shape::Area};
    Reader reader(buffer);
    Geometry geometry;
    unsigned type = reader.Head();
    unsigned parts = 1;
    if (type > 3) {
        parts = reader.Word();
        type -= 3;
    }
    geometry.shape = SHAPES[type];
    for (unsigned i = 0; i < parts; ++i) {
        if (parts > 1 && reader.Head() != type)
            throw std::runtime_error("parts of another type");
        geometry.parts.push_back(Part(reader, type));
    }
    if (!reader.IsAtEnd())
        throw std::runtime_error("too long");
    return geometry;
}

void ExpectThoughtThrough(const Points& outline)
{
    const Geometry expected = GeometryOf(outline);
    Buffer buffer;
    Points points = outline;
    ASSERT_EQ(ReportColumns::PutShape(buffer, points), expected.shape != Geometry::Shape::None);
    if (expected.shape == Geometry::Shape::None) {
        EXPECT_EQ(buffer.Size(), 0U);
        return;
    }
    const Geometry found = GeometryIn(buffer);
    EXPECT_EQ(found.shape, expected.shape);
    EXPECT_EQ(found.parts, expected.parts);
}

Geometry Shape(Points outline)
{
    Buffer buffer;
    EXPECT_TRUE(ReportColumns::PutShape(buffer, outline));
    return GeometryIn(buffer);
}

TEST(ColumnsShape, RingIsClosedAndCounterclockwise)
{
    const Geometry shape = Shape({{0, 0, 0}, {0, 2, 0}, {1, 2, 0}});
    EXPECT_EQ(shape.shape, Geometry::Shape::Area);
    EXPECT_THAT(shape.parts, ElementsAre(Points{{0, 0, 0}, {1, 2, 0}, {0, 2, 0}, {0, 0, 0}}));
}

TEST(ColumnsShape, FewPointsAreLinesAndPoints)
{
    EXPECT_THAT(Shape({{1, 2, 0}, {1, 2, 0}}).parts, ElementsAre(Points{{1, 2, 0}}));
    EXPECT_EQ(Shape({{1, 2, 0}}).shape, Geometry::Shape::Point);
    EXPECT_EQ(Shape({{1, 2, 0}, {3, 4, 0}}).shape, Geometry::Shape::Line);
    Buffer none;
    Points empty;
    EXPECT_FALSE(ReportColumns::PutShape(none, empty));
}

TEST(ColumnsShape, WhatCrossesTheAntimeridianHasParts)
{
    EXPECT_EQ(Shape({{170, 0, 0}, {-170, 0, 0}, {-170, 10, 0}, {170, 10, 0}}).parts.size(), 2U);
    EXPECT_EQ(Shape({{179, 0, 0}, {-179, 0, 0}}).parts.size(), 2U);
}

TEST(ColumnsShape, OnePassAgreesWithThinkingItThrough)
{
    ExpectThoughtThrough({});
    ExpectThoughtThrough({{1, 1, 0}, {2, 1, 0}, {1, 1, 0}});
    ExpectThoughtThrough({{-180, -90, 0}, {180, -90, 0}, {180, 90, 0}, {-180, 90, 0}});
    ExpectThoughtThrough({{-120, 80, 0}, {0, 80, 0}, {120, 80, 0}});
    ExpectThoughtThrough({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}});
    ExpectThoughtThrough({{0, 0, 0}, {0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {1, 1, 0}, {0, 0, 0}});
    std::mt19937 random(20);
    // Few different places, so that points repeat, lines lie on each other and the antimeridian is met often.
    std::uniform_int_distribution<int> longitude(-4, 4);
    std::uniform_int_distribution<int> latitude(-3, 3);
    std::uniform_int_distribution<int> count(1, 8);
    for (int i = 0; i < 20000; ++i) {
        Points outline;
        for (int left = count(random); left > 0; --left)
            outline.push_back({longitude(random) * 45.0, latitude(random) * 30.0, 0});
        ExpectThoughtThrough(outline);
        if (HasFailure())
            return;
    }
}

} // namespace
