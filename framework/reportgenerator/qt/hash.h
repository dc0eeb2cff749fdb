#ifndef REPORTGENERATOR_QT_HASH_H
#define REPORTGENERATOR_QT_HASH_H

#include <reportgenerator/qt/optional.h>

#include <QtCore/QHash>

#include <cstddef>
#include <functional>

// Hashes for every class with `operator==`, so that objects may be keys of QSet, QHash, std::unordered_set and
// std::unordered_map. Equal objects have equal hashes: what the comparison doesn't look at doesn't count, and 0.0 and
// -0.0 are the same. An object with a NaN differs from itself, and a container never finds it again.
//
// The comparison of areas asks the right side alone whether its coordinates are set. An area with coordinates that count
// as not set, which a reference from before `ResetCoordinate` or the raw form can leave, is no key therefore.
//
// The values are good for one process: they differ between versions of Qt and of the library.

namespace REPORTGENERATOR {

/// What `qHash` takes and returns: `uint` in Qt 5, `size_t` in Qt 6.
using HashValue = decltype(qHash(0));

namespace detail {

inline HashValue CombinedHash(HashValue seed, HashValue hash)
{
    // The shifts spread what single values leave alike.
    return seed ^ (hash + HashValue(0x9e3779b9U) + (seed << 6) + (seed >> 2));
}

template <class... Values>
HashValue HashOf(HashValue seed, const Values&... values)
{
    ((seed = CombinedHash(seed, ::qHash(values))), ...);
    return seed;
}

/// What isn't set counts as such, whatever it holds. A number that stands for "not set" counts like any other.
template <class Object, class Base, class Value>
HashValue HashOfField(HashValue seed, const Object& object, const Field<Base, Value>& field)
{
    // Asking for a value makes the record, which the comparison of coordinates doesn't.
    const bool isSet = !field.isSet || field.IsSetIn(object);
    return HashOf(seed, isSet ? 1 : 0, isSet ? field.In(object) : Value());
}

inline HashValue HashOfField(HashValue seed, const Area& object, const PointsField& /*field*/);

template <class Object>
HashValue HashOfField(HashValue seed, const Object& object, const RangeField& /*field*/)
{
    return qHash(object.GetFrequencyRange(), seed);
}

/// Of all fields of the class.
template <class Object>
HashValue HashOfFields(const Object& object, HashValue seed)
{
    ForEachField(object, [&](const auto& field) { seed = HashOfField(seed, object, field); });
    return seed;
}

template <class Member>
HashValue HashOfMember(HashValue seed, bool isSet, const Member& member);

} // namespace detail

// --- Objects of a report: the fields that are set

/// Longitude and latitude, as far as they are set.
inline HashValue qHash(const Coordinate& object, HashValue seed = 0)
{
    return detail::HashOfFields(object, seed);
}

/// Value, bounds and use, as far as they are set.
inline HashValue qHash(const Frequency& object, HashValue seed = 0)
{
    return detail::HashOfFields(object, seed);
}

/// Value and bounds, as far as they are set.
inline HashValue qHash(const IFBandwidth& object, HashValue seed = 0)
{
    return detail::HashOfFields(object, seed);
}

/// Name, script identifier and all coordinates. An empty list is the same as none.
inline HashValue qHash(const Area& object, HashValue seed = 0)
{
    return detail::HashOfFields(object, seed);
}

inline HashValue detail::HashOfField(HashValue seed, const Area& object, const PointsField& /*field*/)
{
    for (const Coordinate& point : object.GetCoordinate())
        seed = qHash(point, seed);
    return seed;
}

/// The members that the report carries.
inline HashValue qHash(const ReportBase& object, HashValue seed = 0)
{
    seed = detail::HashOfMember(seed, object.IsFrequencySet(), object.GetFrequency());
    seed = detail::HashOfMember(seed, object.IsIFBandwidthSet(), object.GetIFBandwidth());
    return detail::HashOfMember(seed, object.IsAreaSet(), object.GetArea());
}

template <class Member>
HashValue detail::HashOfMember(HashValue seed, bool isSet, const Member& member)
{
    seed = HashOf(seed, isSet ? 1 : 0);
    return isSet ? qHash(member, seed) : seed;
}

// --- Objects of a task: what their comparisons look at

/// Numbers and unit, without the name.
inline HashValue qHash(const Double& object, HashValue seed = 0)
{
    return detail::HashOf(seed, object.GetMinimum(), object.GetMaximum(), object.GetDefault(),
                          object.GetValue(), object.GetUnit());
}

/// Name, value and bounds.
inline HashValue qHash(const ValueMinMax& object, HashValue seed = 0)
{
    return detail::HashOfFields(object, detail::HashOf(seed, object.GetName()));
}

/// Both ends.
inline HashValue qHash(const FrequencyRangeOld& object, HashValue seed = 0)
{
    return detail::HashOfFields(object, seed);
}

/// Frequency, bounds and range.
inline HashValue qHash(const FrequencyInformation& object, HashValue seed = 0)
{
    return detail::HashOfFields(object, seed);
}

/// The frequency alone.
inline HashValue qHash(const FrequencyListValue& object, HashValue seed = 0)
{
    return detail::HashOf(seed, object.GetFrequency());
}

/// Both radii and the rotation.
inline HashValue qHash(const Ellipse& object, HashValue seed = 0)
{
    return detail::HashOfFields(object, seed);
}

/// Display text, whether the distance is the same, and the spacings.
inline HashValue qHash(const ChannelSpacing& object, HashValue seed = 0)
{
    seed = detail::HashOf(seed, object.GetVisual(), object.IsSameDistance() ? 1 : 0);
    for (const double value : object.GetValues())
        seed = detail::HashOf(seed, value);
    return seed;
}

/// Mode and time. The names of the modes, which the comparison looks at too, can't be asked for.
inline HashValue qHash(const MeasurementTime& object, HashValue seed = 0)
{
    seed = detail::HashOf(seed, static_cast<int>(object.GetMeasurementMode()));
    return qHash(object.GetMeasurementTime(), seed);
}

namespace detail {

template <class Object>
struct StandardHash
{
    std::size_t operator()(const Object& object) const { return qHash(object); }
};

} // namespace detail
} // namespace REPORTGENERATOR

