#ifndef REPORTGENERATOR_PYTHON_BINDING_H
#define REPORTGENERATOR_PYTHON_BINDING_H

#include "fields.h"
#include "restoring.h"
#include "signed.h"

#include <reportgenerator/reflection/reportfields.h>

#include <pybind11/pybind11.h>

#include <string>
#include <utility>
#include <vector>

namespace Python {

/// What the unit and the range of a field are, where the library's descriptions tell; empty for others.
std::string FactsOf(const char* className, const char* fieldName);

/// Sets the properties that are named; a name that none bears is a `TypeError`.
void SetAll(const std::vector<Property>& properties, const AnyObject& self, const pybind11::dict& values);

/// "Frequency(value=121500000.0)".
std::string Representation(const std::vector<Property>& properties, pybind11::handle self,
                           const char* className);

/// Whether all properties that hold data are equal.
bool AreAllEqual(const std::vector<Property>& properties, const AnyObject& left, const AnyObject& right);

template <class T, class = void>
constexpr bool IS_COMPARABLE = false;

template <class T>
constexpr bool IS_COMPARABLE<T, std::void_t<decltype(std::declval<const T&>() == std::declval<const T&>())>> =
    true;

/// Makes the class in Python: its properties are added one after the other, then it is finished.
template <class T>
class Binding
{
public:
    using Self = Object<T>;

    Binding(pybind11::module_& module, const char* name, const char* text)
        : m_name(name), m_class(module, name, text)
    {
    }

    pybind11::class_<Self, AnyObject>& Class() { return m_class; }

    template <class Accessors>
    void Add(const char* name, const char* text, Accessors accessors, bool isSettable = true,
             bool isUnsettable = true)
    {
        Property property{name, {}, {}, {}};
        property.get = [accessors](const AnyObject& self) { return accessors.Give(self); };
        if constexpr (!std::is_same_v<typename Accessors::Value, QDateTime>) {
            if (isSettable)
                property.set = [accessors](const AnyObject& self, pybind11::handle value) {
                    accessors.Take(self, value);
                };
        }
        if (isSettable && isUnsettable)
            property.unset = [accessors](const AnyObject& self) { accessors.Clear(self); };
        Define(property, text + FactsOf(m_name, name));
        // What is always there may reset what isn't, and is set before it.
        m_properties.insert(isUnsettable ? m_properties.end() : m_properties.begin(), std::move(property));
    }

    void Finish()
    {
        namespace py = pybind11;
        const auto properties = m_properties;
        const char* const name = m_name;
        m_class.def(py::init([properties](bool validate, const py::kwargs& values) {
                        auto self = std::make_unique<Self>();
                        self->Get().SetValidate(validate);
                        SetAll(properties, *self, values);
                        return self;
                    }),
                    py::kw_only(), py::arg("validate") = true,
                    Signed("__init__", "(self, *, validate=True, **values)",
                           "Values of the properties go by their names. `validate` is as the property.")
                        .c_str());
        m_class.def("__repr__", [properties, name](const py::object& self) {
            return Representation(properties, self, name);
        });
        m_class.def(
            "__eq__",
            [properties](const Self& left, const Self& right) {
                if constexpr (IS_COMPARABLE<T>)
                    return std::as_const(left.Get()) == std::as_const(right.Get());
                else
                    return AreAllEqual(properties, left, right);
            },
            py::is_operator());
        m_class.attr("__hash__") = py::none();
        const auto copy = [](const Self& self) { return std::make_unique<Self>(self.Get()); };
        m_class.def("copy", copy,
                    Signed("copy", "(self)", "A copy that has nothing to do with this one.").c_str());
        m_class.def("__copy__", copy, Signed("__copy__", "(self)", "As `copy`.").c_str());
        m_class.def(
            "__deepcopy__", [copy](const Self& self, const py::dict& /*memo*/) { return copy(self); },
            py::arg("memo"), Signed("__deepcopy__", "(self, memo)", "As `copy`.").c_str());
        m_class.def(
            "any_data", [](const Self& self) { return std::as_const(self.Get()).AnyData(); },
            Signed("any_data", "(self)", "Whether anything is set that counts as data.").c_str());
        m_class.def("_state", [properties](const Self& self) { return StateOf(properties, self); });
        m_class.def("_set_state", [properties](const Self& self, const py::tuple& state) {
            Restore(properties, self, state);
        });
        m_class.def(
            "__reduce__",
            [](const py::object& self) {
                const py::object restore =
                    py::module_::import("reportgenerator._restoring").attr("_restored");
                return py::make_tuple(restore, py::make_tuple(py::type::of(self), self.attr("_state")()));
            },
            Signed("__reduce__", "(self)", "For the module `pickle`.").c_str());
    }

private:
    void Define(const Property& property, const std::string& text)
    {
        namespace py = pybind11;
        py::object get = py::cpp_function([get = property.get](const Self& self) { return get(self); });
        py::object set = py::none();
        py::object unset = py::none();
        if (property.set)
            set = py::cpp_function([property](const Self& self, const py::object& value) {
                if (value.is_none() && property.unset)
                    property.unset(self);
                else
                    property.set(self, value);
            });
        if (property.unset)
            unset = py::cpp_function([property](const Self& self) { property.unset(self); });
        m_class.attr(property.name) = py::module_::import("builtins").attr("property")(get, set, unset, text);
    }

    const char* m_name;
    pybind11::class_<Self, AnyObject> m_class;
    std::vector<Property> m_properties;
};

} // namespace Python

#endif
