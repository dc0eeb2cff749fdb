#ifndef REPORTGENERATOR_QT_ASWRITTEN_H
#define REPORTGENERATOR_QT_ASWRITTEN_H

#include <reportgenerator/qt/optional.h>

#include <QtCore/QString>

#include <algorithm>
#include <cmath>
#include <type_traits>

// XML and the binary representations keep six decimals of degrees and of a `Double`, and two decimals of all other
// numbers. A report that is read back therefore differs by `==` from the one that was written, as soon as a number has
// more. `EqualAsWritten` compares objects by what these forms keep of them.
//
// Two numbers are equal when the same text is written for them, or when both round to zero, whatever the signs. So a NaN
// is the same as another. Whether a field is set counts as in `==`, and so do texts.

namespace REPORTGENERATOR {

namespace detail {

constexpr int DECIMALS_OF_DEGREES = 6;
constexpr int DECIMALS_OF_DOUBLE = 6;
constexpr int DECIMALS = 2;

/// Whether the numbers are the same when they are written with that many decimals.
inline bool EqualWithDecimals(double left, double right, int decimals)
{
    if (left == right)
        return true;
    // Most numbers that differ need no text: these are more than a unit of the last decimal apart. Infinite ones and
    // NaN aren't.
    const double unit = decimals == DECIMALS ? 1e-2 : 1e-6;
    if (std::fabs(left - right) > 2.0 * unit && std::isfinite(left) && std::isfinite(right))
        return false;
    const QString leftText = QString::number(left, 'f', decimals);
    const QString rightText = QString::number(right, 'f', decimals);
    return leftText == rightText || (leftText.toDouble() == 0.0 && rightText.toDouble() == 0.0);
}

inline bool EqualAsWritten(double left, double right)
{
    return EqualWithDecimals(left, right, DECIMALS);
}

// --- A field of two objects

template <class Value>
bool EqualValues(const Value& left, const Value& right, int decimals)
{
    if constexpr (std::is_same_v<Value, double>)
        return EqualWithDecimals(left, right, decimals);
    else
        return left == right;
}

template <class Object, class Base, class Value>
bool EqualFields(const Object& left, const Object& right, const Field<Base, Value>& field)
{
    constexpr int DECIMALS_OF_CLASS = std::is_same_v<Object, Coordinate> ? DECIMALS_OF_DEGREES : DECIMALS;
    const bool isSet = field.IsSetIn(left);
    return isSet == field.IsSetIn(right) &&
           (!isSet || EqualValues(field.In(left), field.In(right), DECIMALS_OF_CLASS));
}

inline bool EqualFields(const Area& left, const Area& right, const PointsField& field);

template <class Object>
bool EqualFields(const Object& left, const Object& right, const RangeField& field);

/// All fields of the class.
template <class Object>
bool EqualInFields(const Object& left, const Object& right)
{
    return std::apply([&](const auto&... field) { return (EqualFields(left, right, field) && ...); },
                      FieldsOf(left));
}

} // namespace detail

// --- Objects of a report

/// Six decimals of a degree, a decimetre.
inline bool EqualAsWritten(const Coordinate& left, const Coordinate& right)
{
    return detail::EqualInFields(left, right);
}

/// Two decimals of value and bounds.
inline bool EqualAsWritten(const Frequency& left, const Frequency& right)
{
    return detail::EqualInFields(left, right);
}

/// Two decimals of value and bounds.
inline bool EqualAsWritten(const IFBandwidth& left, const IFBandwidth& right)
{
    return detail::EqualInFields(left, right);
}

/// Name, script identifier and the coordinates one by one, in their order. An empty list is the same as none, on either
/// side.
inline bool EqualAsWritten(const Area& left, const Area& right)
{
    return detail::EqualInFields(left, right);
}

inline bool detail::EqualFields(const Area& left, const Area& right, const PointsField& /*field*/)
{
    const QVector<Coordinate>& leftPoints = left.GetCoordinate();
    const QVector<Coordinate>& rightPoints = right.GetCoordinate();
    return std::equal(leftPoints.cbegin(), leftPoints.cend(), rightPoints.cbegin(), rightPoints.cend(),
                      EqualInFields<Coordinate>);
}

/// The members that the reports carry. A member that only one of them carries makes them differ, whatever it holds.
inline bool EqualAsWritten(const ReportBase& left, const ReportBase& right)
{
    return left.IsFrequencySet() == right.IsFrequencySet() &&
           left.IsIFBandwidthSet() == right.IsIFBandwidthSet() && left.IsAreaSet() == right.IsAreaSet() &&
           (!left.IsFrequencySet() || EqualAsWritten(left.GetFrequency(), right.GetFrequency())) &&
           (!left.IsIFBandwidthSet() || EqualAsWritten(left.GetIFBandwidth(), right.GetIFBandwidth())) &&
           (!left.IsAreaSet() || EqualAsWritten(left.GetArea(), right.GetArea()));
}

// --- Objects of a task

/// Six decimals; the unit, and the name too, which the element bears.
inline bool EqualAsWritten(const Double& left, const Double& right)
{
    const IRGObject& leftObject = left;
    const IRGObject& rightObject = right;
    const auto equal = [&](double leftValue, double rightValue) {
        const bool isSet = leftObject.IsValid(leftValue);
        return isSet == rightObject.IsValid(rightValue) &&
               (!isSet || detail::EqualWithDecimals(leftValue, rightValue, detail::DECIMALS_OF_DOUBLE));
    };
    return left.GetName() == right.GetName() && left.GetUnit() == right.GetUnit() &&
           equal(left.GetValue(), right.GetValue()) && equal(left.GetMinimum(), right.GetMinimum()) &&
           equal(left.GetMaximum(), right.GetMaximum()) && equal(left.GetDefault(), right.GetDefault());
}

/// Two decimals, and the name.
inline bool EqualAsWritten(const ValueMinMax& left, const ValueMinMax& right)
{
    return left.GetName() == right.GetName() && detail::EqualInFields(left, right);
}

/// Two decimals.
inline bool EqualAsWritten(const FrequencyRangeOld& left, const FrequencyRangeOld& right)
{
    return detail::EqualInFields(left, right);
}

template <class Object>
bool detail::EqualFields(const Object& left, const Object& right, const RangeField& /*field*/)
{
    return EqualInFields(left.GetFrequencyRange(), right.GetFrequencyRange());
}

/// Two decimals of frequency, bounds and range.
inline bool EqualAsWritten(const FrequencyInformation& left, const FrequencyInformation& right)
{
    return detail::EqualInFields(left, right);
}

/// Two decimals of frequency and bounds, and the time stamp, none of which but the frequency counts in `==`.
inline bool EqualAsWritten(const FrequencyListValue& left, const FrequencyListValue& right)
{
    return detail::EqualInFields<FrequencyHolder>(left, right) && left.GetTimeStamp() == right.GetTimeStamp();
}

/// Two decimals.
inline bool EqualAsWritten(const Ellipse& left, const Ellipse& right)
{
    return detail::EqualInFields(left, right);
}

/// Two decimals of the spacings, one by one; the display text; and "same distance", of which "false" and unset are the
/// same as in `==`.
inline bool EqualAsWritten(const ChannelSpacing& left, const ChannelSpacing& right)
{
    const QVector<double>& leftValues = left.GetValues();
    const QVector<double>& rightValues = right.GetValues();
    return left.GetVisual() == right.GetVisual() && left.IsSameDistance() == right.IsSameDistance() &&
           std::equal(leftValues.cbegin(), leftValues.cend(), rightValues.cbegin(), rightValues.cend(),
                      [](double one, double other) { return detail::EqualAsWritten(one, other); });
}

/// Two decimals of range, step and times.
inline bool EqualAsWritten(const ScanParameter& left, const ScanParameter& right)
{
    return detail::EqualInFields(left, right);
}

/// The mode, and the time with six decimals. The mode is compared although its element is written empty.
inline bool EqualAsWritten(const MeasurementTime& left, const MeasurementTime& right)
{
    return left.GetMeasurementMode() == right.GetMeasurementMode() &&
           EqualAsWritten(left.GetMeasurementTime(), right.GetMeasurementTime());
}

} // namespace REPORTGENERATOR

#endif
