#include "support/states.h"

#include <QtCore/QByteArray>

namespace Support {
namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ReportBase;

std::string Shown(double number)
{
    return QByteArray::number(number, 'g', 17).toStdString();
}

std::string Shown(bool value)
{
    return value ? "true" : "false";
}

std::string Shown(const QString& text)
{
    return ::testing::PrintToString(text);
}

template <class Value>
std::string Line(const char* name, const std::optional<Value>& value)
{
    return std::string("  ") + name + ": " + (value ? Shown(*value) : "not set") + "\n";
}

std::string Indented(const std::string& lines)
{
    std::string text;
    std::size_t begin = 0;
    while (begin < lines.size()) {
        const std::size_t end = lines.find('\n', begin) + 1;
        text += "  " + lines.substr(begin, end - begin);
        begin = end;
    }
    return text;
}

template <class State>
std::string Child(const char* name, const std::optional<State>& state)
{
    return std::string("  ") + name +
           (state ? ":\n" + Indented(Describe(*state)) : std::string(": not set\n"));
}

template <class Value>
std::optional<Value> If(bool isSet, const Value& value)
{
    return isSet ? std::optional<Value>(value) : std::nullopt;
}

template <class Object, class State>
void FillBounds(Object& object, const State& state)
{
    if (state.value)
        object.SetValue(*state.value);
    if (state.min)
        object.SetMin(*state.min);
    if (state.max)
        object.SetMax(*state.max);
}

} // namespace

std::string Describe(const FrequencyState& state)
{
    return Line("value", state.value) + Line("min", state.min) + Line("max", state.max) +
           Line("use", state.use);
}

std::string Describe(const BandwidthState& state)
{
    return Line("value", state.value) + Line("min", state.min) + Line("max", state.max);
}

std::string Describe(const CoordinateState& state)
{
    return Line("longitude", state.longitude) + Line("latitude", state.latitude);
}

std::string Describe(const AreaState& state)
{
    std::string text = Line("name", state.name);
    text += "  coordinates: " + std::string(state.AreCoordinatesSet() ? "set" : "not set") + ", " +
            std::to_string(state.coordinates.size()) + "\n";
    for (const CoordinateState& coordinate : state.coordinates)
        text += Indented(Describe(coordinate));
    text += Line("script identifier", state.scriptID);
    text += "  initial version loaded: \"" + state.initialVersionLoaded.toStdString() + "\"\n";
    return text;
}

std::string Describe(const ReportState& state)
{
    return Child("frequency", state.frequency) + Child("IF bandwidth", state.bandwidth) +
           Child("area", state.area);
}

std::string Describe(const DoubleState& state)
{
    return "  name: " + Shown(state.name) + "\n" + Line("value", state.value) +
           Line("minimum", state.minimum) + Line("maximum", state.maximum) +
           Line("default", state.defaultValue) + "  unit: \"" + state.unit.toStdString() + "\"\n";
}

FrequencyState StateOf(const Frequency& object)
{
    FrequencyState state;
    state.value = If(object.IsValueSet(), object.GetValue());
    state.min = If(object.IsMinSet(), object.GetMin());
    state.max = If(object.IsMaxSet(), object.GetMax());
    state.use = If(object.IsUseSet(), object.GetUse());
    return state;
}

BandwidthState StateOf(const IFBandwidth& object)
{
    BandwidthState state;
    state.value = If(object.IsValueSet(), object.GetValue());
    state.min = If(object.IsMinSet(), object.GetMin());
    state.max = If(object.IsMaxSet(), object.GetMax());
    return state;
}

CoordinateState StateOf(const Coordinate& object)
{
    CoordinateState state;
    state.longitude = If(object.IsLongitudeSet(), object.GetLongitude());
    state.latitude = If(object.IsLatitudeSet(), object.GetLatitude());
    return state;
}

AreaState StateOf(const Area& object)
{
    AreaState state;
    state.name = If(object.IsNameSet(), object.GetName());
    state.coordinatesSet = object.IsCoordinateSet();
    for (const Coordinate& coordinate : object.GetCoordinate())
        state.coordinates.push_back(StateOf(coordinate));
    state.scriptID = If(object.IsScriptIDSet(), object.GetScriptID());
    state.initialVersionLoaded = object.GetInitialVersionLoaded();
    return state;
}

ReportState StateOf(const ReportBase& object)
{
    ReportState state;
    if (object.IsFrequencySet())
        state.frequency = StateOf(object.GetFrequency());
    if (object.IsIFBandwidthSet())
        state.bandwidth = StateOf(object.GetIFBandwidth());
    if (object.IsAreaSet())
        state.area = StateOf(object.GetArea());
    return state;
}

DoubleState StateOf(const REPORTGENERATOR::Double& object)
{
    const auto ifValid = [&object](double number) { return If(object.IsValid(number), number); };
    DoubleState state;
    state.name = object.GetName();
    state.value = ifValid(object.GetValue());
    state.minimum = ifValid(object.GetMinimum());
    state.maximum = ifValid(object.GetMaximum());
    state.defaultValue = ifValid(object.GetDefault());
    state.unit = object.GetUnit();
    return state;
}

void Fill(Frequency& object, const FrequencyState& state)
{
    FillBounds(object, state);
    if (state.use)
        object.SetUse(*state.use);
}

void Fill(IFBandwidth& object, const BandwidthState& state)
{
    FillBounds(object, state);
}

void Fill(Coordinate& object, const CoordinateState& state)
{
    if (state.longitude)
        object.SetLongitude(*state.longitude);
    if (state.latitude)
        object.SetLatitude(*state.latitude);
}

void Fill(Area& object, const AreaState& state)
{
    if (state.name)
        object.SetName(*state.name);
    for (const CoordinateState& coordinateState : state.coordinates) {
        Coordinate coordinate;
        coordinate.SetValidate(object.GetValidate());
        Fill(coordinate, coordinateState);
        object.AppendCoordinate(coordinate);
    }
    if (state.AreCoordinatesSet())
        object.GetCoordinate(); // asking for the list that can be changed marks it as set
    if (state.scriptID)
        object.SetScriptID(*state.scriptID);
}

void Fill(ReportBase& object, const ReportState& state)
{
    if (state.frequency)
        Fill(object.GetFrequency(), *state.frequency);
    if (state.bandwidth)
        Fill(object.GetIFBandwidth(), *state.bandwidth);
    if (state.area)
        Fill(object.GetArea(), *state.area);
}

void Fill(REPORTGENERATOR::Double& object, const DoubleState& state)
{
    object.SetName(state.name);
    if (state.value)
        object.SetValue(*state.value);
    if (state.minimum)
        object.SetMinimum(*state.minimum);
    if (state.maximum)
        object.SetMaximum(*state.maximum);
    if (state.defaultValue)
        object.SetDefault(*state.defaultValue);
    object.SetUnit(state.unit);
}

} // namespace Support
