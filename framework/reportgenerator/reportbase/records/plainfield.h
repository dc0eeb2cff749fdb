#ifndef REPORTGENERATOR_RECORDS_PLAINFIELD_H
#define REPORTGENERATOR_RECORDS_PLAINFIELD_H

#include <reportgenerator/reportbase/forms/fieldforms.h>
#include <reportgenerator/reportbase/forms/invalidvalues.h>
#include <reportgenerator/reportbase/rgexception.h>

namespace REPORTGENERATOR {

// The fields of the plainer classes: members of the object itself, unset when they hold the value of their
// type that stands for "not set". They take the forms of fieldforms_p.h; their failures are thrown, never
// logged.

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

/// All that there is to know of such a field; a class lists its fields in writing order.
template <class Object, class T>
struct PlainField
{
    using Value = T;

    T Object::*member;
    Name name;
    Written written;
    Place place = Place::Element;
    NumberFormat format = {};

    bool IsSetIn(const Object& object) const { return IsValueSet(object.*member); }
};

template <class Object, class T>
void StoreField(Object& object, const PlainField<Object, T>& field, const T& value)
{
    object.*(field.member) = value;
}

template <class Object, class... Fields>
void UnsetFields(Object& object, const std::tuple<Fields...>& fields)
{
    ForEachField(fields, [&object](const auto& field) { Unset(object.*(field.member)); });
}

template <class Object, class... Fields>
bool IsAnyFieldSet(const Object& object, const std::tuple<Fields...>& fields)
{
    return std::apply([&object](const Fields&... field) { return (field.IsSetIn(object) || ...); }, fields);
}

/// Whether all fields are set that are always written.
template <class Object, class... Fields>
bool AreMandatoryFieldsSet(const Object& object, const std::tuple<Fields...>& fields)
{
    const auto isGood = [&object](const auto& field) {
        return field.written == Written::WhenSet || field.IsSetIn(object);
    };
    return std::apply([&isGood](const Fields&... field) { return (isGood(field) && ...); }, fields);
}

/// Whether all values are equal, set or not. A NaN equals nothing.
template <class Object, class... Fields>
bool AreValuesEqual(const Object& left, const Object& right, const std::tuple<Fields...>& fields)
{
    return std::apply(
        [&](const Fields&... field) { return ((left.*(field.member) == right.*(field.member)) && ...); },
        fields);
}

/// Throws the class's message for the first field that is missing.
template <class Object, class... Fields>
void RequireFields(const Object& object, const std::tuple<Fields...>& fields,
                   QString (*message)(const QString& objectName, const QString& field))
{
    ForEachField(fields, [&](const auto& field) {
        if (field.written == Written::Always && !field.IsSetIn(object))
            throw RGException(message(object.GetObjectName(), field.name.Text()));
    });
}

/// Reads the child element that the reader stands on into its field. Returns whether it was one.
template <class Object, class ReadText, class... Fields>
bool ReadPlainElement(Object& object, const QXmlStreamReader& reader, const std::tuple<Fields...>& fields,
                      ReadText&& readText)
{
    return ReadXmlElement(reader.name(), fields, readText, [&object](const auto& field, const auto& value) {
        StoreField(object, field, value);
    });
}

/// Refuses the child element that the reader stands on.
[[noreturn]] void ThrowUnknownTag(const IRGObject& object, const QXmlStreamReader& reader);

} // namespace REPORTGENERATOR

#endif
