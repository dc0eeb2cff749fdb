#ifndef REPORTGENERATOR_CODEC_XMLFIELDS_H
#define REPORTGENERATOR_CODEC_XMLFIELDS_H

#include <reportgenerator/reportbase/codec/scalarfield.h>
#include <reportgenerator/reportbase/codec/values.h>
#include <reportgenerator/reportbase/codec/xmlsinks.h>

#include <QtCore/QXmlStreamReader>

#include <algorithm>

namespace REPORTGENERATOR {

// Fields as XML. Reading functions take an `apply(field, value)` that puts the value where it belongs.

/// Writes the field where it stands, if it is written at all.
template <class Sink, class Data, class FieldOfData>
void WriteXmlField(Sink& sink, const Data& data, const FieldOfData& field)
{
    if (!field.IsWrittenOf(data))
        return;
    switch (field.place) {
    case Place::Attribute:
        sink.Attribute(field.name, field.In(data), field.format);
        break;
    case Place::Element:
        sink.Element(field.name, field.In(data), field.format);
        break;
    case Place::Text:
        sink.Text(field.In(data), field.format);
        break;
    }
}

template <class Sink, class Data, class... Fields>
void WriteXmlFields(Sink& sink, const Data& data, const std::tuple<Fields...>& fields)
{
    ForEachField(fields, [&](const auto& field) { WriteXmlField(sink, data, field); });
}

/// Reads a field's text.
template <class FieldOfData, class Apply>
void ReadXmlText(const QString& text, const FieldOfData& field, Apply&& apply)
{
    typename FieldOfData::Value value{};
    FromText(text, value);
    apply(field, value);
}

/// Reads the field if it is an attribute of the element that the reader stands on.
template <class FieldOfData, class Apply>
void ReadXmlAttribute(const QXmlStreamAttributes& attributes, const FieldOfData& field, Apply&& apply)
{
    if (field.place != Place::Attribute)
        return;
    const auto attribute =
        std::find_if(attributes.cbegin(), attributes.cend(), [&field](const auto& candidate) {
            return candidate.qualifiedName() == field.name.Latin1();
        });
    if (attribute != attributes.cend())
        ReadXmlText(attribute->value().toString(), field, apply);
}

/// Reads the child element `name` if it is the field; `readText` puts the element's text into a value and is
/// called only then. Returns whether it was.
template <class ElementName, class ReadText, class FieldOfData, class Apply>
bool ReadXmlElement(const ElementName& name, const FieldOfData& field, ReadText&& readText, Apply&& apply)
{
    if (field.place != Place::Element || !(name == field.name))
        return false;
    typename FieldOfData::Value value{};
    readText(value);
    apply(field, value);
    return true;
}

} // namespace REPORTGENERATOR

#endif
