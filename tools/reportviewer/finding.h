#ifndef REPORTVIEWER_FINDING_H
#define REPORTVIEWER_FINDING_H

#include <reportviewer/fieldmap.h>

#include <QtCore/QAbstractItemModel>
#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace REPORTGENERATOR {
class ReportModel;
}

namespace ReportViewer {

// Where a text comes next, or before for a negative direction, whatever the case of its letters. What is looked through
// goes on at its other end, so that nothing is found only where the text doesn't come at all.

/// A field by its name, by its value or by its path. `from` is not looked at before all others.
QModelIndex FindField(const REPORTGENERATOR::ReportModel& model, const QString& wanted,
                      const QModelIndex& from, int direction);

/// Behind the beginning of the mark, or before it.
std::optional<Span> FindInText(const QString& text, const QString& wanted, qint64 from, int direction);

/// As binary forms write it: in UTF-8 or, big-endian, in UTF-16. Only letters of ASCII are found in either case.
std::optional<Span> FindInBytes(const QByteArray& bytes, const QString& wanted, qint64 from, int direction);

} // namespace ReportViewer

#endif
