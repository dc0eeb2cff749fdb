#ifndef REPORTGENERATOR_QT_METATYPES_H
#define REPORTGENERATOR_QT_METATYPES_H

#include <reportgenerator/qt/datastream.h>
#include <reportgenerator/qt/output.h>

#include <QtCore/QMetaType>

#include <type_traits>

// Classes and enumerations as types that QVariant and queued signals know, by their full names ("REPORTGENERATOR::Area"),
// which signals have to write out. With Qt 5 the header declares them, and a program that includes it has them
// registered when main begins: with their names, their streams, their output, and their comparison where there is one.
// Qt 6 finds all of that by itself, provided that this header is included wherever such a variant is made.
//
// Not so `IRGObject*` and `RegisterCenter*`: these a program declares itself where it needs them.

Q_DECLARE_METATYPE(REPORTGENERATOR::Area)
Q_DECLARE_METATYPE(REPORTGENERATOR::ChannelSpacing)
Q_DECLARE_METATYPE(REPORTGENERATOR::Coordinate)
Q_DECLARE_METATYPE(REPORTGENERATOR::Double)
Q_DECLARE_METATYPE(REPORTGENERATOR::Ellipse)
Q_DECLARE_METATYPE(REPORTGENERATOR::Frequency)
Q_DECLARE_METATYPE(REPORTGENERATOR::FrequencyInformation)
Q_DECLARE_METATYPE(REPORTGENERATOR::FrequencyListValue)
Q_DECLARE_METATYPE(REPORTGENERATOR::FrequencyRangeOld)
Q_DECLARE_METATYPE(REPORTGENERATOR::IFBandwidth)
Q_DECLARE_METATYPE(REPORTGENERATOR::MeasurementTime)
Q_DECLARE_METATYPE(REPORTGENERATOR::MinMax)
Q_DECLARE_METATYPE(REPORTGENERATOR::ReportBase)
Q_DECLARE_METATYPE(REPORTGENERATOR::ScanParameter)
Q_DECLARE_METATYPE(REPORTGENERATOR::ValueMinMax)

Q_DECLARE_METATYPE(REPORTGENERATOR::LogLevel)
Q_DECLARE_METATYPE(REPORTGENERATOR::MeasurementTime::MeasurementModeType)
Q_DECLARE_METATYPE(REPORTGENERATOR::MeasurementType::MeasurementTypeValue)
Q_DECLARE_METATYPE(REPORTGENERATOR::MeasurementType::SubSensorTypeValue)
Q_DECLARE_METATYPE(REPORTGENERATOR::ObjectTypes)
Q_DECLARE_METATYPE(REPORTGENERATOR::ResourceType::ResourceTypeValue)
Q_DECLARE_METATYPE(REPORTGENERATOR::TaskType::TaskTypeValue)

namespace REPORTGENERATOR {

namespace detail {

template <class Type, class = void>
constexpr bool IsComparable = false;
template <class Type>
constexpr bool
    IsComparable<Type, std::void_t<decltype(std::declval<const Type&>() == std::declval<const Type&>())>> =
        true;

template <class Type>
void RegisterMetaType()
{
    const int id = qRegisterMetaType<Type>();
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    // Qt warns of what is registered a second time, as by another library of the program.
    if (!QMetaType::hasRegisteredDebugStreamOperator<Type>())
        QMetaType::registerDebugStreamOperator<Type>();
    if constexpr (IsComparable<Type>) {
        if (!QMetaType::hasRegisteredComparators<Type>())
            QMetaType::registerEqualsComparator<Type>();
    }
    qRegisterMetaTypeStreamOperators<Type>(QMetaType::typeName(id));
#else
    Q_UNUSED(id)
#endif
}

template <class... Types>
void RegisterThese()
{
    (RegisterMetaType<Types>(), ...);
}

} // namespace detail

/// Registers all of them, which the header does when the program or library starts that includes it. A second call
/// does nothing.
inline void RegisterMetaTypes()
{
    static const bool IS_DONE = [] {
        detail::RegisterThese<Area, ChannelSpacing, Coordinate, Double, Ellipse, Frequency,
                              FrequencyInformation, FrequencyListValue, FrequencyRangeOld, IFBandwidth,
                              MeasurementTime, MinMax, ReportBase, ScanParameter, ValueMinMax>();
        detail::RegisterThese<LogLevel, MeasurementTime::MeasurementModeType,
                              MeasurementType::MeasurementTypeValue, MeasurementType::SubSensorTypeValue,
                              ObjectTypes, ResourceType::ResourceTypeValue, TaskType::TaskTypeValue>();
        return true;
    }();
    Q_UNUSED(IS_DONE)
}

namespace detail {

// One in each file that includes the header: a compiler could leave a single one out that nobody uses.
struct MetaTypesRegistration
{
    MetaTypesRegistration() { RegisterMetaTypes(); }
};
static const MetaTypesRegistration META_TYPES_REGISTRATION;

} // namespace detail
} // namespace REPORTGENERATOR

#endif
