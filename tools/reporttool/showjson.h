#ifndef REPORTTOOL_SHOWJSON_H
#define REPORTTOOL_SHOWJSON_H

#include <reportcore/reportfile.h>
#include <reportcore/reportjson.h>

#include <QtCore/QJsonObject>

namespace ReportTool {

/// Of one of several reports in a document: its number there.
constexpr char REPORT_KEY[] = "report";

/// What a file holds. Every key is always there; what is not set is null.
QJsonObject ToJson(const QString& name, const ReportCore::ReportFile& file,
                   ReportCore::JsonPoints points = ReportCore::JsonPoints::All);

/// The same keys for a file that cannot be read.
QJsonObject ToJson(const QString& name, const QString& error);

/// Takes form, name and report from such JSON. Throws `ReportCore::JsonError` for JSON that isn't such, for a file that
/// could not be read and for a report that was not valid.
void FromJson(const QJsonObject& json, ReportCore::ReportFile& file);

} // namespace ReportTool

#endif
