#include "workload.h"

namespace Bench {

QString OtherSettings(int size)
{
    const QString entry = QStringLiteral("    <ScanParameter Version=\"1.0\">\n"
                                         "        <FrequencyRange>\n"
                                         "            <StartFrequency>88000000.00</StartFrequency>\n"
                                         "            <StopFrequency>108000000.00</StopFrequency>\n"
                                         "        </FrequencyRange>\n"
                                         "        <FrequencyStep>12.50</FrequencyStep>\n"
                                         "    </ScanParameter>\n");
    QString settings = QStringLiteral("<Settings>\n");
    while (settings.size() < size)
        settings += entry;
    return settings + QStringLiteral("</Settings>\n");
}

} // namespace Bench
