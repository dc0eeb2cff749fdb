// A part of a program, compiled once for each version of Qt: USE_REPORT is its only function that others see.

#include <reportgenerator/reportbase/frequency.h>

#include <QString>

/// Whether the library can be used from here.
Q_DECL_EXPORT bool USE_REPORT()
{
    REPORTGENERATOR::Frequency frequency;
    frequency.SetValue(433920000.0);
    return frequency.GetXmlString().trimmed() == QString::fromLatin1("<Frequency>433920000.00</Frequency>");
}
