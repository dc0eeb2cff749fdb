#ifndef REPORTGENERATOR_QT_OPTIONAL_H
#define REPORTGENERATOR_QT_OPTIONAL_H

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/scanparameter.h>

#include <QtCore/QDateTime>
#include <QtCore/QString>

#include <optional>
#include <tuple>
#include <type_traits>

// Fields that may be unset, as `std::optional`: `OptionalX` gives what `GetX` gives when the field is set, and nothing
// when it isn't; `SetOptionalX` sets the field as `SetX` does, exceptions included, and unsets it for nothing. Asking
// marks nothing as set and makes no record. Units, ranges and errors are those of the class's own functions.
//
//     const double shown = OptionalMin(frequency).value_or(0.0);
//     SetOptionalMax(frequency, std::nullopt);
//
// At the end stands for each class which fields it has. What the other headers do with all fields goes by that.

namespace REPORTGENERATOR {

namespace detail {

/// A number of a class in which one number stands for "not set".
inline std::optional<double> OptionalNumberOf(const IRGObject& object, double value)
{
    return object.IsValid(value) ? std::optional<double>(value) : std::nullopt;
}

/// The number to be stored for what may be nothing.
inline double NumberOr(const IRGObject& object, const std::optional<double>& value)
{
    double number = 0.0;
    object.SetInvalid(number);
    return value.value_or(number);
}

} // namespace detail

// --- Objects of a report

/// The value of a `Frequency` or an `IFBandwidth`.
template <class Data>
std::optional<double> OptionalValue(const BoundedValue<Data>& object)
{
    return object.IsValueSet() ? std::optional<double>(object.GetValue()) : std::nullopt;
}

/// Sets it, or unsets it for nothing.
template <class Data>
void SetOptionalValue(BoundedValue<Data>& object, const std::optional<double>& value)
{
    if (value)
        object.SetValue(*value);
    else
        object.ResetValue();
}

/// The lower bound of a `Frequency` or an `IFBandwidth`.
template <class Data>
std::optional<double> OptionalMin(const BoundedValue<Data>& object)
{
    return object.IsMinSet() ? std::optional<double>(object.GetMin()) : std::nullopt;
}

/// Sets it, or unsets it for nothing.
template <class Data>
void SetOptionalMin(BoundedValue<Data>& object, const std::optional<double>& value)
{
    if (value)
        object.SetMin(*value);
    else
        object.ResetMin();
}

/// The upper bound of a `Frequency` or an `IFBandwidth`.
template <class Data>
std::optional<double> OptionalMax(const BoundedValue<Data>& object)
{
    return object.IsMaxSet() ? std::optional<double>(object.GetMax()) : std::nullopt;
}

/// Sets it, or unsets it for nothing.
template <class Data>
void SetOptionalMax(BoundedValue<Data>& object, const std::optional<double>& value)
{
    if (value)
        object.SetMax(*value);
    else
        object.ResetMax();
}

/// Whether the frequency is to be used.
inline std::optional<bool> OptionalUse(const Frequency& object)
{
    return object.IsUseSet() ? std::optional<bool>(object.GetUse()) : std::nullopt;
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalUse(Frequency& object, const std::optional<bool>& value)
{
    if (value)
        object.SetUse(*value);
    else
        object.ResetUse();
}

/// Degrees east.
inline std::optional<double> OptionalLongitude(const Coordinate& object)
{
    return object.IsLongitudeSet() ? std::optional<double>(object.GetLongitude()) : std::nullopt;
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalLongitude(Coordinate& object, const std::optional<double>& value)
{
    if (value)
        object.SetLongitude(*value);
    else
        object.ResetLongitude();
}

/// Degrees north.
inline std::optional<double> OptionalLatitude(const Coordinate& object)
{
    return object.IsLatitudeSet() ? std::optional<double>(object.GetLatitude()) : std::nullopt;
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalLatitude(Coordinate& object, const std::optional<double>& value)
{
    if (value)
        object.SetLatitude(*value);
    else
        object.ResetLatitude();
}

/// The name of an area.
inline std::optional<QString> OptionalName(const Area& object)
{
    return object.IsNameSet() ? std::optional<QString>(object.GetName()) : std::nullopt;
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalName(Area& object, const std::optional<QString>& value)
{
    if (value)
        object.SetName(*value);
    else
        object.ResetName();
}

/// The script identifier of an area.
inline std::optional<QString> OptionalScriptID(const Area& object)
{
    return object.IsScriptIDSet() ? std::optional<QString>(object.GetScriptID()) : std::nullopt;
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalScriptID(Area& object, const std::optional<QString>& value)
{
    if (value)
        object.SetScriptID(*value);
    else
        object.ResetScriptID();
}

/// A copy of the frequency that the report carries.
inline std::optional<Frequency> OptionalFrequency(const ReportBase& object)
{
    return object.IsFrequencySet() ? std::optional<Frequency>(object.GetFrequency()) : std::nullopt;
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalFrequency(ReportBase& object, const std::optional<Frequency>& value)
{
    if (value)
        object.SetFrequency(*value);
    else
        object.ResetFrequency();
}

/// A copy of the IF bandwidth that the report carries.
inline std::optional<IFBandwidth> OptionalIFBandwidth(const ReportBase& object)
{
    return object.IsIFBandwidthSet() ? std::optional<IFBandwidth>(object.GetIFBandwidth()) : std::nullopt;
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalIFBandwidth(ReportBase& object, const std::optional<IFBandwidth>& value)
{
    if (value)
        object.SetIFBandwidth(*value);
    else
        object.ResetIFBandwidth();
}

/// A copy of the area that the report carries.
inline std::optional<Area> OptionalArea(const ReportBase& object)
{
    return object.IsAreaSet() ? std::optional<Area>(object.GetArea()) : std::nullopt;
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalArea(ReportBase& object, const std::optional<Area>& value)
{
    if (value)
        object.SetArea(*value);
    else
        object.ResetArea();
}

// --- Objects of a task

/// The value of a `Double`, in its own unit.
inline std::optional<double> OptionalValue(const Double& object)
{
    return detail::OptionalNumberOf(object, object.GetValue());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalValue(Double& object, const std::optional<double>& value)
{
    object.SetValue(value.value_or(object.GetDefaultInvalidValue()));
}

/// The lower bound of a `Double`.
inline std::optional<double> OptionalMinimum(const Double& object)
{
    return detail::OptionalNumberOf(object, object.GetMinimum());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalMinimum(Double& object, const std::optional<double>& value)
{
    object.SetMinimum(value.value_or(object.GetDefaultInvalidValue()));
}

/// The upper bound of a `Double`.
inline std::optional<double> OptionalMaximum(const Double& object)
{
    return detail::OptionalNumberOf(object, object.GetMaximum());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalMaximum(Double& object, const std::optional<double>& value)
{
    object.SetMaximum(value.value_or(object.GetDefaultInvalidValue()));
}

/// The default of a `Double`.
inline std::optional<double> OptionalDefault(const Double& object)
{
    return detail::OptionalNumberOf(object, object.GetDefault());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalDefault(Double& object, const std::optional<double>& value)
{
    object.SetDefault(value.value_or(object.GetDefaultInvalidValue()));
}

/// The unit of a `Double`, nothing when it is empty.
inline std::optional<QString> OptionalUnit(const Double& object)
{
    return object.GetUnit().isEmpty() ? std::nullopt : std::optional<QString>(object.GetUnit());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalUnit(Double& object, const std::optional<QString>& value)
{
    object.SetUnit(value.value_or(QString()));
}

/// The value of a `ValueMinMax`.
inline std::optional<double> OptionalValue(const ValueMinMax& object)
{
    return detail::OptionalNumberOf(object, object.GetValue());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalValue(ValueMinMax& object, const std::optional<double>& value)
{
    object.SetValue(detail::NumberOr(object, value));
}

/// Its lower bound.
inline std::optional<double> OptionalMin(const ValueMinMax& object)
{
    return detail::OptionalNumberOf(object, object.GetMin());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalMin(ValueMinMax& object, const std::optional<double>& value)
{
    object.SetMin(detail::NumberOr(object, value));
}

/// Its upper bound.
inline std::optional<double> OptionalMax(const ValueMinMax& object)
{
    return detail::OptionalNumberOf(object, object.GetMax());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalMax(ValueMinMax& object, const std::optional<double>& value)
{
    object.SetMax(detail::NumberOr(object, value));
}

/// The frequency of a `FrequencyInformation` or a `FrequencyListValue`.
inline std::optional<double> OptionalFrequency(const FrequencyHolder& object)
{
    return detail::OptionalNumberOf(object, object.GetFrequency());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalFrequency(FrequencyHolder& object, const std::optional<double>& value)
{
    object.SetFrequency(detail::NumberOr(object, value));
}

/// Its lower bound.
inline std::optional<double> OptionalFrequencyMin(const FrequencyHolder& object)
{
    return detail::OptionalNumberOf(object, object.GetFrequencyMin());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalFrequencyMin(FrequencyHolder& object, const std::optional<double>& value)
{
    object.SetFrequencyMin(detail::NumberOr(object, value));
}

/// Its upper bound.
inline std::optional<double> OptionalFrequencyMax(const FrequencyHolder& object)
{
    return detail::OptionalNumberOf(object, object.GetFrequencyMax());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalFrequencyMax(FrequencyHolder& object, const std::optional<double>& value)
{
    object.SetFrequencyMax(detail::NumberOr(object, value));
}

/// The time stamp of an entry. There is no setter: it is set by reading only.
inline std::optional<QDateTime> OptionalTimeStamp(const FrequencyListValue& object)
{
    return object.GetTimeStamp().isNull() ? std::nullopt : std::optional<QDateTime>(object.GetTimeStamp());
}

/// Where a range starts.
inline std::optional<double> OptionalStartFrequency(const FrequencyRangeOld& object)
{
    return detail::OptionalNumberOf(object, object.GetStartFrequency());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalStartFrequency(FrequencyRangeOld& object, const std::optional<double>& value)
{
    object.SetStartFrequency(detail::NumberOr(object, value));
}

/// Where a range stops.
inline std::optional<double> OptionalStopFrequency(const FrequencyRangeOld& object)
{
    return detail::OptionalNumberOf(object, object.GetStopFrequency());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalStopFrequency(FrequencyRangeOld& object, const std::optional<double>& value)
{
    object.SetStopFrequency(detail::NumberOr(object, value));
}

/// The radius of an ellipse that is meant to be the smaller one.
inline std::optional<double> OptionalMinRadius(const Ellipse& object)
{
    return detail::OptionalNumberOf(object, object.GetMinRadius());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalMinRadius(Ellipse& object, const std::optional<double>& value)
{
    object.SetMinRadius(detail::NumberOr(object, value));
}

/// The other radius of an ellipse.
inline std::optional<double> OptionalMaxRadius(const Ellipse& object)
{
    return detail::OptionalNumberOf(object, object.GetMaxRadius());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalMaxRadius(Ellipse& object, const std::optional<double>& value)
{
    object.SetMaxRadius(detail::NumberOr(object, value));
}

/// By how much an ellipse is turned.
inline std::optional<double> OptionalRotation(const Ellipse& object)
{
    return detail::OptionalNumberOf(object, object.GetRotation());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalRotation(Ellipse& object, const std::optional<double>& value)
{
    object.SetRotation(detail::NumberOr(object, value));
}

/// The frequency step of a scan.
inline std::optional<double> OptionalStepFrequency(const ScanParameter& object)
{
    return detail::OptionalNumberOf(object, object.GetStepFrequency());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalStepFrequency(ScanParameter& object, const std::optional<double>& value)
{
    object.SetStepFrequency(detail::NumberOr(object, value));
}

/// The dwell time of a scan.
inline std::optional<double> OptionalDwellTime(const ScanParameter& object)
{
    return detail::OptionalNumberOf(object, object.GetDwellTime());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalDwellTime(ScanParameter& object, const std::optional<double>& value)
{
    object.SetDwellTime(detail::NumberOr(object, value));
}

/// The hold time of a scan.
inline std::optional<double> OptionalHoldTime(const ScanParameter& object)
{
    return detail::OptionalNumberOf(object, object.GetHoldTime());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalHoldTime(ScanParameter& object, const std::optional<double>& value)
{
    object.SetHoldTime(detail::NumberOr(object, value));
}

/// Whether the channels lie at the same distance. There is no setter: once set it is unset with the whole object only.
inline std::optional<bool> OptionalSameDistance(const ChannelSpacing& object)
{
    return object.IsValidSameDistance() ? std::optional<bool>(object.IsSameDistance()) : std::nullopt;
}

/// The display text of a raster, nothing when it is empty.
inline std::optional<QString> OptionalVisual(const ChannelSpacing& object)
{
    return object.GetVisual().isEmpty() ? std::nullopt : std::optional<QString>(object.GetVisual());
}

/// Sets it, or unsets it for nothing.
inline void SetOptionalVisual(ChannelSpacing& object, const std::optional<QString>& value)
{
    object.SetVisual(value.value_or(QString()));
}

/// The mode of a measurement. There is no setter: once set it is unset with the whole object only.
inline std::optional<MeasurementTime::MeasurementModeType>
OptionalMeasurementMode(const MeasurementTime& object)
{
    using Mode = MeasurementTime::MeasurementModeType;
    const Mode mode = object.GetMeasurementMode();
    return object.IsValidMeasurementModeType(mode) ? std::optional<Mode>(mode) : std::nullopt;
}

// --- The fields of each class

namespace detail {

/// A value. Of a class that doesn't remember which fields are set it is a number, one of which stands for "not set".
template <class Object, class Value>
struct Field
{
    const char* name; ///< in a line of text
    Value (Object::*get)() const;
    void (Object::*set)(Value);
    bool (Object::*isSet)() const;
    const char* path; ///< as `reporttool` has it

    Value In(const Object& object) const { return (object.*get)(); }

    bool IsSetIn(const Object& object) const
    {
        if constexpr (std::is_same_v<Value, double>) {
            if (!isSet)
                return static_cast<const IRGObject&>(object).IsValid(In(object));
        }
        return (object.*isSet)();
    }
};

template <class Object, class Value>
Field<Object, Value> MakeField(const char* name, Value (Object::*get)() const, void (Object::*set)(Value),
                               bool (Object::*isSet)() const = nullptr, const char* path = nullptr)
{
    return {name, get, set, isSet, path ? path : name};
}

/// The coordinates of an area.
struct PointsField
{
};

/// The range of a `FrequencyInformation` or a `ScanParameter`.
struct RangeField
{
};

template <class Data>
auto FieldsOf(const BoundedValue<Data>& /*object*/)
{
    using Object = BoundedValue<Data>;
    return std::make_tuple(MakeField("value", &Object::GetValue, &Object::SetValue, &Object::IsValueSet),
                           MakeField("min", &Object::GetMin, &Object::SetMin, &Object::IsMinSet),
                           MakeField("max", &Object::GetMax, &Object::SetMax, &Object::IsMaxSet));
}

inline auto FieldsOf(const Frequency& object)
{
    const BoundedValue<FrequencyData>& bounded = object;
    return std::tuple_cat(
        FieldsOf(bounded),
        std::make_tuple(MakeField("use", &Frequency::GetUse, &Frequency::SetUse, &Frequency::IsUseSet)));
}

inline auto FieldsOf(const Coordinate& /*object*/)
{
    using Object = Coordinate;
    return std::make_tuple(
        MakeField("longitude", &Object::GetLongitude, &Object::SetLongitude, &Object::IsLongitudeSet),
        MakeField("latitude", &Object::GetLatitude, &Object::SetLatitude, &Object::IsLatitudeSet));
}

inline auto FieldsOf(const Area& /*object*/)
{
    return std::make_tuple(
        MakeField("name", &Area::GetName, &Area::SetName, &Area::IsNameSet), PointsField(),
        MakeField("script", &Area::GetScriptID, &Area::SetScriptID, &Area::IsScriptIDSet, "scriptId"));
}

inline auto FieldsOf(const ValueMinMax& /*object*/)
{
    return std::make_tuple(MakeField("value", &ValueMinMax::GetValue, &ValueMinMax::SetValue),
                           MakeField("min", &ValueMinMax::GetMin, &ValueMinMax::SetMin),
                           MakeField("max", &ValueMinMax::GetMax, &ValueMinMax::SetMax));
}

inline auto FieldsOf(const FrequencyRangeOld& /*object*/)
{
    using Object = FrequencyRangeOld;
    return std::make_tuple(MakeField("start", &Object::GetStartFrequency, &Object::SetStartFrequency),
                           MakeField("stop", &Object::GetStopFrequency, &Object::SetStopFrequency));
}

inline auto FieldsOf(const FrequencyHolder& /*object*/)
{
    using Object = FrequencyHolder;
    return std::make_tuple(MakeField("frequency", &Object::GetFrequency, &Object::SetFrequency),
                           MakeField("min", &Object::GetFrequencyMin, &Object::SetFrequencyMin),
                           MakeField("max", &Object::GetFrequencyMax, &Object::SetFrequencyMax));
}

inline auto FieldsOf(const FrequencyInformation& object)
{
    const FrequencyHolder& holder = object;
    return std::tuple_cat(FieldsOf(holder), std::make_tuple(RangeField()));
}

inline auto FieldsOf(const Ellipse& /*object*/)
{
    return std::make_tuple(MakeField("minRadius", &Ellipse::GetMinRadius, &Ellipse::SetMinRadius),
                           MakeField("maxRadius", &Ellipse::GetMaxRadius, &Ellipse::SetMaxRadius),
                           MakeField("rotation", &Ellipse::GetRotation, &Ellipse::SetRotation));
}

inline auto FieldsOf(const ScanParameter& /*object*/)
{
    using Object = ScanParameter;
    return std::make_tuple(RangeField(),
                           MakeField("step", &Object::GetStepFrequency, &Object::SetStepFrequency),
                           MakeField("dwell", &Object::GetDwellTime, &Object::SetDwellTime),
                           MakeField("hold", &Object::GetHoldTime, &Object::SetHoldTime));
}

/// Calls `visit` with each field of the object's class.
template <class Object, class Visit>
void ForEachField(const Object& object, Visit&& visit)
{
    std::apply([&visit](const auto&... field) { (visit(field), ...); }, FieldsOf(object));
}

} // namespace detail

} // namespace REPORTGENERATOR

#endif
