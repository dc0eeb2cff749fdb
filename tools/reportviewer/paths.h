#ifndef REPORTVIEWER_PATHS_H
#define REPORTVIEWER_PATHS_H

#include <reportgenerator/reflection/fieldpath.h>

#include <QtCore/QString>

namespace ReportViewer {

/// The path that a text stands for; the report itself where it stands for none.
ReportCore::FieldPath ParsedPath(const QString& text);

/// The path of what holds a field: "area.coordinate" holds "area.coordinate[17]", which holds its latitude. Empty for what
/// only the report holds.
QString ParentPath(const QString& path);

} // namespace ReportViewer

#endif
