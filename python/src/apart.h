#ifndef REPORTGENERATOR_PYTHON_APART_H
#define REPORTGENERATOR_PYTHON_APART_H

#include "messages.h"
#include "object.h"

#include <pybind11/pybind11.h>

#include <memory>
#include <type_traits>

namespace Python {

/// Calls `work` with an object that nobody else knows, without the interpreter's lock; what the object says meanwhile is
/// logged afterwards, also when `work` throws.
template <class Work>
auto Apart(REPORTGENERATOR::IRGObject& object, Work&& work)
{
    Listening listening(object, WantedLevel());
    const auto run = [&] {
        const pybind11::gil_scoped_release released;
        return work(object);
    };
    try {
        if constexpr (std::is_void_v<decltype(work(object))>) {
            run();
            listening.HandOn();
        } else {
            auto result = run();
            listening.HandOn();
            return result;
        }
    } catch (const pybind11::error_already_set&) {
        throw;
    } catch (...) {
        listening.HandOn();
        throw;
    }
}

/// The same with a copy of an object in Python, which takes the result over. What somebody else has changed meanwhile isn't
/// overwritten: that is an error.
template <class Work>
auto ApartAndBack(const AnyObject& self, Work&& work)
{
    const std::unique_ptr<REPORTGENERATOR::IRGObject> copy = self.NewCopy();
    const auto before = self.Changes();
    const auto result = Apart(*copy, work);
    if (self.Changes() != before)
        PyErr_SetString(PyExc_RuntimeError, "another thread has changed the object meanwhile");
    else
        self.Take(*copy);
    if (PyErr_Occurred())
        throw pybind11::error_already_set();
    return result;
}

} // namespace Python

#endif
