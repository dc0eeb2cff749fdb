#ifndef TESTS_SUPPORT_NUMBERFIELDS_H
#define TESTS_SUPPORT_NUMBERFIELDS_H

// The fields of a class that hold a number, for tests that hold for each of them.
//
//     for (const NumberField<Coordinate>& field : NumberFieldsOf<Coordinate>()) {
//         SCOPED_TRACE(field.name);
//         (coordinate.*field.set)(1.0);
//         EXPECT_TRUE((coordinate.*field.isSet)());
//     }
//     Coordinate withoutFlags = WithLeftovers<Coordinate>(0, {8.5, 47.25});

#include "support/bytes.h"
#include "support/records.h"

#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyrangeold.h>
#include <reportgenerator/reportbase/scanparameter.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>
#include <vector>

namespace Support {

template <class T>
struct NumberField
{
    const char* name;
    double (T::*get)() const;
    void (T::*set)(double);

    // Only the classes with a record have these.
    bool (T::*isSet)() const = nullptr;
    void (T::*reset)() = nullptr;
    bool (T::*isValid)(const double&) const = nullptr;
    double (T::*getDefault)() const = nullptr;
};

/// In the order of their flags, where they have any. This is for Frequency and IFBandwidth.
template <class T>
std::vector<NumberField<T>> NumberFieldsOf()
{
    return {
        {"value", &T::GetValue, &T::SetValue, &T::IsValueSet, &T::ResetValue, &T::IsValidValue,
         &T::GetDefaultValue},
        {"min", &T::GetMin, &T::SetMin, &T::IsMinSet, &T::ResetMin, &T::IsValidMin, &T::GetDefaultMin},
        {"max", &T::GetMax, &T::SetMax, &T::IsMaxSet, &T::ResetMax, &T::IsValidMax, &T::GetDefaultMax},
    };
}

template <>
inline std::vector<NumberField<REPORTGENERATOR::Coordinate>> NumberFieldsOf()
{
    using T = REPORTGENERATOR::Coordinate;
    return {
        {"longitude", &T::GetLongitude, &T::SetLongitude, &T::IsLongitudeSet, &T::ResetLongitude,
         &T::IsValidLongitude, &T::GetDefaultLongitude},
        {"latitude", &T::GetLatitude, &T::SetLatitude, &T::IsLatitudeSet, &T::ResetLatitude,
         &T::IsValidLatitude, &T::GetDefaultLatitude},
    };
}

template <>
inline std::vector<NumberField<REPORTGENERATOR::Double>> NumberFieldsOf()
{
    using T = REPORTGENERATOR::Double;
    return {
        {"value", &T::GetValue, &T::SetValue},
        {"minimum", &T::GetMinimum, &T::SetMinimum},
        {"maximum", &T::GetMaximum, &T::SetMaximum},
        {"default", &T::GetDefault, &T::SetDefault},
    };
}

template <>
inline std::vector<NumberField<REPORTGENERATOR::Ellipse>> NumberFieldsOf()
{
    using T = REPORTGENERATOR::Ellipse;
    return {
        {"minimal radius", &T::GetMinRadius, &T::SetMinRadius},
        {"maximal radius", &T::GetMaxRadius, &T::SetMaxRadius},
        {"rotation", &T::GetRotation, &T::SetRotation},
    };
}

template <>
inline std::vector<NumberField<REPORTGENERATOR::FrequencyRangeOld>> NumberFieldsOf()
{
    using T = REPORTGENERATOR::FrequencyRangeOld;
    return {
        {"start", &T::GetStartFrequency, &T::SetStartFrequency},
        {"stop", &T::GetStopFrequency, &T::SetStopFrequency},
    };
}

template <>
inline std::vector<NumberField<REPORTGENERATOR::ScanParameter>> NumberFieldsOf()
{
    using T = REPORTGENERATOR::ScanParameter;
    return {
        {"step", &T::GetStepFrequency, &T::SetStepFrequency},
        {"dwell time", &T::GetDwellTime, &T::SetDwellTime},
        {"hold time", &T::GetHoldTime, &T::SetHoldTime},
    };
}

template <>
inline std::vector<NumberField<REPORTGENERATOR::ValueMinMax>> NumberFieldsOf()
{
    using T = REPORTGENERATOR::ValueMinMax;
    return {
        {"value", &T::GetValue, &T::SetValue},
        {"min", &T::GetMin, &T::SetMin},
        {"max", &T::GetMax, &T::SetMax},
    };
}

/// An object of a class with a record that doesn't validate, with the flags as given and these numbers behind
/// them, one for each field.
template <class T>
T WithLeftovers(int flags, const std::vector<double>& numbers)
{
    T object;
    object.SetValidate(false);
    const int all = (1 << numbers.size()) - 1;
    for (const int set : {all, flags}) {
        Bytes raw = Byte(set);
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            const bool isAlwaysThere = i == 0 || std::is_same_v<T, REPORTGENERATOR::Coordinate>;
            if (isAlwaysThere || (set >> i & 1) != 0)
                raw += Double(numbers[i]);
        }
        EXPECT_EQ(ReadRawForm(object, raw), 0);
    }
    return object;
}

} // namespace Support

#endif
