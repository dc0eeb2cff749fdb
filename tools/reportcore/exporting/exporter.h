#ifndef REPORTCORE_EXPORTING_EXPORTER_H
#define REPORTCORE_EXPORTING_EXPORTER_H

#include <reportcore/exporting/feature.h>

#include <QtCore/QByteArray>

#include <functional>

namespace ReportCore {

/// A feature on its way into a file: what an exporter makes of it before its turn comes.
struct ExportPiece
{
    Feature feature; ///< of an exporter that can make nothing of it before
    QByteArray text;
};

/// Writes features one behind the other. The file is what `Begin`, `Add` for each feature, and `End` return, in this
/// order.
class Exporter
{
public:
    using Write = std::function<void(const QByteArray& bytes)>;

    Exporter() = default;
    virtual ~Exporter() = default;
    Exporter(const Exporter& other) = delete;
    Exporter& operator=(const Exporter& other) = delete;

    virtual QByteArray Begin() { return QByteArray(); }

    /// All that can be done in any thread and in any order.
    virtual ExportPiece Prepare(Feature feature) const;

    virtual QByteArray Add(const ExportPiece& piece) { return piece.text; }

    /// In as many pieces as it likes.
    virtual void End(const Write& write);
};

} // namespace ReportCore

#endif
