#ifndef REPORTGENERATOR_RECORDS_BOUNDEDVALUE_H
#define REPORTGENERATOR_RECORDS_BOUNDEDVALUE_H

#include <reportgenerator/reportbase/descriptions/boundedvaluedescription.h>
#include <reportgenerator/reportbase/records/recordobject.h>

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
    return IsAnyRowSet(m_record.Get(), Description<Data>::ROWS);
}

template <class Data>
bool BoundedValue<Data>::HasData() const
{
    return AreMandatoryRowsSet(m_record.Get(), Description<Data>::ROWS);
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
    StoreValue(*this, BoundedValueRows::VALUE, value);
}

template <class Data>
bool BoundedValue<Data>::IsValueSet() const
{
    return IsRowSet(m_record.Get(), BoundedValueRows::VALUE);
}

template <class Data>
void BoundedValue<Data>::ResetValue()
{
    ResetRow(*this, BoundedValueRows::VALUE);
}

template <class Data>
bool BoundedValue<Data>::IsValidValue(const double& value) const
{
    return IsAdmitted(BoundedValueRows::VALUE, value);
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
    return m_record.Get()->min;
}

template <class Data>
void BoundedValue<Data>::SetMin(double min)
{
    this->InitData();
    StoreValue(*this, BoundedValueRows::MIN, min);
}

template <class Data>
bool BoundedValue<Data>::IsMinSet() const
{
    return IsRowSet(m_record.Get(), BoundedValueRows::MIN);
}

template <class Data>
void BoundedValue<Data>::ResetMin()
{
    ResetRow(*this, BoundedValueRows::MIN);
}

template <class Data>
bool BoundedValue<Data>::IsValidMin(const double& min) const
{
    return IsAdmitted(BoundedValueRows::MIN, min);
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
    return m_record.Get()->max;
}

template <class Data>
void BoundedValue<Data>::SetMax(double max)
{
    this->InitData();
    StoreValue(*this, BoundedValueRows::MAX, max);
}

template <class Data>
bool BoundedValue<Data>::IsMaxSet() const
{
    return IsRowSet(m_record.Get(), BoundedValueRows::MAX);
}

template <class Data>
void BoundedValue<Data>::ResetMax()
{
    ResetRow(*this, BoundedValueRows::MAX);
}

template <class Data>
bool BoundedValue<Data>::IsValidMax(const double& max) const
{
    return IsAdmitted(BoundedValueRows::MAX, max);
}

template <class Data>
double BoundedValue<Data>::GetDefaultMax() const
{
    return FreshRecord<Data>().max;
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
    ForEachField(Description<Data>::ROWS, [&](const auto& row) { ReadXmlAttribute(attributes, row, store); });
    double value = 0.0;
    ReadElementText(*this, reader, value);
    StoreValue(*this, BoundedValueRows::VALUE, value);
    xmltools::ReadToName(reader, name);
}

} // namespace REPORTGENERATOR

#endif
