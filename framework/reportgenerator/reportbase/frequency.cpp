#include <reportgenerator/reportbase/frequency.h>

#include <reportgenerator/reportbase/records/boundedvalue_p.h>
#include <reportgenerator/reportbase/schema/frequencyschema.h>

namespace REPORTGENERATOR {

template const ObjectIdentity& ClassIdentity<FrequencyData>();
template class RecordObject<FrequencyData, OwnRecord<FrequencyData>>;
template class BoundedValue<FrequencyData>;

namespace {

using Fields = Schema<FrequencyData>;

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
    StoreValue(*this, Fields::USE, use);
}

bool Frequency::IsUseSet() const
{
    return IsFieldSet(m_record.Get(), Fields::USE);
}

void Frequency::ResetUse()
{
    ResetField(*this, Fields::USE);
}

bool Frequency::GetDefaultUse() const
{
    return DefaultRecord<FrequencyData>().use;
}

void Frequency::ResetToDefault()
{
    BoundedValue::ResetToDefault();
    // The one default that counts as set.
    SetFlag(m_record.Own(), Fields::USE.setBy);
}

} // namespace REPORTGENERATOR
