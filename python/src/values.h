#ifndef REPORTGENERATOR_PYTHON_VALUES_H
#define REPORTGENERATOR_PYTHON_VALUES_H

#include <reportgenerator/reportbase/measurementtime.h>

#include <pybind11/pybind11.h>

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QVector>

namespace Python {

// Values in Python. What has another type is a TypeError.

pybind11::object ToPython(double number);
pybind11::object ToPython(bool isOn);

/// With every character, be it half of one.
pybind11::object ToPython(const QString& text);
pybind11::object ToPython(const QByteArray& bytes);

/// In UTC; None for a null one.
pybind11::object ToPython(const QDateTime& time);

/// As the enumeration in Python; None when it is no mode.
pybind11::object ToPython(REPORTGENERATOR::MeasurementTime::MeasurementModeType mode);

/// An array that cannot be written to, since it is a copy.
pybind11::object ToPython(const QVector<double>& numbers);

void FromPython(pybind11::handle value, double& number);
void FromPython(pybind11::handle value, bool& isOn);
void FromPython(pybind11::handle value, QString& text);
void FromPython(pybind11::handle value, REPORTGENERATOR::MeasurementTime::MeasurementModeType& mode);
void FromPython(pybind11::handle value, QVector<double>& numbers);

/// Of an object that holds bytes in one piece.
QByteArray BytesOf(pybind11::handle value);

} // namespace Python

#endif
