#include <reportgenerator/reportbase/frequency.h>

#include <reportgenerator/reportbase/records/boundedvalue.h>

namespace REPORTGENERATOR {

struct FrequencyData : BoundedValueData
{
    bool use = true;
};

namespace {

constexpr Field<FrequencyData, bool> USE = {3,
                                            &FrequencyData::use,
                                            REPORTBASE_NAME("Use"),
                                            Place::Attribute,
                                            Written::WhenSet,
                                            elements::Tag(0xAA39C731)};

} // namespace

template <>
struct Description<FrequencyData>
{
    static constexpr long long ID = 0xC6B750E3;
    static constexpr Name NAME = REPORTBASE_NAME("Frequency");
    static constexpr auto FIELDS =
        std::make_tuple(MIN<FrequencyData>, MAX<FrequencyData>, USE, VALUE<FrequencyData>);
};

template class RecordObject<FrequencyData>;
template class BoundedValue<FrequencyData>;

Frequency::Frequency() = default;

Frequency::Frequency(const Frequency& other) = default;

Frequency& Frequency::operator=(const Frequency& other) = default;

Frequency::~Frequency() = default;

bool Frequency::operator==(const Frequency& other) const
{
    return HasEqualRecord(other);
}

bool Frequency::operator!=(const Frequency& other) const
{
    return !HasEqualRecord(other);
}

bool Frequency::GetUse() const
{
    InitData();
    return m_data.constData()->use;
}

void Frequency::SetUse(bool use)
{
    InitData();
    StoreField(*m_data, USE, use);
}

bool Frequency::IsUseSet() const
{
    return IsSet(m_data, USE);
}

void Frequency::ResetUse()
{
    ResetField(m_data, USE);
}

bool Frequency::GetDefaultUse() const
{
    return FreshRecord<FrequencyData>().use;
}

void Frequency::ResetToDefault()
{
    BoundedValue::ResetToDefault();
    // A frequency is there to be used: the one default that counts as set.
    SetFlag(*m_data, USE.Mask());
}

} // namespace REPORTGENERATOR
