#include "coordinates.h"

#include "errors.h"
#include "messages.h"

#include <reportgenerator/reportbase/rgexception.h>

#include <pybind11/numpy.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace Python {

namespace py = pybind11;

using REPORTGENERATOR::Coordinate;

namespace {

/// In the bytes that a vector of Qt may have.
constexpr py::ssize_t MOST_COORDINATES = std::numeric_limits<int>::max() / (2 * sizeof(Coordinate));

constexpr double UNSET = std::numeric_limits<double>::quiet_NaN();

void Set(Coordinate& point, double longitude, double latitude)
{
    point.Reset();
    const bool validates = point.GetValidate();
    if (validates || !std::isnan(longitude))
        point.SetLongitude(longitude);
    if (validates || !std::isnan(latitude))
        point.SetLatitude(latitude);
}

} // namespace

py::object ToPython(const QVector<Coordinate>& coordinates)
{
    // Shares the items, which nobody changes meanwhile.
    const QVector<Coordinate> items = coordinates;
    py::array_t<double> array({static_cast<py::ssize_t>(items.size()), py::ssize_t(2)});
    double* next = array.mutable_data();
    {
        const py::gil_scoped_release released;
        for (const Coordinate& point : items) {
            *next++ = point.IsLongitudeSet() ? point.GetLongitude() : UNSET;
            *next++ = point.IsLatitudeSet() ? point.GetLatitude() : UNSET;
        }
    }
    array.attr("flags").attr("writeable") = false;
    return std::move(array);
}

QVector<Coordinate> CoordinatesFrom(py::handle value, bool validate)
{
    const auto array = py::array_t<double, py::array::c_style | py::array::forcecast>::ensure(value);
    if (!array)
        throw py::type_error("an array of numbers is wanted");
    if (array.ndim() != 2 || array.shape(1) != 2) {
        // An empty list has no second dimension.
        if (array.size() == 0)
            return {};
        throw py::value_error("an array of (n, 2) numbers is wanted, longitude first");
    }
    const py::ssize_t count = array.shape(0);
    if (count > MOST_COORDINATES)
        throw py::value_error("these are more coordinates than an area can hold");

    const double* const numbers = array.data();
    Coordinate point;
    point.SetValidate(validate);
    QVector<Coordinate> items;
    Listening listening(point, WantedLevel());
    std::optional<RGException> refused;
    py::ssize_t row = 0;
    {
        const py::gil_scoped_release released;
        items.reserve(static_cast<int>(count));
        try {
            for (; row < count; ++row) {
                Set(point, numbers[2 * row], numbers[2 * row + 1]);
                items.append(point);
            }
        } catch (const RGException& exception) {
            refused = exception;
        }
    }
    listening.HandOn();
    if (refused)
        ThrowRefused(*refused, "row " + std::to_string(row));
    return items;
}

} // namespace Python
