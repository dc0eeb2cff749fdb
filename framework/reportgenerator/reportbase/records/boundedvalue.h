#ifndef REPORTGENERATOR_RECORDS_BOUNDEDVALUE_H
#define REPORTGENERATOR_RECORDS_BOUNDEDVALUE_H

#include <reportgenerator/reportbase/boundedvalue.h>
#include <reportgenerator/reportbase/forms/fieldforms.h>
#include <reportgenerator/reportbase/forms/xmltools.h>
#include <reportgenerator/reportbase/records/recordobject.h>

namespace REPORTGENERATOR {

/// The fields that the records of frequency and IF bandwidth share.
struct BoundedValueData : Record
{
    double value = 0.0;
    double min = 0.0;
    double max = 0.0;
};

template <class Data>
constexpr Field<Data, double> VALUE = {0,           &Data::value,    REPORTBASE_NAME("Value"),
                                       Place::Text, Written::Always, elements::Tag(0x8AFF57B3)};

template <class Data>
constexpr Field<Data, double> MIN = {
    1, &Data::min, REPORTBASE_NAME("Min"), Place::Attribute, Written::WhenSet, elements::Tag(0x4ECB4E58)};

template <class Data>
constexpr Field<Data, double> MAX = {
    2, &Data::max, REPORTBASE_NAME("Max"), Place::Attribute, Written::WhenSet, elements::Tag(0x6E8DD7F5)};

template <class Data>
BoundedValue<Data>::BoundedValue() = default;

template <class Data>
BoundedValue<Data>::BoundedValue(const BoundedValue& other) : RecordObject<Data>(other)
{
    IRGObject::SetValidate(other.GetValidate());
}

template <class Data>
BoundedValue<Data>& BoundedValue<Data>::operator=(const BoundedValue& other) = default;

template <class Data>
BoundedValue<Data>::~BoundedValue() = default;

template <class Data>
bool BoundedValue<Data>::AnyData() const
{
    return IsAnySet(m_data, Description<Data>::FIELDS);
}

template <class Data>
bool BoundedValue<Data>::HasData() const
{
    return AreMandatorySet(m_data, Description<Data>::FIELDS);
}

template <class Data>
double BoundedValue<Data>::GetValue() const
{
    this->InitData();
    return m_data.constData()->value;
}

template <class Data>
void BoundedValue<Data>::SetValue(double value)
{
    this->InitData();
    StoreField(*m_data, VALUE<Data>, value);
}

template <class Data>
bool BoundedValue<Data>::IsValueSet() const
{
    return IsSet(m_data, VALUE<Data>);
}

template <class Data>
void BoundedValue<Data>::ResetValue()
{
    ResetField(m_data, VALUE<Data>);
}

template <class Data>
bool BoundedValue<Data>::IsValidValue(const double& value) const
{
    return IsAdmitted(VALUE<Data>, value);
}

template <class Data>
double BoundedValue<Data>::GetDefaultValue() const
{
    return FreshRecord<Data>().value;
}

template <class Data>
double BoundedValue<Data>::GetMin() const
{
    this->InitData();
    return m_data.constData()->min;
}

template <class Data>
void BoundedValue<Data>::SetMin(double min)
{
    this->InitData();
    StoreField(*m_data, MIN<Data>, min);
}

template <class Data>
bool BoundedValue<Data>::IsMinSet() const
{
    return IsSet(m_data, MIN<Data>);
}

template <class Data>
void BoundedValue<Data>::ResetMin()
{
    ResetField(m_data, MIN<Data>);
}

template <class Data>
bool BoundedValue<Data>::IsValidMin(const double& min) const
{
    return IsAdmitted(MIN<Data>, min);
}

template <class Data>
double BoundedValue<Data>::GetDefaultMin() const
{
    return FreshRecord<Data>().min;
}

template <class Data>
double BoundedValue<Data>::GetMax() const
{
    this->InitData();
    return m_data.constData()->max;
}

template <class Data>
void BoundedValue<Data>::SetMax(double max)
{
    this->InitData();
    StoreField(*m_data, MAX<Data>, max);
}

template <class Data>
bool BoundedValue<Data>::IsMaxSet() const
{
    return IsSet(m_data, MAX<Data>);
}

template <class Data>
void BoundedValue<Data>::ResetMax()
{
    ResetField(m_data, MAX<Data>);
}

template <class Data>
bool BoundedValue<Data>::IsValidMax(const double& max) const
{
    return IsAdmitted(MAX<Data>, max);
}

template <class Data>
double BoundedValue<Data>::GetDefaultMax() const
{
    return FreshRecord<Data>().max;
}

template <class Data>
void BoundedValue<Data>::Check(bool logOnly) const
{
    this->ReapplySettings();
    this->InitData();
    CheckFields(*this, *m_data.constData(), Description<Data>::FIELDS, logOnly);
}

template <class Data>
void BoundedValue<Data>::GetXml(QXmlStreamWriter& writer) const
{
    if (!this->PrepareToWrite())
        return;
    this->InitData();
    writer.writeStartElement(this->GetObjectName());
    WriteXmlFields(writer, *m_data.constData(), Description<Data>::FIELDS);
    writer.writeEndElement();
}

template <class Data>
bool BoundedValue<Data>::GetBinary(QDataStream& stream, int tag, bool withTag) const
{
    if (!this->PrepareToWrite())
        return false;
    this->InitData();
    elements::WriteBody(stream, tag, withTag,
                        [&] { WriteFieldElements(stream, *m_data.constData(), Description<Data>::FIELDS); });
    return true;
}

template <class Data>
void BoundedValue<Data>::SetBinary(QDataStream& stream, int length)
{
    this->ReapplySettings();
    this->InitData();
    RecordObject<Data>::Reset();
    const auto store = [this](const auto& field, const auto& value) { StoreField(*m_data, field, value); };
    elements::ReadBody(*this, stream, length, [&](qint32 tag, qint32 /*payloadLength*/) {
        return ReadFieldElement(stream, tag, Description<Data>::FIELDS, store);
    });
}

template <class Data>
void BoundedValue<Data>::ProcessXml(QXmlStreamReader& reader)
{
    ReadValuesFromXml(reader);
}

template <class Data>
void BoundedValue<Data>::ReadValuesFromXml(QXmlStreamReader& reader)
{
    this->InitData();
    const auto store = [this](const auto& field, const auto& value) { StoreField(*m_data, field, value); };
    const QString name = reader.name().toString();
    ReadXmlAttributes(reader, Description<Data>::FIELDS, store);
    ReadXmlText(this->GetTextValue(reader), VALUE<Data>, store);
    xmltools::ReadToName(reader, name);
}

template <class Data>
void BoundedValue<Data>::GetVersionSpecificBinaryWithoutValidation(QDataStream& stream) const
{
    this->InitData();
    WriteRawFields(stream, *m_data.constData(), Description<Data>::FIELDS);
}

template <class Data>
void BoundedValue<Data>::SetVersionSpecificBinaryWithoutValidation(QDataStream& stream)
{
    this->InitData();
    ReadRawFields(stream, *m_data, Description<Data>::FIELDS);
}

} // namespace REPORTGENERATOR

#endif
