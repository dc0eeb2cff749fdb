#ifndef REPORTGENERATOR_RECORDS_BOUNDEDVALUE_P_H
#define REPORTGENERATOR_RECORDS_BOUNDEDVALUE_P_H

#include <reportgenerator/reportbase/records/recordobject_p.h>
#include <reportgenerator/reportbase/schema/boundedvalueschema.h>

namespace REPORTGENERATOR {

template <class Data>
BoundedValue<Data>::BoundedValue() = default;

template <class Data>
BoundedValue<Data>::BoundedValue(const BoundedValue& other) = default;

template <class Data>
BoundedValue<Data>& BoundedValue<Data>::operator=(const BoundedValue& other) = default;

template <class Data>
BoundedValue<Data>::~BoundedValue() = default;

template <class Data>
bool BoundedValue<Data>::AnyData() const
{
    return IsAnyFieldSet(m_record.Get(), Schema<Data>::FIELDS);
}

template <class Data>
bool BoundedValue<Data>::HasData() const
{
    return AreMandatoryFieldsSet(m_record.Get(), Schema<Data>::FIELDS);
}

template <class Data>
double BoundedValue<Data>::GetValue() const
{
    this->InitData();
    return m_record.Get()->value;
}

template <class Data>
void BoundedValue<Data>::SetValue(double value)
{
    this->InitData();
    StoreValue(*this, BoundedValueFields::VALUE, value);
}

template <class Data>
bool BoundedValue<Data>::IsValueSet() const
{
    return IsFieldSet(m_record.Get(), BoundedValueFields::VALUE);
}

template <class Data>
void BoundedValue<Data>::ResetValue()
{
    ResetField(*this, BoundedValueFields::VALUE);
}

template <class Data>
bool BoundedValue<Data>::IsValidValue(const double& value) const
{
    return IsAdmitted(BoundedValueFields::VALUE, value);
}

template <class Data>
double BoundedValue<Data>::GetDefaultValue() const
{
    return DefaultRecord<Data>().value;
}

template <class Data>
double BoundedValue<Data>::GetMin() const
{
    this->InitData();
    return m_record.Get()->min;
}

template <class Data>
void BoundedValue<Data>::SetMin(double min)
{
    this->InitData();
    StoreValue(*this, BoundedValueFields::MIN, min);
}

template <class Data>
bool BoundedValue<Data>::IsMinSet() const
{
    return IsFieldSet(m_record.Get(), BoundedValueFields::MIN);
}

template <class Data>
void BoundedValue<Data>::ResetMin()
{
    ResetField(*this, BoundedValueFields::MIN);
}

template <class Data>
bool BoundedValue<Data>::IsValidMin(const double& min) const
{
    return IsAdmitted(BoundedValueFields::MIN, min);
}

template <class Data>
double BoundedValue<Data>::GetDefaultMin() const
{
    return DefaultRecord<Data>().min;
}

template <class Data>
double BoundedValue<Data>::GetMax() const
{
    this->InitData();
    return m_record.Get()->max;
}

template <class Data>
void BoundedValue<Data>::SetMax(double max)
{
    this->InitData();
    StoreValue(*this, BoundedValueFields::MAX, max);
}

template <class Data>
bool BoundedValue<Data>::IsMaxSet() const
{
    return IsFieldSet(m_record.Get(), BoundedValueFields::MAX);
}

template <class Data>
void BoundedValue<Data>::ResetMax()
{
    ResetField(*this, BoundedValueFields::MAX);
}

template <class Data>
bool BoundedValue<Data>::IsValidMax(const double& max) const
{
    return IsAdmitted(BoundedValueFields::MAX, max);
}

template <class Data>
double BoundedValue<Data>::GetDefaultMax() const
{
    return DefaultRecord<Data>().max;
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
    const auto store = [this](const auto& field, const auto& value) { StoreValue(*this, field, value); };
    const QString name = reader.name().toString();
    const QXmlStreamAttributes attributes = reader.attributes();
    ForEachField(Schema<Data>::FIELDS,
                 [&](const auto& field) { ReadXmlAttribute(attributes, field, store); });
    double value = 0.0;
    ReadElementText(*this, reader, value);
    StoreValue(*this, BoundedValueFields::VALUE, value);
    xmltools::ReadToName(reader, name);
}

} // namespace REPORTGENERATOR

#endif
