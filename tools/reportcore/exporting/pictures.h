#ifndef REPORTCORE_EXPORTING_PICTURES_H
#define REPORTCORE_EXPORTING_PICTURES_H

#include <reportcore/exporting/exporter.h>

#include <memory>

namespace ReportCore {

/// Of a picture, in pixels.
struct PictureSize
{
    int width = 1200;
    int height = 900;
};

using MakePicture = std::unique_ptr<Exporter> (*)(PictureSize size);

/// What draws pictures. Null for what this program cannot draw: Qt's painter takes time to load, so a program of its own
/// has these.
struct Painters
{
    MakePicture svg = nullptr;
    MakePicture png = nullptr;
};

/// Those of this program: none unless it has said which.
const Painters& OwnPainters();
void SetOwnPainters(const Painters& painters);

} // namespace ReportCore

#endif
