#ifndef REPORTGENERATOR_PYTHON_FIELDS_H
#define REPORTGENERATOR_PYTHON_FIELDS_H

#include "coordinates.h"
#include "errors.h"
#include "messages.h"
#include "object.h"
#include "values.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <pybind11/pybind11.h>

#include <functional>
#include <type_traits>
#include <vector>

namespace Python {

/// A property of a class.
struct Property
{
    const char* name;
    std::function<pybind11::object(const AnyObject& self)> get;

    /// Empty where nobody sets it.
    std::function<void(const AnyObject& self, pybind11::handle value)> set;

    /// Empty where it is always there.
    std::function<void(const AnyObject& self)> unset;

    /// Whether it is written as set, and to be restored.
    bool IsData() const { return static_cast<bool>(set); }
};

template <class V>
constexpr bool IsObject = std::is_base_of_v<REPORTGENERATOR::IRGObject, V>;

template <class V>
V ValueFrom(pybind11::handle value, bool validate)
{
    if constexpr (IsObject<V>) {
        if (!pybind11::isinstance<Object<V>>(value))
            throw pybind11::type_error("an object of another class is wanted here");
        return value.cast<const Object<V>&>().Get();
    } else if constexpr (std::is_same_v<V, QVector<REPORTGENERATOR::Coordinate>>) {
        return CoordinatesFrom(value, validate);
    } else {
        V taken{};
        FromPython(value, taken);
        return taken;
    }
}

/// Calls a setter of the library: what it refuses is a `ValueError`, and what it warns of is logged. Only objects that
/// don't validate have warnings for a setter.
template <class T, class Set>
void CallSetter(const Object<T>& self, Set&& set)
{
    const bool validates = self.Get().GetValidate();
    const auto level = validates ? std::nullopt : WantedLevel();
    try {
        T& object = self.Get();
        ++self.Changes();
        Listening listening(object, level);
        set(object);
        listening.HandOn();
    } catch (const RGException& refused) {
        ThrowRefused(refused);
    }
}

/// How the library's accessors of a field are called, each as a function of the object.
template <class T, class Get, class Set, class IsSet, class Unset>
struct Accessors
{
    Get get;
    Set set;
    IsSet isSet;
    Unset unset;

    using Value = std::decay_t<std::invoke_result_t<Get, const T&>>;

    pybind11::object Give(const AnyObject& any) const
    {
        const auto& self = static_cast<const Object<T>&>(any);
        const T& object = self.Get();
        if (!isSet(object))
            return pybind11::none();
        if constexpr (IsObject<Value>) {
            return pybind11::cast(Object<Value>::PartOf(
                self, [accessors = *this](T& holder) { return accessors.Part(holder); }));
        } else {
            return ToPython(get(object));
        }
    }

    void Take(const AnyObject& any, pybind11::handle value) const
    {
        const auto& self = static_cast<const Object<T>&>(any);
        const Value taken = ValueFrom<Value>(value, self.Get().GetValidate());
        CallSetter(self, [&](T& object) { set(object, taken); });
    }

    void Clear(const AnyObject& any) const { CallSetter(static_cast<const Object<T>&>(any), unset); }

private:
    /// Only of one that is set, so that asking for it doesn't make the holder carry it.
    Value* Part(T& holder) const { return isSet(holder) ? &get(holder) : nullptr; }
};

template <class T, class Get, class Set, class IsSet, class Unset>
Accessors<T, Get, Set, IsSet, Unset> AccessorsOf(Get get, Set set, IsSet isSet, Unset unset)
{
    return {get, set, isSet, unset};
}

/// Of a plain class, where a value of its type stands for "not set".
template <class T, class V>
bool IsValueSet(const T& object, const V& value)
{
    if constexpr (std::is_same_v<V, QVector<double>>)
        return !value.isEmpty();
    else if constexpr (std::is_same_v<V, REPORTGENERATOR::MeasurementTime::MeasurementModeType>)
        return value != REPORTGENERATOR::MeasurementTime::GetInvalidMeasurementModeType();
    else
        return static_cast<const REPORTGENERATOR::IRGObject&>(object).IsValid(value);
}

template <class V, class T>
V UnsetValue(const T& object)
{
    V value{};
    if constexpr (std::is_same_v<T, REPORTGENERATOR::Double> && std::is_same_v<V, double>)
        return object.GetDefaultInvalidValue();
    else if constexpr (std::is_same_v<V, double>)
        object.SetInvalid(value);
    else if constexpr (std::is_same_v<V, REPORTGENERATOR::MeasurementTime::MeasurementModeType>)
        return object.GetInvalidMeasurementModeType();
    return value;
}

} // namespace Python

#endif
