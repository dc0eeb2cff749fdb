#ifndef REPORTGENERATOR_PYTHON_COORDINATES_H
#define REPORTGENERATOR_PYTHON_COORDINATES_H

#include <reportgenerator/reportbase/coordinate.h>

#include <pybind11/pybind11.h>

#include <QtCore/QVector>

namespace Python {

/// An array of (n, 2) numbers, longitude first, which cannot be written to, since it is a copy. What a coordinate has not
/// set is NaN.
pybind11::object ToPython(const QVector<REPORTGENERATOR::Coordinate>& coordinates);

/// The inverse, of whatever numpy takes for such an array. Each number goes through the coordinate's setter: when
/// validating, one that it refuses is refused; otherwise NaN is left unset.
QVector<REPORTGENERATOR::Coordinate> CoordinatesFrom(pybind11::handle value, bool validate);

} // namespace Python

#endif
