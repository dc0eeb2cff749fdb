#ifndef REPORTGENERATOR_FORMS_FIELDFORMS_H
#define REPORTGENERATOR_FORMS_FIELDFORMS_H

#include <reportgenerator/reportbase/forms/taggedelements.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/records/record.h>
#include <reportgenerator/reportbase/reporting_p.h>

#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

namespace REPORTGENERATOR {

// The forms of a record's fields, each taken from the class's description: XML, tagged elements, raw form,
// and the check for completeness. Reading functions take an `apply(field, value)` that puts the value where
// it belongs.

// Text form, which the XML and the tagged form share for numbers

template <class FieldOfData>
QString ToText(const FieldOfData& field, double value)
{
    return numbers::ToFixedText(value, field.format);
}

template <class FieldOfData>
QString ToText(const FieldOfData& /*field*/, bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

template <class FieldOfData>
QString ToText(const FieldOfData& /*field*/, const QString& value)
{
    return value;
}

inline void FromText(const QString& text, double& value)
{
    value = numbers::FromText(text);
}

/// Only "0" and "false", in any case, are false.
inline void FromText(const QString& text, bool& value)
{
    const QString lower = text.toLower();
    value = lower != QLatin1String("0") && lower != QLatin1String("false");
}

/// The text of an element is never null.
inline void FromText(const QString& text, QString& value)
{
    value = text.isNull() ? QLatin1String("") : text;
}

// XML

template <class Data, class FieldOfData>
void WriteXmlField(QXmlStreamWriter& writer, const Data& data, const FieldOfData& field)
{
    if (field.written == Written::WhenSet && !field.IsSetIn(data))
        return;
    const QString text = ToText(field, data.*(field.member));
    switch (field.place) {
    case Place::Attribute:
        writer.writeAttribute(field.name.Text(), text);
        break;
    case Place::Element:
        writer.writeTextElement(field.name.Text(), text);
        break;
    case Place::Text:
        writer.writeCharacters(text);
        break;
    }
}

template <class Data, class... Fields>
void WriteXmlFields(QXmlStreamWriter& writer, const Data& data, const std::tuple<Fields...>& fields)
{
    ForEachField(fields, [&](const auto& field) { WriteXmlField(writer, data, field); });
}

template <class FieldOfData, class Apply>
void ReadXmlText(const QString& text, const FieldOfData& field, Apply&& apply)
{
    typename FieldOfData::Value value{};
    FromText(text, value);
    apply(field, value);
}

/// Reads the fields that are attributes of the element that the reader stands on.
template <class Apply, class... Fields>
void ReadXmlAttributes(const QXmlStreamReader& reader, const std::tuple<Fields...>& fields, Apply&& apply)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    ForEachField(fields, [&](const auto& field) {
        if (field.place == Place::Attribute && attributes.hasAttribute(field.name.Latin1()))
            ReadXmlText(attributes.value(field.name.Latin1()).toString(), field, apply);
    });
}

/// Reads the child element `name` if it is a field; `text` gives the element's text and is called only then.
/// Returns whether it was one.
template <class ElementName, class ReadText, class Apply, class... Fields>
bool ReadXmlElement(const ElementName& name, const std::tuple<Fields...>& fields, ReadText&& readText,
                    Apply&& apply)
{
    const auto readIfNamed = [&](const auto& field) {
        if (field.place != Place::Element || !(name == field.name))
            return false;
        ReadXmlText(readText(), field, apply);
        return true;
    };
    return std::apply([&](const Fields&... field) { return (readIfNamed(field) || ...); }, fields);
}

// Tagged elements

template <class FieldOfData>
void WritePayload(QDataStream& stream, const FieldOfData& field, double value)
{
    stream << elements::ToUtf8(ToText(field, value));
}

template <class FieldOfData>
void WritePayload(QDataStream& stream, const FieldOfData& /*field*/, bool value)
{
    stream << value;
}

template <class FieldOfData>
void WritePayload(QDataStream& stream, const FieldOfData& /*field*/, const QString& value)
{
    stream << elements::ToUtf8(value);
}

inline void ReadPayload(QDataStream& stream, double& value)
{
    value = numbers::FromText(elements::ReadUtf8(stream));
}

inline void ReadPayload(QDataStream& stream, bool& value)
{
    stream >> value;
}

inline void ReadPayload(QDataStream& stream, QString& value)
{
    value = elements::ReadUtf8(stream);
}

template <class Data, class FieldOfData>
void WriteFieldElement(QDataStream& stream, const Data& data, const FieldOfData& field)
{
    if (field.written == Written::WhenSet && !field.IsSetIn(data))
        return;
    elements::WriteElement(stream, field.tag, [&] { WritePayload(stream, field, data.*(field.member)); });
}

template <class Data, class... Fields>
void WriteFieldElements(QDataStream& stream, const Data& data, const std::tuple<Fields...>& fields)
{
    ForEachField(fields, [&](const auto& field) { WriteFieldElement(stream, data, field); });
}

/// Reads the payload of the element `tag` if it is a field. Returns whether it was one.
template <class Apply, class... Fields>
bool ReadFieldElement(QDataStream& stream, qint32 tag, const std::tuple<Fields...>& fields, Apply&& apply)
{
    const auto readIfTagged = [&](const auto& field) {
        if (field.tag != tag)
            return false;
        typename std::decay_t<decltype(field)>::Value value{};
        ReadPayload(stream, value);
        apply(field, value);
        return true;
    };
    return std::apply([&](const Fields&... field) { return (readIfTagged(field) || ...); }, fields);
}

// Raw form: the flag byte, then the fields in the order of their bits as plain stream values

/// Calls `visit` for each field in the order of the bits.
template <class Visit, class... Fields>
void ForEachFieldByBit(const std::tuple<Fields...>& fields, Visit&& visit)
{
    for (int bit = 0; bit < static_cast<int>(sizeof...(Fields)); ++bit) {
        ForEachField(fields, [&](const auto& field) {
            if (field.bit == bit)
                visit(field);
        });
    }
}

template <class Data, class... Fields>
void WriteRawFields(QDataStream& stream, const Data& data, const std::tuple<Fields...>& fields)
{
    stream << data.flags;
    ForEachFieldByBit(fields, [&](const auto& field) {
        if (field.written == Written::Always || field.IsSetIn(data))
            stream << data.*(field.member);
    });
}

template <class Data, class... Fields>
void ReadRawFields(QDataStream& stream, Data& data, const std::tuple<Fields...>& fields)
{
    stream >> data.flags;
    ForEachFieldByBit(fields, [&](const auto& field) {
        if (field.written == Written::Always || field.IsSetIn(data))
            stream >> data.*(field.member);
    });
}

// Completeness

/// Reports the field when it must be set and isn't, or when it is set to something invalid. With a logger and
/// `logOnly` the failure is logged; otherwise it is thrown.
template <class Data, class FieldOfData>
void CheckField(const IRGObject& object, const Data& data, const FieldOfData& field, bool logOnly)
{
    const bool isSet = field.IsSetIn(data);
    const bool isGood = isSet ? IsAdmitted(field, data.*(field.member)) : field.written == Written::WhenSet;
    if (!isGood)
        reporting::Missing(object, field.name, logOnly);
}

template <class Data, class... Fields>
void CheckFields(const IRGObject& object, const Data& data, const std::tuple<Fields...>& fields, bool logOnly)
{
    ForEachField(fields, [&](const auto& field) { CheckField(object, data, field, logOnly); });
}

} // namespace REPORTGENERATOR

#endif
