#ifndef REPORTGENERATOR_FREQUENCYHOLDER_H
#define REPORTGENERATOR_FREQUENCYHOLDER_H

#include <reportgenerator/reportbase/minmax.h>
#include <reportgenerator/reportbase/valueminmax.h>

namespace REPORTGENERATOR {

/// What `FrequencyInformation` and `FrequencyListValue` have in common: a frequency with optional bounds, the
/// first of their members. All setters store without a check; -111111.11 stands for "not set". The unit of
/// the three numbers is the client's.
class REPORTBASE_EXPORT FrequencyHolder : public IRGObject
{
public:
    /// The frequency itself, the text of the element "Frequency".
    double GetFrequency() const;
    void SetFrequency(double frequency);

    /// The lower bound, the attribute "Min" of that element. Bounds without a frequency are no data and are
    /// not written.
    double GetFrequencyMin() const;
    void SetFrequencyMin(double min);

    /// The upper bound, the attribute "Max".
    double GetFrequencyMax() const;
    void SetFrequencyMax(double max);

    /// Both bounds at once, each -111111.11 when it is not set.
    void GetFrequencyMinMax(double& min, double& max) const;
    MinMax GetFrequencyMinMax() const;
    void SetFrequencyMinMax(double min, double max);
    void SetFrequencyMinMax(const MinMax& bounds);

protected:
    /// Nothing set.
    explicit FrequencyHolder(const ObjectIdentity& identity);

    /// Copies everything, base included.
    FrequencyHolder(const FrequencyHolder& other);
    FrequencyHolder& operator=(const FrequencyHolder& other);
    ~FrequencyHolder() override;

    /// "Frequency", the name of the frequency's element.
    static QString FrequencyName();

    /// The frequency and its bounds.
    ValueMinMax m_frequency;
};

} // namespace REPORTGENERATOR

#endif
