#ifndef REPORTTOOL_SHOWJSON_H
#define REPORTTOOL_SHOWJSON_H

#include <reportcore/reportfile.h>

#include <QtCore/QJsonObject>

namespace ReportTool {

/// What a file holds, all coordinates included. Every key is always there; what is not set is null.
QJsonObject ToJson(const QString& name, const ReportCore::ReportFile& file);

/// The same keys for a file that cannot be read.
QJsonObject ToJson(const QString& name, const QString& error);

} // namespace ReportTool

#endif
