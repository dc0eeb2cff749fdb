// What is done to objects before they are written or read into: `Fill`, `Disturb`, `DisturbSettings` and
// `Arrange` of support/paths.h.

#include "support/oddvalues.h"
#include "support/paths.h"

#include <reportgenerator/qt/optional.h>

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QVector>

#include <type_traits>
#include <utility>

namespace Support {
namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::detail::ForEachField;
using REPORTGENERATOR::detail::PointsField;

constexpr double MOST_LONGITUDE = 180.0;
constexpr double MOST_LATITUDE = 90.0;

/// Reaches the protected operation by which a holder renames its members.
struct Renaming : IRGObject
{
    using IRGObject::SetObjectName;
};

void Rename(IRGObject& object, Choices& choices)
{
    const QString name =
        choices.Of({QStringLiteral("Zone"), QStringLiteral("Area"), QStringLiteral("Frequency"), QString(),
                    QStringLiteral("A.ea"), QStringLiteral("a:Zone"), QStringLiteral("Gr\u00f6\u00dfe"),
                    QStringLiteral("x y"), QStringLiteral("a|b"), QStringLiteral("("), QStringLiteral("a<b"),
                    QStringLiteral("ReportBaseNamedAtLength").repeated(6)});
    (object.*(&Renaming::SetObjectName))(name);
}

int AnyLogger(Choices& choices)
{
    return choices.Below(CodePath::LOGGERS + 1) - 1;
}

/// What can be set of an object that is not to be changed.
void DisturbConst(const IRGObject& object, CodePath& codePath, Choices& choices)
{
    switch (choices.Below(5)) {
    case 0:
    case 1:
        object.SetValidate(choices.Below(2) == 1);
        break;
    case 2:
    case 3:
        object.SetLogger(codePath.Logger(AnyLogger(choices)));
        break;
    default:
        object.ResetLogger();
        break;
    }
}

void DisturbOneSetting(IRGObject& object, CodePath& codePath, Choices& choices)
{
    if (choices.OneIn(24))
        Rename(object, choices);
    else
        DisturbConst(object, codePath, choices);
}

/// The raw form of an object with these flags, whatever they say, and eight bytes for each number.
QByteArray RawNumbers(int flags, int numbers, Choices& choices)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << static_cast<quint8>(flags);
    for (int i = 0; i < numbers; ++i)
        stream << AnyNumber(choices);
    return bytes;
}

template <class Object>
void ReadRawNumbers(Object& object, int numbers, Choices& choices)
{
    constexpr int ALL_FLAGS = 256;
    const QByteArray bytes = RawNumbers(choices.Below(ALL_FLAGS), numbers, choices);
    QDataStream stream(bytes);
    object.SetVersionSpecificBinaryWithoutValidation(stream);
}

// --- Values of fields

double UsualValue(double /*type*/, Choices& choices)
{
    constexpr double USUAL = 1e9;
    return NumberWithin(USUAL, choices);
}

bool UsualValue(bool /*type*/, Choices& choices)
{
    return choices.Below(2) == 1;
}

QString UsualValue(const QString& /*type*/, Choices& choices)
{
    return PlainText(choices);
}

double AnyValue(double /*type*/, Choices& choices)
{
    return AnyNumber(choices);
}

bool AnyValue(bool /*type*/, Choices& choices)
{
    return choices.Below(2) == 1;
}

QString AnyValue(const QString& /*type*/, Choices& choices)
{
    return AnyText(choices);
}

/// Sets each value or not.
template <class Object>
void FillOptional(Object& object, Choices& choices)
{
    const auto fill = [&](const auto& field) {
        if (choices.Below(2) == 1)
            (object.*field.set)(UsualValue(decltype(field.In(object))(), choices));
    };
    ForEachField(object, [&](const auto& field) {
        if constexpr (!std::is_same_v<decltype(field), const PointsField&>)
            fill(field);
    });
}

/// Sets one of the values to anything.
template <class Object>
void SetAny(Object& object, Choices& choices)
{
    int left = 0;
    const auto count = [&left](const auto& /*field*/) { ++left; };
    ForEachField(object, count);
    left = choices.Below(left);
    ForEachField(object, [&](const auto& field) {
        if constexpr (!std::is_same_v<decltype(field), const PointsField&>) {
            if (left == 0)
                (object.*field.set)(AnyValue(decltype(field.In(object))(), choices));
        }
        --left;
    });
}

