#ifndef REPORTCORE_EXPORTING_EXPORTER_H
#define REPORTCORE_EXPORTING_EXPORTER_H

#include <reportcore/exporting/feature.h>

#include <QtCore/QByteArray>

namespace ReportCore {

/// Writes features one behind the other. The file is what `Begin`, `Add` for each feature, and `End` return, in this
/// order.
class Exporter
{
public:
    Exporter() = default;
    virtual ~Exporter() = default;
    Exporter(const Exporter& other) = delete;
    Exporter& operator=(const Exporter& other) = delete;

    virtual QByteArray Begin() { return QByteArray(); }
    virtual QByteArray Add(const Feature& feature) = 0;
    virtual QByteArray End() { return QByteArray(); }
};

} // namespace ReportCore

#endif
