#ifndef REPORTCORE_EXPORTING_FORMATS_H
#define REPORTCORE_EXPORTING_FORMATS_H

#include <reportcore/exporting/exporter.h>
#include <reportcore/exporting/pictures.h>

#include <memory>
#include <vector>

namespace ReportCore {

/// A format of other programs that reports are written in.
struct ExportFormat
{
    const char* name;
    const char* summary; ///< one line

    /// Null for a picture, which has a painter instead.
    std::unique_ptr<Exporter> (*make)();
    MakePicture Painters::*painter = nullptr;
    bool isText = true;
};

// One for each format, in a file of its own.

std::unique_ptr<Exporter> MakeGeoJsonExporter();
std::unique_ptr<Exporter> MakeGeoJsonLinesExporter();
std::unique_ptr<Exporter> MakeCsvExporter();
std::unique_ptr<Exporter> MakeCsvPointsExporter();
std::unique_ptr<Exporter> MakeWktExporter();
std::unique_ptr<Exporter> MakeKmlExporter();
std::unique_ptr<Exporter> MakeGpxExporter();

/// In the order in which the help names them.
const std::vector<ExportFormat>& ExportFormats();

} // namespace ReportCore

#endif