/// Returns whether there was something to do.
template <class Object>
bool DisturbBounds(Object& object, Choices& choices)
{
    switch (choices.Below(13)) {
    case 0:
    case 1:
    case 2:
        SetAny(object, choices);
        return true;
    case 3:
        object.ResetValue();
        return true;
    case 4:
        object.ResetMin();
        return true;
    case 5:
        object.ResetMax();
        return true;
    case 6:
        object.Reset();
        return true;
    case 7:
        object.ResetToDefault();
        return true;
    case 8:
        ReadRawNumbers(object, 4, choices);
        return true;
    case 9:
        object.GetValue();
        return true;
    case 10:
        object = Object();
        return true;
    default:
        return false;
    }
}

/// A coordinate that an area may be given: sometimes without a value, without record, with settings of its
/// own.
Coordinate OddCoordinate(CodePath& codePath, Choices& choices)
{
    Coordinate coordinate;
    coordinate.SetValidate(false);
    if (choices.Below(4) != 3)
        Fill(coordinate, choices);
    for (int i = choices.Below(3); i > 0; --i)
        Disturb(coordinate, codePath, choices);
    coordinate.SetValidate(choices.Below(2) == 0);
    coordinate.SetLogger(codePath.Logger(AnyLogger(choices)));
    return coordinate;
}

QVector<Coordinate> OddCoordinates(CodePath& codePath, Choices& choices)
{
    QVector<Coordinate> coordinates;
    for (int i = choices.Below(4); i > 0; --i)
        coordinates.append(OddCoordinate(codePath, choices));
    return coordinates;
}

void DisturbList(Area& area, CodePath& codePath, Choices& choices)
{
    QVector<Coordinate>& coordinates = area.GetCoordinate();
    if (coordinates.isEmpty() || choices.Below(4) == 0)
        coordinates.append(OddCoordinate(codePath, choices));
    else if (choices.Below(4) == 0)
        coordinates.removeLast();
    else
        Disturb(coordinates[choices.Below(static_cast<int>(coordinates.size()))], codePath, choices);
}

/// Flags that tell of nothing: the raw form takes them as they come.
void ReadFlagsOnly(Area& area, Choices& choices)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << static_cast<quint8>(choices.Below(256)) << AnyVersionText(choices) << AnyText(choices)
           << qint32(0) << AnyText(choices);
    QDataStream input(bytes);
    area.SetVersionSpecificBinaryWithoutValidation(input);
}

} // namespace

// --- Filling

void Fill(Frequency& frequency, Choices& choices)
{
    FillOptional(frequency, choices);
    frequency.SetValue(UsualValue(0.0, choices));
}

void Fill(IFBandwidth& bandwidth, Choices& choices)
{
    FillOptional(bandwidth, choices);
    bandwidth.SetValue(UsualValue(0.0, choices));
}

void Fill(Coordinate& coordinate, Choices& choices)
{
    coordinate.SetLongitude(NumberWithin(MOST_LONGITUDE, choices));
    coordinate.SetLatitude(NumberWithin(MOST_LATITUDE, choices));
}

void Fill(Area& area, Choices& choices)
{
    FillOptional(area, choices);
    QString name = choices.Below(2) == 0 ? PlainText(choices) : AnyText(choices);
    area.SetName(name.isNull() ? QLatin1String("") : name);
    // An empty list that counts as set passes the check, and then there is nothing to write.
    area.GetCoordinate();
    for (int i = choices.OneIn(16) ? 0 : choices.Below(4) + 1; i > 0; --i) {
        Coordinate coordinate;
        Fill(coordinate, choices);
        area.AppendCoordinate(coordinate);
    }
}

void Fill(ReportBase& report, Choices& choices)
{
    // Members that validate anyway refuse nothing of what they are given here.
    if (choices.Below(4) != 3)
        Fill(report.GetFrequency(), choices);
    if (choices.Below(4) != 3)
        Fill(report.GetIFBandwidth(), choices);
    if (choices.Below(4) != 3)
        Fill(report.GetArea(), choices);
}

// --- Disturbing

void Disturb(Frequency& frequency, CodePath& codePath, Choices& choices)
{
    if (DisturbBounds(frequency, choices))
        return;
    if (choices.Below(3) == 1)
        frequency.ResetUse();
    else
        DisturbOneSetting(frequency, codePath, choices);
}

void Disturb(IFBandwidth& bandwidth, CodePath& codePath, Choices& choices)
{
    if (!DisturbBounds(bandwidth, choices))
        DisturbOneSetting(bandwidth, codePath, choices);
}

void Disturb(Coordinate& coordinate, CodePath& codePath, Choices& choices)
{
    switch (choices.Below(9)) {
    case 0:
    case 1:
        SetAny(coordinate, choices);
        break;
    case 2:
        coordinate.ResetLongitude();
        break;
    case 3:
        coordinate.ResetLatitude();
        break;
    case 4:
        coordinate.ResetToDefault();
        break;
    case 5:
        coordinate = Coordinate();
        break;
    case 6:
        ReadRawNumbers(coordinate, 2, choices);
        break;
    case 7:
        coordinate.GetLatitude();
        break;
    default:
        DisturbOneSetting(coordinate, codePath, choices);
        break;
    }
}

