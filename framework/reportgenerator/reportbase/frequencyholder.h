#ifndef REPORTGENERATOR_FREQUENCYHOLDER_H
#define REPORTGENERATOR_FREQUENCYHOLDER_H

#include <reportgenerator/reportbase/minmax.h>
#include <reportgenerator/reportbase/valueminmax.h>

namespace REPORTGENERATOR {

/// What `FrequencyInformation` and `FrequencyListValue` have in common: a frequency with optional bounds, the
/// first of their members. All setters store without a check; -111111.11 stands for "not set".
class REPORTBASE_EXPORT FrequencyHolder : public IRGObject
{
public:
    double GetFrequency() const;
    void SetFrequency(double frequency);

    double GetFrequencyMin() const;
    void SetFrequencyMin(double min);

    double GetFrequencyMax() const;
    void SetFrequencyMax(double max);

    /// Both bounds at once.
    void GetFrequencyMinMax(double& min, double& max) const;
    MinMax GetFrequencyMinMax() const;
    void SetFrequencyMinMax(double min, double max);
    void SetFrequencyMinMax(const MinMax& bounds);

protected:
    explicit FrequencyHolder(const QString& objectName);
    FrequencyHolder(const FrequencyHolder& other);
    FrequencyHolder& operator=(const FrequencyHolder& other);
    ~FrequencyHolder() override;

    /// "Frequency", the name of the frequency's element.
    static QString FrequencyName();

    ValueMinMax m_frequency;
};

} // namespace REPORTGENERATOR

#endif
