#ifndef REPORTVIEWER_UNREAD_H
#define REPORTVIEWER_UNREAD_H

#include <reportcore/problem.h>
#include <reportcore/walk.h>

#include <QtCore/QByteArray>

namespace ReportViewer {

// What a file says and its report doesn't, although nothing is wrong with either: it gets lost when the report takes the
// file's place.

/// Whether XML has elements, attributes or texts that aren't those of its first report. Comments, declarations and
/// processing instructions are passed over, since no report has any.
bool HasUnreadXml(const QByteArray& bytes);

/// Whether it is an element of a report's body that nobody knows.
bool IsUnreadElement(const ReportCore::WireField& field);

/// Whether one of them is about something that was read as something else, or not at all.
bool TellOfUnread(const ReportCore::Problems& doubts);

} // namespace ReportViewer

#endif
