#ifndef REPORTGENERATOR_PYTHON_RESTORING_H
#define REPORTGENERATOR_PYTHON_RESTORING_H

#include "fields.h"

#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/recordobject.h>

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

namespace Python {

// What an object is pickled as: the validate flag, bytes or text, and the values of its properties. Nothing of it is
// rounded. Objects with a record have a form of their own that is exact; others are their properties, with the element for
// what no property sets.

template <class T, class = void>
constexpr bool HAS_RECORD = false;

template <class T>
constexpr bool HAS_RECORD<T, std::void_t<typename T::RecordData>> = true;

constexpr int STATE_STREAM_VERSION = 12;

/// The element of a copy that doesn't validate; empty where there is none.
template <class T>
QString ElementOf(const T& object)
{
    T copy(object);
    copy.SetValidate(false);
    if constexpr (std::is_same_v<T, REPORTGENERATOR::FrequencyListValue>) {
        // A time stamp is written with a frequency only.
        if (!copy.HasData())
            copy.SetFrequency(0.0);
    }
    try {
        return copy.GetXmlString();
    } catch (const RGException&) {
        return QString();
    }
}

template <class T>
pybind11::tuple StateOf(const std::vector<Property>& properties, const Object<T>& self)
{
    const T& object = self.Get();
    if constexpr (HAS_RECORD<T>) {
        QByteArray raw;
        QDataStream stream(&raw, QIODevice::WriteOnly);
        stream.setVersion(STATE_STREAM_VERSION);
        object.GetVersionSpecificBinaryWithoutValidation(stream);
        return pybind11::make_tuple(object.GetValidate(), ToPython(raw));
    } else {
        pybind11::dict values;
        for (const Property& property : properties) {
            if (property.IsData())
                values[property.name] = property.get(self);
        }
        return pybind11::make_tuple(object.GetValidate(), ToPython(ElementOf(object)), values);
    }
}

template <class T>
void Restore(const std::vector<Property>& properties, const Object<T>& self, const pybind11::tuple& state)
{
    T object;
    object.SetValidate(false);
    if constexpr (HAS_RECORD<T>) {
        if (state.size() != 2)
            throw pybind11::value_error("this is the state of another class");
        const QByteArray raw = BytesOf(state[1]);
        QDataStream stream(raw);
        stream.setVersion(STATE_STREAM_VERSION);
        object.SetVersionSpecificBinaryWithoutValidation(stream);
        if (stream.status() != QDataStream::Ok)
            throw pybind11::value_error("a state that breaks off");
        self.Take(object);
    } else {
        if (state.size() != 3)
            throw pybind11::value_error("this is the state of another class");
        QString element;
        FromPython(state[1], element);
        try {
            object.SetXmlString(element, false);
        } catch (const RGException&) {
            object.Reset();
        }
        self.Take(object);
        self.Get().SetValidate(false);
        const auto values = state[2].cast<pybind11::dict>();
        for (const Property& property : properties) {
            if (!property.IsData() || !values.contains(property.name))
                continue;
            const pybind11::object value = values[property.name];
            if (!value.is_none())
                property.set(self, value);
            else if (property.unset && !property.get(self).is_none())
                property.unset(self);
        }
    }
    self.Get().SetValidate(state[0].cast<bool>());
}

} // namespace Python

#endif
