#ifndef REPORTGENERATOR_MINMAX_H
#define REPORTGENERATOR_MINMAX_H

#include <reportgenerator/reportbase/reportbase_export.h>

namespace REPORTGENERATOR {

/// A plain pair of bounds, handed in and out of the frequency objects. Nothing is checked and nothing is
/// unset.
class REPORTBASE_EXPORT MinMax
{
public:
    /// Both bounds default to 0.0.
    MinMax();
    explicit MinMax(double min);
    MinMax(double min, double max);

    double GetMin() const;
    void SetMin(double min);

    double GetMax() const;
    void SetMax(double max);

private:
    double m_min;
    double m_max;
};

} // namespace REPORTGENERATOR

#endif
