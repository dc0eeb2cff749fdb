#ifndef REPORTGENERATOR_PYTHON_CLASSES_H
#define REPORTGENERATOR_PYTHON_CLASSES_H

#include <pybind11/pybind11.h>

namespace Python {

/// What all objects have: forms, checks, settings.
void BindBase(pybind11::module_& module);

void BindClasses(pybind11::module_& module);

/// What the Python enumerations ask the library for.
void BindVocabularies(pybind11::module_& module);

/// Dates, references and texts as they stand in files.
void BindConverters(pybind11::module_& module);

/// Settings, files of other versions, and elements of programs' own objects.
void BindServices(pybind11::module_& module);

} // namespace Python

#endif
