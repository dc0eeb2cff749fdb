#include <reportgenerator/reportbase/frequency.h>

#include <reportgenerator/reportbase/descriptions/frequencydescription.h>
#include <reportgenerator/reportbase/records/boundedvalue.h>

namespace REPORTGENERATOR {

template const ObjectIdentity& ClassIdentity<FrequencyData>();
template class RecordObject<FrequencyData, OwnRecord<FrequencyData>>;
template class BoundedValue<FrequencyData>;

namespace {

using Rows = Description<FrequencyData>;

} // namespace

Frequency::Frequency() = default;

Frequency::Frequency(const Frequency& other) = default;

Frequency& Frequency::operator=(const Frequency& other) = default;

Frequency::~Frequency() = default;

bool Frequency::operator==(const Frequency& other) const
{
    return IsRecordEqual(*this, other);
}

bool Frequency::operator!=(const Frequency& other) const
{
    return !IsRecordEqual(*this, other);
}

bool Frequency::GetUse() const
{
    InitData();
    return m_record.Get()->use;
}

void Frequency::SetUse(bool use)
{
    InitData();
    StoreValue(*this, Rows::USE, use);
}

bool Frequency::IsUseSet() const
{
    return IsRowSet(m_record.Get(), Rows::USE);
}

void Frequency::ResetUse()
{
    ResetRow(*this, Rows::USE);
}

bool Frequency::GetDefaultUse() const
{
    return FreshRecord<FrequencyData>().use;
}

void Frequency::ResetToDefault()
{
    BoundedValue::ResetToDefault();
    // The one default that counts as set.
    SetFlag(m_record.Own(), Rows::USE.setBy);
}

} // namespace REPORTGENERATOR
