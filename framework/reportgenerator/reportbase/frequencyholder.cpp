#include <reportgenerator/reportbase/frequencyholder.h>

namespace REPORTGENERATOR {

FrequencyHolder::FrequencyHolder(const ObjectIdentity& identity) : IRGObject(identity)
{
    m_frequency.SetName(FrequencyName());
}

FrequencyHolder::FrequencyHolder(const FrequencyHolder& other) = default;

FrequencyHolder& FrequencyHolder::operator=(const FrequencyHolder& other) = default;

FrequencyHolder::~FrequencyHolder() = default;

double FrequencyHolder::GetFrequency() const
{
    return m_frequency.GetValue();
}

void FrequencyHolder::SetFrequency(double frequency)
{
    m_frequency.SetValue(frequency);
}

double FrequencyHolder::GetFrequencyMin() const
{
    return m_frequency.GetMin();
}

void FrequencyHolder::SetFrequencyMin(double min)
{
    m_frequency.SetMin(min);
}

double FrequencyHolder::GetFrequencyMax() const
{
    return m_frequency.GetMax();
}

void FrequencyHolder::SetFrequencyMax(double max)
{
    m_frequency.SetMax(max);
}

void FrequencyHolder::GetFrequencyMinMax(double& min, double& max) const
{
    min = GetFrequencyMin();
    max = GetFrequencyMax();
}

MinMax FrequencyHolder::GetFrequencyMinMax() const
{
    return MinMax(GetFrequencyMin(), GetFrequencyMax());
}

void FrequencyHolder::SetFrequencyMinMax(double min, double max)
{
    SetFrequencyMin(min);
    SetFrequencyMax(max);
}

void FrequencyHolder::SetFrequencyMinMax(const MinMax& bounds)
{
    SetFrequencyMinMax(bounds.GetMin(), bounds.GetMax());
}

QString FrequencyHolder::FrequencyName()
{
    return QStringLiteral("Frequency");
}

} // namespace REPORTGENERATOR
