#ifndef REPORTGENERATOR_RECORDS_PLAINFIELD_H
#define REPORTGENERATOR_RECORDS_PLAINFIELD_H

#include <reportgenerator/reportbase/codec/invalidvalues.h>
#include <reportgenerator/reportbase/codec/scalarfield.h>
#include <reportgenerator/reportbase/codec/xmlfields.h>
#include <reportgenerator/reportbase/envelope/elementtext.h>
#include <reportgenerator/reportbase/envelope/objectaccess.h>
#include <reportgenerator/reportbase/rgexception.h>

namespace REPORTGENERATOR {

// The fields of the plainer classes: members of the object itself, unset when they hold the value of their
// type that stands for "not set". Their failures are thrown, never logged.

inline void Unset(double& value)
{
    value = INVALID_DOUBLE;
}

inline void Unset(QString& value)
{
    value.clear();
}

inline bool IsValueSet(double value)
{
    return value != INVALID_DOUBLE;
}

inline bool IsValueSet(const QString& value)
{
    return !value.isEmpty();
}

/// Of a plain field: it is set unless it holds the value that stands for "not set".
struct ByValue
{
    template <class Object, class T>
    bool IsSetIn(const Object& /*object*/, const T& value) const
    {
        return IsValueSet(value);
    }
};

template <class Object, class T>
constexpr ScalarField<Object, T, ByValue> AttributeField(T Object::*member, Name name)
{
    return AttributeField(member, name, ByValue());
}

template <class Object, class T>
constexpr ScalarField<Object, T, ByValue> ElementField(T Object::*member, Name name)
{
    return ElementField(member, name, ByValue());
}

template <class Object, class T>
constexpr ScalarField<Object, T, ByValue> TextField(T Object::*member, Name name)
{
    return TextField(member, name, ByValue());
}

template <class Object, class T>
void StoreField(Object& object, const ScalarField<Object, T, ByValue>& field, const T& value)
{
    field.In(object) = value;
}

template <class Object, class... Fields>
void UnsetFields(Object& object, const std::tuple<Fields...>& fields)
{
    ForEachField(fields, [&object](const auto& field) { Unset(field.In(object)); });
}

template <class Object, class... Fields>
bool IsAnyFieldSet(const Object& object, const std::tuple<Fields...>& fields)
{
    return AnyOfFields(fields, [&object](const auto& field) { return field.IsSetIn(object); });
}

/// Whether all fields are set that are always written.
template <class Object, class... Fields>
bool AreMandatoryFieldsSet(const Object& object, const std::tuple<Fields...>& fields)
{
    return AllOfFields(fields,
                       [&object](const auto& field) { return !field.isMandatory || field.IsSetIn(object); });
}

/// Whether all values are equal, set or not. A NaN equals nothing.
template <class Object, class... Fields>
bool AreValuesEqual(const Object& left, const Object& right, const std::tuple<Fields...>& fields)
{
    return AllOfFields(fields, [&](const auto& field) { return field.In(left) == field.In(right); });
}

/// Throws the class's message for the first field that is missing.
template <class Object, class... Fields>
void RequireFields(const Object& object, const std::tuple<Fields...>& fields,
                   QString (*message)(const QString& objectName, const QString& field))
{
    ForEachField(fields, [&](const auto& field) {
        if (field.isMandatory && !field.IsSetIn(object))
            throw RGException(message(object.GetObjectName(), field.name.Text()));
    });
}

template <class Object, class... Fields>
void WritePlainFields(QXmlStreamWriter& writer, const Object& object, const std::tuple<Fields...>& fields)
{
    XmlWriterSink sink(writer);
    WriteXmlFields(sink, object, fields);
}

/// Reads the child element that the reader stands on into its field. Returns whether it was one.
template <class Object, class... Fields>
bool ReadPlainElement(Object& object, QXmlStreamReader& reader, const std::tuple<Fields...>& fields)
{
    const auto readText = [&](auto& value) { ReadElementText(object, reader, value); };
    const auto store = [&object](const auto& field, const auto& value) { StoreField(object, field, value); };
    return AnyOfFields(
        fields, [&](const auto& field) { return ReadXmlElement(reader.name(), field, readText, store); });
}

/// Refuses the child element that the reader stands on.
[[noreturn]] void ThrowUnknownTag(const IRGObject& object, const QXmlStreamReader& reader);

} // namespace REPORTGENERATOR

#endif
