#ifndef REPORTPICTURE_PAINTERS_H
#define REPORTPICTURE_PAINTERS_H

#include <reportcore/exporting/pictures.h>

namespace ReportPicture {

/// Those that this build has.
ReportCore::Painters AllPainters();

} // namespace ReportPicture

#endif
