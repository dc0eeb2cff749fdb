#include <reportgenerator/reportbase/minmax.h>

namespace REPORTGENERATOR {

MinMax::MinMax() : MinMax(0.0, 0.0) {}

MinMax::MinMax(double min) : MinMax(min, 0.0) {}

MinMax::MinMax(double min, double max) : m_min(min), m_max(max) {}

double MinMax::GetMin() const
{
    return m_min;
}

void MinMax::SetMin(double min)
{
    m_min = min;
}

double MinMax::GetMax() const
{
    return m_max;
}

void MinMax::SetMax(double max)
{
    m_max = max;
}

} // namespace REPORTGENERATOR
