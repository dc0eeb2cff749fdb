#ifndef REPORTGENERATOR_QT_ASWRITTEN_H
#define REPORTGENERATOR_QT_ASWRITTEN_H

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/scanparameter.h>

#include <QtCore/QString>

#include <algorithm>
#include <cmath>

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

/// A number that may be unset.
inline bool EqualFields(bool isLeftSet, double left, bool isRightSet, double right, int decimals = DECIMALS)
{
    return isLeftSet == isRightSet && (!isLeftSet || EqualWithDecimals(left, right, decimals));
}

/// A number of a class in which one number stands for "not set".
inline bool EqualNumbersOf(const IRGObject& leftObject, double left, const IRGObject& rightObject,
                           double right, int decimals = DECIMALS)
{
    return EqualFields(leftObject.IsValid(left), left, rightObject.IsValid(right), right, decimals);
}

template <class Data>
bool EqualBoundedValues(const BoundedValue<Data>& left, const BoundedValue<Data>& right)
{
    return EqualFields(left.IsValueSet(), left.GetValue(), right.IsValueSet(), right.GetValue()) &&
           EqualFields(left.IsMinSet(), left.GetMin(), right.IsMinSet(), right.GetMin()) &&
           EqualFields(left.IsMaxSet(), left.GetMax(), right.IsMaxSet(), right.GetMax());
}

inline bool EqualFrequencies(const FrequencyHolder& left, const FrequencyHolder& right)
{
    return EqualNumbersOf(left, left.GetFrequency(), right, right.GetFrequency()) &&
           EqualNumbersOf(left, left.GetFrequencyMin(), right, right.GetFrequencyMin()) &&
           EqualNumbersOf(left, left.GetFrequencyMax(), right, right.GetFrequencyMax());
}

} // namespace detail

// --- Objects of a report

/// Six decimals of a degree, a decimetre.
inline bool EqualAsWritten(const Coordinate& left, const Coordinate& right)
{
    const auto equal = [](bool isLeftSet, double leftValue, bool isRightSet, double rightValue) {
        return detail::EqualFields(isLeftSet, leftValue, isRightSet, rightValue, detail::DECIMALS_OF_DEGREES);
    };
    return equal(left.IsLongitudeSet(), left.GetLongitude(), right.IsLongitudeSet(), right.GetLongitude()) &&
           equal(left.IsLatitudeSet(), left.GetLatitude(), right.IsLatitudeSet(), right.GetLatitude());
}

/// Two decimals of value and bounds.
inline bool EqualAsWritten(const Frequency& left, const Frequency& right)
{
    return detail::EqualBoundedValues(left, right) && left.IsUseSet() == right.IsUseSet() &&
           (!left.IsUseSet() || left.GetUse() == right.GetUse());
}

/// Two decimals of value and bounds.
inline bool EqualAsWritten(const IFBandwidth& left, const IFBandwidth& right)
{
    return detail::EqualBoundedValues(left, right);
}

/// Name, script identifier and the coordinates one by one, in their order. An empty list is the same as none, on either
/// side.
inline bool EqualAsWritten(const Area& left, const Area& right)
{
    const QVector<Coordinate>& leftPoints = left.GetCoordinate();
    const QVector<Coordinate>& rightPoints = right.GetCoordinate();
    return left.IsNameSet() == right.IsNameSet() &&
           (!left.IsNameSet() || left.GetName() == right.GetName()) &&
           left.IsScriptIDSet() == right.IsScriptIDSet() &&
           (!left.IsScriptIDSet() || left.GetScriptID() == right.GetScriptID()) &&
           std::equal(
               leftPoints.cbegin(), leftPoints.cend(), rightPoints.cbegin(), rightPoints.cend(),
               [](const Coordinate& one, const Coordinate& other) { return EqualAsWritten(one, other); });
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
    const auto equal = [&](double leftValue, double rightValue) {
        return detail::EqualNumbersOf(left, leftValue, right, rightValue, detail::DECIMALS_OF_DOUBLE);
    };
    return left.GetName() == right.GetName() && left.GetUnit() == right.GetUnit() &&
           equal(left.GetValue(), right.GetValue()) && equal(left.GetMinimum(), right.GetMinimum()) &&
           equal(left.GetMaximum(), right.GetMaximum()) && equal(left.GetDefault(), right.GetDefault());
}

/// Two decimals, and the name.
inline bool EqualAsWritten(const ValueMinMax& left, const ValueMinMax& right)
{
    return left.GetName() == right.GetName() &&
           detail::EqualNumbersOf(left, left.GetValue(), right, right.GetValue()) &&
           detail::EqualNumbersOf(left, left.GetMin(), right, right.GetMin()) &&
           detail::EqualNumbersOf(left, left.GetMax(), right, right.GetMax());
}

/// Two decimals.
inline bool EqualAsWritten(const FrequencyRangeOld& left, const FrequencyRangeOld& right)
{
    return detail::EqualNumbersOf(left, left.GetStartFrequency(), right, right.GetStartFrequency()) &&
           detail::EqualNumbersOf(left, left.GetStopFrequency(), right, right.GetStopFrequency());
}

/// Two decimals of frequency, bounds and range.
inline bool EqualAsWritten(const FrequencyInformation& left, const FrequencyInformation& right)
{
    return detail::EqualFrequencies(left, right) &&
           EqualAsWritten(left.GetFrequencyRange(), right.GetFrequencyRange());
}

/// Two decimals of frequency and bounds, and the time stamp, none of which but the frequency counts in `==`.
inline bool EqualAsWritten(const FrequencyListValue& left, const FrequencyListValue& right)
{
    return detail::EqualFrequencies(left, right) && left.GetTimeStamp() == right.GetTimeStamp();
}

/// Two decimals.
inline bool EqualAsWritten(const Ellipse& left, const Ellipse& right)
{
    return detail::EqualNumbersOf(left, left.GetMinRadius(), right, right.GetMinRadius()) &&
           detail::EqualNumbersOf(left, left.GetMaxRadius(), right, right.GetMaxRadius()) &&
           detail::EqualNumbersOf(left, left.GetRotation(), right, right.GetRotation());
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
    return EqualAsWritten(left.GetFrequencyRange(), right.GetFrequencyRange()) &&
           detail::EqualNumbersOf(left, left.GetStepFrequency(), right, right.GetStepFrequency()) &&
           detail::EqualNumbersOf(left, left.GetDwellTime(), right, right.GetDwellTime()) &&
           detail::EqualNumbersOf(left, left.GetHoldTime(), right, right.GetHoldTime());
}

/// The mode, and the time with six decimals. The mode is compared although its element is written empty.
inline bool EqualAsWritten(const MeasurementTime& left, const MeasurementTime& right)
{
    return left.GetMeasurementMode() == right.GetMeasurementMode() &&
           EqualAsWritten(left.GetMeasurementTime(), right.GetMeasurementTime());
}

} // namespace REPORTGENERATOR

#endif
