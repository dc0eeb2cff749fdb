#ifndef REPORTGENERATOR_RECORDS_PLAINFIELD_H
#define REPORTGENERATOR_RECORDS_PLAINFIELD_H

#include <reportgenerator/reportbase/codec/invalidvalues.h>
#include <reportgenerator/reportbase/codec/xmlfields.h>
#include <reportgenerator/reportbase/envelope/elementtext.h>
#include <reportgenerator/reportbase/envelope/objectidentity.h>
#include <reportgenerator/reportbase/records/schemarules.h>
#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <type_traits>

namespace REPORTGENERATOR {

// The fields of the plainer classes: members of the object itself, values and objects. A value is unset when it is
// the one of its type that stands for "not set". Failures are thrown, never logged.

template <class T>
constexpr bool IS_OBJECT = std::is_base_of_v<IRGObject, T>;
template <class Field>
constexpr bool IS_OF_OBJECT = IS_OBJECT<typename std::decay_t<Field>::Value>;

template <class T>
void Unset(T& value)
{
    if constexpr (IS_OBJECT<T>)
        value.Reset();
    else if constexpr (std::is_same_v<T, double>)
        value = INVALID_DOUBLE;
    else if constexpr (std::is_same_v<T, QString>)
        value.clear();
    else
        value = T();
}

template <class T>
bool IsValueSet(const T& value)
{
    if constexpr (IS_OBJECT<T>)
        return value.AnyData();
    else if constexpr (std::is_same_v<T, double>)
        return value != INVALID_DOUBLE;
    else if constexpr (std::is_same_v<T, QString>)
        return !value.isEmpty();
    else // A local time that a clock change leaves out is not null, but is no time either.
        return value != T();
}

template <class T>
bool IsValueEqual(const T& left, const T& right)
{
    return left == right;
}

/// The name is that of the element.
bool IsValueEqual(const ValueMinMax& left, const ValueMinMax& right);

/// Gives the numbers of a new object the value that stands for "not set", which all other fields begin with.
template <class Schema, class Object>
void InitNumbers(Object& object)
{
    static_assert(schema::AreFieldsDistinct(Schema::FIELDS), "two fields have the same name or member");
    ForEachField(Schema::FIELDS, [&object](const auto& field) {
        if constexpr (std::is_same_v<decltype(field.In(object)), double&>)
            Unset(field.In(object));
    });
}

template <class Object, class... Fields>
void UnsetFields(Object& object, const std::tuple<Fields...>& fields)
{
    ForEachField(fields, [&object](const auto& field) { Unset(field.In(object)); });
}

/// Whether a field is set that is data.
template <class Object, class... Fields>
bool IsAnyFieldSet(const Object& object, const std::tuple<Fields...>& fields)
{
    return AnyOfFields(fields,
                       [&object](const auto& field) { return field.setBy.isData && field.IsSetIn(object); });
}

/// Whether all values are set that are always written, and all objects are complete.
template <class Object, class... Fields>
bool AreMandatoryFieldsSet(const Object& object, const std::tuple<Fields...>& fields)
{
    return AllOfFields(fields, [&object](const auto& field) {
        if constexpr (IS_OF_OBJECT<decltype(field)>)
            return field.In(object).HasData();
        else
            return !field.isMandatory || field.IsSetIn(object);
    });
}

/// Whether all values are equal, set or not. A NaN equals nothing.
template <class Object, class... Fields>
bool AreValuesEqual(const Object& left, const Object& right, const std::tuple<Fields...>& fields)
{
    return AllOfFields(fields,
                       [&](const auto& field) { return IsValueEqual(field.In(left), field.In(right)); });
}

/// Throws the class's message for the first value that is missing. Objects have messages of their own.
template <class Object, class... Fields>
void RequireFields(const Object& object, const std::tuple<Fields...>& fields,
                   QString (*message)(const QString& objectName, const QString& field))
{
    ForEachField(fields, [&](const auto& field) {
        if constexpr (IS_OF_OBJECT<decltype(field)>)
            field.In(object).Check();
        else if (field.isMandatory && !field.IsSetIn(object))
            throw RGException(message(object.GetObjectName(), field.name.Text()));
    });
}

template <class Object, class... Fields>
void WritePlainFields(QXmlStreamWriter& writer, const Object& object, const std::tuple<Fields...>& fields)
{
    XmlWriterSink sink(writer);
    ForEachField(fields, [&](const auto& field) {
        if constexpr (IS_OF_OBJECT<decltype(field)>)
            field.In(object).GetXml(writer);
        else
            WriteXmlField(sink, object, field);
    });
}

/// Writes the element of an object that is complete, and nothing of another one.
template <class Object, class... Fields>
void WritePlainObject(QXmlStreamWriter& writer, const Object& object, const std::tuple<Fields...>& fields)
{
    if (!object.HasData())
        return;
    writer.writeStartElement(object.GetObjectName());
    WritePlainFields(writer, object, fields);
    writer.writeEndElement();
}

/// Reads the child element that the reader stands on if it bears the name that the object goes by. Returns whether
/// it does.
bool ReadObject(IRGObject& object, QXmlStreamReader& reader);
bool ReadObject(ValueMinMax& object, QXmlStreamReader& reader);

/// Refuses the child element that the reader stands on.
[[noreturn]] void ThrowUnknownTag(const IRGObject& object, const QXmlStreamReader& reader);

/// Reads the child element that the reader stands on into its field, and refuses one that is of none.
template <class Object, class... Fields>
void ReadPlainElement(Object& object, QXmlStreamReader& reader, const std::tuple<Fields...>& fields)
{
    const auto readText = [&](auto& value) { ReadElementText(object, reader, value); };
    const auto store = [&object](const auto& field, const auto& value) { field.In(object) = value; };
    const auto read = [&](const auto& field) {
        if constexpr (IS_OF_OBJECT<decltype(field)>)
            return ReadObject(field.In(object), reader);
        else
            return ReadXmlElement(reader.name(), field, readText, store);
    };
    if (!AnyOfFields(fields, read))
        ThrowUnknownTag(object, reader);
}

} // namespace REPORTGENERATOR

#endif
