#include <pybind11/pybind11.h>

#include <reportgenerator/reportbase/reportbase.h>

namespace py = pybind11;

PYBIND11_MODULE(_reportgenerator, module)
{
    py::class_<REPORTGENERATOR::ReportBase>(module, "ReportBase").def(py::init<>());
}
