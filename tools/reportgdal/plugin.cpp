#include <reportgdal/driver.h>

#include <QtCore/QtGlobal>

/// What GDAL calls when it has loaded ogr_REPORTS.
extern "C" Q_DECL_EXPORT void RegisterOGRREPORTS()
{
    ReportGdal::RegisterDriver();
}
