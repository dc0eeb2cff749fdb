#ifndef REPORTGDAL_DRIVER_H
#define REPORTGDAL_DRIVER_H

namespace ReportGdal {

/// Makes reports known to GDAL. Further calls do nothing.
void RegisterDriver();

} // namespace ReportGdal

#endif
