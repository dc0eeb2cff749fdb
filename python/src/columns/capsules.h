#ifndef REPORTCOLUMNS_CAPSULES_H
#define REPORTCOLUMNS_CAPSULES_H

#include "arrowowner.h"
#include "column.h"
#include "source.h"

#include <pybind11/pybind11.h>

#include <memory>

namespace ReportColumns {

// Arrow's PyCapsule protocol: how Python packages hand Arrow's structures to each other.

pybind11::capsule SchemaCapsule(const ColumnType& type);
pybind11::capsule ArrayCapsule(const SharedValues& values);
pybind11::capsule StreamCapsule(std::unique_ptr<Source> source);

/// An array of somebody else's with its type.
struct GivenArray
{
    OwnedSchema schema;
    OwnedArray array;
};

bool GivesArray(const pybind11::object& object);
bool GivesStream(const pybind11::object& object);
GivenArray TakeArray(const pybind11::object& object);
OwnedStream TakeStream(const pybind11::object& object);

} // namespace ReportColumns

#endif
