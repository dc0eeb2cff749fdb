// The classes of the library: one line for each, and one for each of their fields, which are made of the library's headers
// (python/generate).

#include "classes.h"

#include "binding.h"
#include "signed.h"

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/scanparameter.h>

namespace Python {

namespace py = pybind11;

namespace {

using namespace REPORTGENERATOR; // NOLINT(google-build-using-namespace): as the table names them

template <class T>
void AddOwn(Binding<T>& /*binding*/)
{
}

/// Of areas: points one by one.
void AddOwn(Binding<Area>& binding)
{
    binding.Class()
        .def(
            "append",
            [](const Object<Area>& self, const Object<Coordinate>& item) {
                const Coordinate copy = item.Get();
                CallSetter(self, [&copy](Area& area) { area.AppendCoordinate(copy); });
            },
            py::arg("item"),
            Signed("append", "(self, item)",
                   "Appends a copy of the coordinate, which must have both values; their ranges are not "
                   "tested.\n\n"
                   "An incomplete one is refused when validating; otherwise it is appended after a warning.")
                .c_str())
        .def(
            "coordinate_at",
            [](const Object<Area>& self, py::ssize_t index) {
                const auto& items = std::as_const(self.Get()).GetCoordinate();
                const auto count = static_cast<py::ssize_t>(items.size());
                if (index < -count || index >= count)
                    throw py::index_error("the area has " + std::to_string(count) + " coordinates");
                return std::make_unique<Object<Coordinate>>(
                    items.at(static_cast<int>(index < 0 ? index + count : index)));
            },
            py::arg("index"),
            Signed("coordinate_at", "(self, index)",
                   "A copy of the coordinate at this place; negative ones count from the end.")
                .c_str());
}

/// Of measurement times: the names of the modes.
void AddOwn(Binding<MeasurementTime>& binding)
{
    binding.Class().def(
        "set_mode_names",
        [](const Object<MeasurementTime>& self, const py::iterable& names) {
            QStringList list;
            for (const py::handle name : names) {
                QString text;
                FromPython(name, text);
                list << text;
            }
            CallSetter(self, [&list](MeasurementTime& time) { time.SetMeasurementModeStringList(list); });
        },
        py::arg("names"),
        Signed("set_mode_names", "(self, names)",
               "Replaces the names \"Continuous\" and \"Periodic\" in this object; refuses any other number "
               "than two.")
            .c_str());
}

/// Of what has a frequency with bounds: both bounds at once.
template <class T>
void AddBounds(Binding<T>& binding)
{
    const auto get = [](const Object<T>& self) -> py::object {
        const MinMax bounds = std::as_const(self.Get()).GetFrequencyMinMax();
        const auto bound = [&self](double value) {
            return IsValueSet(self.Get(), value) ? ToPython(value) : py::object(py::none());
        };
        const py::object min = bound(bounds.GetMin());
        const py::object max = bound(bounds.GetMax());
        if (min.is_none() && max.is_none())
            return py::none();
        return py::module_::import("reportgenerator._minmax").attr("MinMax")(min, max);
    };
    const auto unset = [](const Object<T>& self) {
        CallSetter(self, [](T& object) {
            object.SetFrequencyMinMax(UnsetValue<double>(object), UnsetValue<double>(object));
        });
    };
    const auto set = [unset](const Object<T>& self, const py::object& value) {
        if (value.is_none()) {
            unset(self);
            return;
        }
        const auto bound = [&self](const py::object& given) {
            double taken = UnsetValue<double>(self.Get());
            if (!given.is_none())
                FromPython(given, taken);
            return taken;
        };
        const py::tuple pair(value);
        if (pair.size() != 2)
            throw py::value_error("two bounds are wanted");
        const MinMax bounds(bound(pair[0]), bound(pair[1]));
        CallSetter(self, [&bounds](T& object) { object.SetFrequencyMinMax(bounds); });
    };
    binding.Class().attr("frequency_min_max") =
        py::module_::import("builtins")
            .attr("property")(py::cpp_function(get), py::cpp_function(set), py::cpp_function(unset),
                              "Both bounds at once: a `MinMax`, with None for one that is not set. Any pair "
                              "can be assigned.");
}

void AddOwn(Binding<FrequencyInformation>& binding)
{
    AddBounds(binding);
}

void AddOwn(Binding<FrequencyListValue>& binding)
{
    AddBounds(binding);
}

// Of the table. `V` is the type of the field.

#define REPORT_CLASS(Class, text)                                                                            \
    void Bind##Class(py::module_& module)                                                                    \
    {                                                                                                        \
        using T = REPORTGENERATOR::Class;                                                                    \
        Binding<T> binding(module, #Class, text);

#define REPORT_CLASS_END(Class)                                                                              \
    AddOwn(binding);                                                                                         \
    binding.Finish();                                                                                        \
    }

#define REPORT_GET(Accessor) [](auto& object) -> decltype(auto) { return object.Get##Accessor(); }
#define REPORT_SET(Accessor) [](T& object, const auto& value) { object.Set##Accessor(value); }
#define REPORT_IS_VALUE_SET(Accessor)                                                                        \
    [](const T& object) { return IsValueSet(object, std::as_const(object).Get##Accessor()); }

#define REPORT_FLAGGED(Class, Accessor, name, text)                                                          \
    binding.Add(name, text,                                                                                  \
                AccessorsOf<T>(                                                                              \
                    REPORT_GET(Accessor), REPORT_SET(Accessor),                                              \
                    [](const T& object) { return object.Is##Accessor##Set(); },                              \
                    [](T& object) { object.Reset##Accessor(); }));

#define REPORT_BY_VALUE(Class, Accessor, name, text)                                                         \
    binding.Add(name, text,                                                                                  \
                AccessorsOf<T>(REPORT_GET(Accessor), REPORT_SET(Accessor), REPORT_IS_VALUE_SET(Accessor),    \
                               [](T& object) {                                                               \
                                   using V = std::decay_t<decltype(object.Get##Accessor())>;                 \
                                   object.Set##Accessor(UnsetValue<V>(object));                              \
                               }));

#define REPORT_ALWAYS(Class, Accessor, name, text)                                                           \
    binding.Add(name, text,                                                                                  \
                AccessorsOf<T>(                                                                              \
                    REPORT_GET(Accessor), REPORT_SET(Accessor), [](const T&) { return true; }, [](T&) {}),   \
                true, false);

#define REPORT_MEMBER(Class, Accessor, name, text)                                                           \
    binding.Add(name, text,                                                                                  \
                AccessorsOf<T>(                                                                              \
                    REPORT_GET(Accessor), REPORT_SET(Accessor), [](const T&) { return true; },               \
                    [](T& object) { object.Get##Accessor().Reset(); }));

#define REPORT_SWITCH(Class, Accessor, name, text)                                                           \
    binding.Add(name, text,                                                                                  \
                AccessorsOf<T>([](auto& object) { return object.Is##Accessor(); }, REPORT_SET(Accessor),     \
                               [](const T& object) { return object.IsValid##Accessor(); }, [](T&) {}),       \
                true, false);

#define REPORT_READ_ONLY(Class, Accessor, name, text)                                                        \
    binding.Add(name, text,                                                                                  \
                AccessorsOf<T>(                                                                              \
                    REPORT_GET(Accessor), [](T&, const auto&) {}, REPORT_IS_VALUE_SET(Accessor), [](T&) {}), \
                false);

#include "classes.inc"

} // namespace

void BindClasses(py::module_& module)
{
#undef REPORT_CLASS
#undef REPORT_CLASS_END
#undef REPORT_FLAGGED
#undef REPORT_BY_VALUE
#undef REPORT_ALWAYS
#undef REPORT_MEMBER
#undef REPORT_SWITCH
#undef REPORT_READ_ONLY
#define REPORT_CLASS(Class, text) Bind##Class(module);
#define REPORT_CLASS_END(Class)
#define REPORT_FLAGGED(Class, Accessor, name, text)
#define REPORT_BY_VALUE(Class, Accessor, name, text)
#define REPORT_ALWAYS(Class, Accessor, name, text)
#define REPORT_MEMBER(Class, Accessor, name, text)
#define REPORT_SWITCH(Class, Accessor, name, text)
#define REPORT_READ_ONLY(Class, Accessor, name, text)
#include "classes.inc"
}

} // namespace Python
