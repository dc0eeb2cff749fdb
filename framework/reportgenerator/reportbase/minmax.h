#ifndef REPORTGENERATOR_MINMAX_H
#define REPORTGENERATOR_MINMAX_H

#include <reportgenerator/reportbase/reportbase_export.h>

namespace REPORTGENERATOR {

/// A plain pair of bounds, handed in and out of the frequency objects. Nothing is checked and nothing is
/// unset.
class REPORTBASE_EXPORT MinMax
{
public:
    /// A bound that is not given is 0.0.
    MinMax();
    explicit MinMax(double min);
    MinMax(double min, double max);

    /// The lower bound, in the unit of the object that it is handed to.
    double GetMin() const;
    void SetMin(double min);

    /// The upper bound, in the same unit. It may lie below the lower one.
    double GetMax() const;
    void SetMax(double max);

private:
    double m_min;
    double m_max;
};

} // namespace REPORTGENERATOR

#endif
