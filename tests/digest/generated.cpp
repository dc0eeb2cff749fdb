// The generated objects of digest/objects.h. The order of choices is what makes them the same everywhere: no two of them
// stand in one expression whose parts may be evaluated in any order.

#include "digest/numbers.h"
#include "digest/objects.h"
#include "support/choices.h"
#include "support/oddvalues.h"

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/frequencyrangeold.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/scanparameter.h>

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <algorithm>
#include <array>

namespace Digest {
namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::FrequencyHolder;
using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::FrequencyListValue;
using REPORTGENERATOR::FrequencyRangeOld;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::ValueMinMax;
using Support::AnyText;
using Support::Choices;
using Support::PlainText;

/// Sets a field of most objects, leaves that of some unset. A value that is refused stays out.
template <class Set>
void Sometimes(Choices& choices, const Set& set)
{
    if (choices.Below(4) == 3)
        return;
    try {
        set();
    } catch (const RGException&) {
        // Only the object counts.
    }
}

/// Mostly what an application would set.
double NumberFor(quint64 limit, Choices& choices)
{
    if (choices.Below(2) == 0)
        return DecimalWithin(limit, choices);
    return NumberOfAnyKind(choices);
}

QString TextFor(Choices& choices)
{
    if (choices.Below(2) == 0)
        return PlainText(choices);
    return AnyText(choices);
}

constexpr quint64 USUAL_FREQUENCY = 3000000000;
constexpr quint64 MOST_LONGITUDE = 180;
constexpr quint64 MOST_LATITUDE = 90;
constexpr quint64 USUAL_LENGTH = 5000;

// --- Classes with binary forms

template <class Bounded>
void FillBounds(Bounded& object, Choices& choices)
{
    Sometimes(choices, [&] { object.SetValue(NumberFor(USUAL_FREQUENCY, choices)); });
    Sometimes(choices, [&] { object.SetMin(NumberFor(USUAL_FREQUENCY, choices)); });
    Sometimes(choices, [&] { object.SetMax(NumberFor(USUAL_FREQUENCY, choices)); });
}

void Fill(Frequency& frequency, Choices& choices)
{
    FillBounds(frequency, choices);
    Sometimes(choices, [&] { frequency.SetUse(choices.Below(2) == 1); });
}

void Fill(IFBandwidth& bandwidth, Choices& choices)
{
    FillBounds(bandwidth, choices);
}

void Fill(Coordinate& coordinate, Choices& choices)
{
    Sometimes(choices, [&] { coordinate.SetLongitude(NumberFor(MOST_LONGITUDE, choices)); });
    Sometimes(choices, [&] { coordinate.SetLatitude(NumberFor(MOST_LATITUDE, choices)); });
}

/// One that passes every check.
void FillWhole(Coordinate& coordinate, Choices& choices)
{
    coordinate.SetLongitude(DecimalWithin(MOST_LONGITUDE, choices));
    coordinate.SetLatitude(DecimalWithin(MOST_LATITUDE, choices));
}

void Fill(Area& area, Choices& choices)
{
    Sometimes(choices, [&] { area.SetName(TextFor(choices)); });
    const int points = choices.Of({1, 0, 2, 3, 7, 40});
    const bool areWhole = choices.Below(2) == 0;
    for (int i = 0; i < points; ++i) {
        Coordinate coordinate;
        coordinate.SetValidate(false);
        if (areWhole)
            FillWhole(coordinate, choices);
        else
            Fill(coordinate, choices);
        area.AppendCoordinate(coordinate);
    }
    Sometimes(choices, [&] { area.SetScriptID(TextFor(choices)); });
}

void Fill(ReportBase& report, Choices& choices)
{
    Sometimes(choices, [&] { Fill(report.GetFrequency(), choices); });
    Sometimes(choices, [&] { Fill(report.GetIFBandwidth(), choices); });
    Sometimes(choices, [&] { Fill(report.GetArea(), choices); });
}

// --- Classes with an XML form only

void Fill(REPORTGENERATOR::Double& number, Choices& choices)
{
    number.SetName(PlainText(choices).remove(QLatin1Char(' ')));
    Sometimes(choices, [&] { number.SetValue(NumberFor(USUAL_LENGTH, choices)); });
    Sometimes(choices, [&] { number.SetMinimum(NumberFor(USUAL_LENGTH, choices)); });
    Sometimes(choices, [&] { number.SetMaximum(NumberFor(USUAL_LENGTH, choices)); });
    Sometimes(choices, [&] { number.SetDefault(NumberFor(USUAL_LENGTH, choices)); });
    Sometimes(choices, [&] { number.SetUnit(TextFor(choices)); });
}

void Fill(ValueMinMax& value, Choices& choices)
{
    Sometimes(choices, [&] { value.SetName(PlainText(choices).remove(QLatin1Char(' '))); });
    Sometimes(choices, [&] { value.SetValue(NumberFor(USUAL_LENGTH, choices)); });
    Sometimes(choices, [&] { value.SetMin(NumberFor(USUAL_LENGTH, choices)); });
    Sometimes(choices, [&] { value.SetMax(NumberFor(USUAL_LENGTH, choices)); });
}

void Fill(FrequencyRangeOld& range, Choices& choices)
{
    Sometimes(choices, [&] { range.SetStartFrequency(NumberFor(USUAL_FREQUENCY, choices)); });
    Sometimes(choices, [&] { range.SetStopFrequency(NumberFor(USUAL_FREQUENCY, choices)); });
}

void FillFrequency(FrequencyHolder& holder, Choices& choices)
{
    Sometimes(choices, [&] { holder.SetFrequency(NumberFor(USUAL_FREQUENCY, choices)); });
    Sometimes(choices, [&] { holder.SetFrequencyMin(NumberFor(USUAL_FREQUENCY, choices)); });
    Sometimes(choices, [&] { holder.SetFrequencyMax(NumberFor(USUAL_FREQUENCY, choices)); });
}

void Fill(FrequencyInformation& information, Choices& choices)
{
    if (choices.Below(2) == 0)
        FillFrequency(information, choices);
    else
        Fill(information.GetFrequencyRange(), choices);
}

/// The time stamp can only be read: one of the years 1900 to 2199.
void Fill(FrequencyListValue& value, Choices& choices)
{
    Sometimes(choices, [&] {
        const auto part = [&choices](int first, int count, int digits) {
            return QString::number(first + choices.Below(count)).rightJustified(digits, QLatin1Char('0'));
        };
        QString xml = QStringLiteral("<Value><TimeStamp>");
        xml += part(1900, 300, 4) + QLatin1Char('-');
        xml += part(1, 12, 2) + QLatin1Char('-');
        xml += part(1, 28, 2) + QLatin1Char('T');
        xml += part(0, 24, 2) + QLatin1Char(':');
        xml += part(0, 60, 2) + QLatin1Char(':');
        xml += part(0, 60, 2) + QLatin1Char('.');
        xml += part(0, 1000, 3) + QLatin1String("Z</TimeStamp></Value>");
        value.SetXmlString(xml, true);
    });
    FillFrequency(value, choices);
}

void Fill(Ellipse& ellipse, Choices& choices)
{
    Sometimes(choices, [&] { ellipse.SetMinRadius(NumberFor(USUAL_LENGTH, choices)); });
    Sometimes(choices, [&] { ellipse.SetMaxRadius(NumberFor(USUAL_LENGTH, choices)); });
    Sometimes(choices, [&] { ellipse.SetRotation(NumberFor(MOST_LONGITUDE, choices)); });
}

void Fill(ChannelSpacing& spacing, Choices& choices)
{
    Sometimes(choices, [&] { spacing.SetVisual(TextFor(choices)); });
    Sometimes(choices, [&] { spacing.SetSameDistance(choices.Below(2) == 1); });
    Sometimes(choices, [&] {
        QVector<double> values;
        for (int left = choices.Of({1, 0, 2, 5, 30}); left > 0; --left)
            values.append(NumberFor(USUAL_LENGTH, choices));
        spacing.SetValues(values);
    });
}

void Fill(ScanParameter& scan, Choices& choices)
{
    Sometimes(choices, [&] { Fill(scan.GetFrequencyRange(), choices); });
    Sometimes(choices, [&] { scan.SetStepFrequency(NumberFor(USUAL_FREQUENCY, choices)); });
    Sometimes(choices, [&] { scan.SetDwellTime(NumberFor(USUAL_LENGTH, choices)); });
    Sometimes(choices, [&] { scan.SetHoldTime(NumberFor(USUAL_LENGTH, choices)); });
}

void Fill(MeasurementTime& time, Choices& choices)
{
    Sometimes(choices, [&] { time.GetMeasurementTime().SetValue(NumberFor(USUAL_LENGTH, choices)); });
    Sometimes(choices, [&] {
        const int mode = choices.Below(6) - 1;
        time.SetMeasurementMode(static_cast<MeasurementTime::MeasurementModeType>(mode));
    });
    Sometimes(choices, [&] {
        QStringList names;
        for (int left = choices.Below(6); left > 0; --left)
            names += PlainText(choices);
        time.SetMeasurementModeStringList(names);
    });
}

template <class T>
std::unique_ptr<Specimen> Make(Choices& choices)
{
    auto specimen = std::make_unique<SpecimenOf<T>>();
    specimen->Object().SetValidate(false);
    Fill(specimen->Object(), choices);
    return specimen;
}

} // namespace

std::unique_ptr<Specimen> Generated(int number)
{
    using Maker = std::unique_ptr<Specimen> (*)(Choices&);
    // Every other one has binary forms.
    static constexpr std::array<Maker, 18> MAKERS = {
        Make<ReportBase>,  Make<REPORTGENERATOR::Double>, Make<Area>,       Make<ValueMinMax>,
        Make<Coordinate>,  Make<FrequencyRangeOld>,       Make<Frequency>,  Make<FrequencyInformation>,
        Make<IFBandwidth>, Make<FrequencyListValue>,      Make<ReportBase>, Make<Ellipse>,
        Make<Area>,        Make<ChannelSpacing>,          Make<Coordinate>, Make<ScanParameter>,
        Make<Frequency>,   Make<MeasurementTime>,
    };
    Choices choices(static_cast<quint64>(number));
    return MAKERS[static_cast<std::size_t>(number) % MAKERS.size()](choices);
}

} // namespace Digest
