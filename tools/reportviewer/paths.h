#ifndef REPORTVIEWER_PATHS_H
#define REPORTVIEWER_PATHS_H

#include <reportcore/fieldpath.h>

#include <QtCore/QString>

namespace ReportViewer {

/// The path that a text stands for; the report itself where it stands for none.
ReportCore::FieldPath ParsedPath(const QString& text);

/// The path of the list of an area's points; with an index, of one of them.
ReportCore::FieldPath PathOfPoints(int index = ReportCore::FieldPath::WHOLE);

} // namespace ReportViewer

#endif