void Disturb(Area& area, CodePath& codePath, Choices& choices)
{
    switch (choices.Below(13)) {
    case 0:
    case 1:
        SetAny(area, choices);
        break;
    case 2:
        area.AppendCoordinate(OddCoordinate(codePath, choices));
        break;
    case 3:
        area.SetCoordinate(OddCoordinates(codePath, choices));
        break;
    case 4:
    case 5:
        DisturbList(area, codePath, choices);
        break;
    case 6:
        area.ResetName();
        break;
    case 7:
        area.ResetScriptID();
        break;
    case 8:
        area.ResetCoordinate();
        break;
    case 9:
        ReadFlagsOnly(area, choices);
        break;
    case 10:
        area.GetVersion();
        break;
    case 11:
        area.ResetToDefault();
        break;
    default:
        DisturbOneSetting(area, codePath, choices);
        break;
    }
}

void Disturb(ReportBase& report, CodePath& codePath, Choices& choices)
{
    switch (choices.Below(11)) {
    case 0:
        Disturb(report.GetFrequency(), codePath, choices);
        break;
    case 1:
        Disturb(report.GetIFBandwidth(), codePath, choices);
        break;
    case 2:
    case 3:
    case 4:
        Disturb(report.GetArea(), codePath, choices);
        break;
    case 5: {
        Area area;
        area.SetValidate(choices.Below(2) == 1);
        Disturb(area, codePath, choices);
        report.SetArea(area);
        break;
    }
    case 6:
        report.ResetFrequency();
        break;
    case 7:
        report.ResetArea();
        break;
    case 8: {
        // Members that hold something and aren't carried, or the other way round.
        const QByteArray flags(1, static_cast<char>(choices.Below(256)));
        QDataStream stream(flags);
        report.SetVersionSpecificBinaryWithoutValidation(stream);
        break;
    }
    case 9:
        report.ResetToDefault();
        break;
    default:
        DisturbOneSetting(report, codePath, choices);
        break;
    }
}

// --- Settings

void DisturbSettings(IRGObject& leaf, CodePath& codePath, Choices& choices)
{
    DisturbOneSetting(leaf, codePath, choices);
}

void DisturbSettings(Area& area, CodePath& codePath, Choices& choices)
{
    // Asking for the list makes the record, and asking for the one that can be changed sets its flag.
    if (!area.IsCoordinateSet() || std::as_const(area).GetCoordinate().isEmpty()) {
        DisturbOneSetting(area, codePath, choices);
        return;
    }
    const int place = choices.Below(static_cast<int>(std::as_const(area).GetCoordinate().size()));
    if (choices.Below(2) == 0)
        DisturbOneSetting(area.GetCoordinate()[place], codePath, choices);
    else
        DisturbConst(std::as_const(area).GetCoordinate().at(place), codePath, choices);
}

void DisturbSettings(ReportBase& report, CodePath& codePath, Choices& choices)
{
    if (report.IsFrequencySet() && choices.Below(4) == 0)
        DisturbOneSetting(report.GetFrequency(), codePath, choices);
    else if (report.IsIFBandwidthSet() && choices.Below(4) == 0)
        DisturbOneSetting(report.GetIFBandwidth(), codePath, choices);
    else if (report.IsAreaSet() && choices.Below(4) == 0)
        DisturbOneSetting(report.GetArea(), codePath, choices);
    else if (report.IsAreaSet())
        DisturbSettings(report.GetArea(), codePath, choices);
    else
        DisturbOneSetting(report, codePath, choices);
}

void ArrangeSettings(CodePath& codePath, Traveller& traveller, Choices& choices)
{
    traveller.Object().SetLogger(codePath.Logger(choices.Below(3) == 2 ? -1 : 0));
    traveller.Object().SetValidate(choices.Below(3) != 2);
    for (int i = choices.OneIn(3) ? choices.Below(4) : 0; i > 0; --i)
        traveller.DisturbSettings(codePath, choices);
}

void Arrange(CodePath& codePath, Traveller& traveller, Choices& choices)
{
    if (choices.Below(4) != 3)
        codePath.Attempt("fill", [&] { traveller.Fill(choices); });
    const bool validates = choices.Below(2) == 1;
    for (int i = choices.Of({0, 1, 2, 0, 1, 6}); i > 0; --i) {
        traveller.Object().SetValidate(validates);
        codePath.Attempt("disturb", [&] { traveller.Disturb(codePath, choices); });
    }
    ArrangeSettings(codePath, traveller, choices);
}

} // namespace Support
