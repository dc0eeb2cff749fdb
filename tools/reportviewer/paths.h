#ifndef REPORTVIEWER_PATHS_H
#define REPORTVIEWER_PATHS_H

#include <reportcore/fieldpath.h>

#include <QtCore/QString>

namespace ReportViewer {

/// The path that a text stands for; the report itself where it stands for none.
ReportCore::FieldPath ParsedPath(const QString& text);

} // namespace ReportViewer

#endif
