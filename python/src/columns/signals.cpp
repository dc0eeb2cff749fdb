#include "signals.h"

#include <pybind11/pybind11.h>

namespace py = pybind11;

namespace ReportColumns {

namespace {

unsigned long mainThread = 0;

} // namespace

void PrepareSignals()
{
    const py::object thread = py::module_::import("threading").attr("main_thread")();
    mainThread = thread.attr("ident").cast<unsigned long>();
}

void HandleSignals()
{
    // Other threads don't wait for the interpreter's lock: they might never get it while the program ends.
    if (PyThread_get_thread_ident() != mainThread)
        return;
    const py::gil_scoped_acquire held;
    if (PyErr_CheckSignals() != 0)
        throw py::error_already_set();
}

} // namespace ReportColumns