// The same hashes, without a seed, for the containers of the standard library.

/// As `qHash` of `Area`.
template <>
struct std::hash<REPORTGENERATOR::Area> : REPORTGENERATOR::detail::StandardHash<REPORTGENERATOR::Area>
{
};

/// As `qHash` of `ChannelSpacing`.
template <>
struct std::hash<REPORTGENERATOR::ChannelSpacing>
    : REPORTGENERATOR::detail::StandardHash<REPORTGENERATOR::ChannelSpacing>
{
};

/// As `qHash` of `Coordinate`.
template <>
struct std::hash<REPORTGENERATOR::Coordinate>
    : REPORTGENERATOR::detail::StandardHash<REPORTGENERATOR::Coordinate>
{
};

/// As `qHash` of `Double`.
template <>
struct std::hash<REPORTGENERATOR::Double> : REPORTGENERATOR::detail::StandardHash<REPORTGENERATOR::Double>
{
};

/// As `qHash` of `Ellipse`.
template <>
struct std::hash<REPORTGENERATOR::Ellipse> : REPORTGENERATOR::detail::StandardHash<REPORTGENERATOR::Ellipse>
{
};

/// As `qHash` of `Frequency`.
template <>
struct std::hash<REPORTGENERATOR::Frequency>
    : REPORTGENERATOR::detail::StandardHash<REPORTGENERATOR::Frequency>
{
};

/// As `qHash` of `FrequencyInformation`.
template <>
struct std::hash<REPORTGENERATOR::FrequencyInformation>
    : REPORTGENERATOR::detail::StandardHash<REPORTGENERATOR::FrequencyInformation>
{
};

/// As `qHash` of `FrequencyListValue`.
template <>
struct std::hash<REPORTGENERATOR::FrequencyListValue>
    : REPORTGENERATOR::detail::StandardHash<REPORTGENERATOR::FrequencyListValue>
{
};

/// As `qHash` of `FrequencyRangeOld`.
template <>
struct std::hash<REPORTGENERATOR::FrequencyRangeOld>
    : REPORTGENERATOR::detail::StandardHash<REPORTGENERATOR::FrequencyRangeOld>
{
};

/// As `qHash` of `IFBandwidth`.
template <>
struct std::hash<REPORTGENERATOR::IFBandwidth>
    : REPORTGENERATOR::detail::StandardHash<REPORTGENERATOR::IFBandwidth>
{
};

/// As `qHash` of `MeasurementTime`.
template <>
struct std::hash<REPORTGENERATOR::MeasurementTime>
    : REPORTGENERATOR::detail::StandardHash<REPORTGENERATOR::MeasurementTime>
{
};

/// As `qHash` of `ReportBase`.
template <>
struct std::hash<REPORTGENERATOR::ReportBase>
    : REPORTGENERATOR::detail::StandardHash<REPORTGENERATOR::ReportBase>
{
};

/// As `qHash` of `ValueMinMax`.
template <>
struct std::hash<REPORTGENERATOR::ValueMinMax>
    : REPORTGENERATOR::detail::StandardHash<REPORTGENERATOR::ValueMinMax>
{
};

#endif
