#include "support/points.h"

#include "support/bytes.h"
#include "support/records.h"

#include <utility>

namespace Support {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;

Coordinate At(double longitude, double latitude)
{
    Coordinate coordinate;
    coordinate.SetLongitude(longitude);
    coordinate.SetLatitude(latitude);
    return coordinate;
}

Coordinate OnlyLongitude(double longitude)
{
    Coordinate coordinate;
    coordinate.SetLongitude(longitude);
    return coordinate;
}

Coordinate OnlyLatitude(double latitude)
{
    Coordinate coordinate;
    coordinate.SetLatitude(latitude);
    return coordinate;
}

Coordinate OutOfRange(double longitude, double latitude)
{
    Coordinate coordinate;
    coordinate.SetValidate(false);
    coordinate.SetLongitude(longitude);
    coordinate.SetLatitude(latitude);
    return coordinate;
}

Area Lake()
{
    Area area;
    area.SetName(QStringLiteral("Lake"));
    area.AppendCoordinate(At(1.0, 2.0));
    area.SetScriptID(QStringLiteral("S7"));
    return area;
}

AreaState LakeState()
{
    AreaState state;
    state.name = QStringLiteral("Lake");
    state.coordinates = {{1.0, 2.0}};
    state.scriptID = QStringLiteral("S7");
    return state;
}

Area WithUnflaggedPoint(int otherFlags)
{
    constexpr int NAME_FLAG = 1;
    Area area;
    area.SetValidate(false);
    area.AppendCoordinate(At(1.0, 2.0));
    Bytes raw = Byte(otherFlags) + String(u"1.0");
    raw += otherFlags & NAME_FLAG ? String(u"Lake") : NullString();
    EXPECT_EQ(ReadRawForm(area, raw + Int32(0)), 0);
    EXPECT_FALSE(area.IsCoordinateSet());
    EXPECT_EQ(std::as_const(area).GetCoordinate().size(), 1);
    return area;
}

} // namespace Support
