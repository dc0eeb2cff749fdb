#ifndef REPORTCORE_LOSSES_H
#define REPORTCORE_LOSSES_H

#include <reportcore/problem.h>
#include <reportcore/reportfile.h>

#include <QtCore/QByteArray>

namespace ReportCore {

// What a file says and its report doesn't, so that it is gone when the report is written in the file's place. Their names:

/// A value or an object that reading has not taken as it stands in the file.
constexpr char LOST_VALUE[] = "LostValue";

/// What stands behind the place where reading broke off.
constexpr char LOST_REST[] = "LostRest";

/// An element that no report has; in XML also one around the report or beside it.
constexpr char UNKNOWN_ELEMENT[] = "UnknownElement";
constexpr char SURROUNDING_ELEMENT[] = "SurroundingElement";
constexpr char UNKNOWN_ATTRIBUTE[] = "UnknownAttribute";

/// A text that belongs to no field, or of which only a later piece was read.
constexpr char UNKNOWN_TEXT[] = "UnknownText";

/// Carriage returns in a text, which XML's line ends turn into line feeds.
constexpr char CARRIAGE_RETURNS[] = "CarriageReturns";

/// All that would be lost by writing the report that was read from these bytes again, in whichever form, in the order in
/// which it stands there. Besides the names above there are those of problems and lint that say so themselves:
/// UnknownForm, NoReport, DamagedData, TooLarge, LengthMismatch, TrailingData, SecondReport, UnresolvedEntity.
///
/// The text of each is a phrase for people that names it: "element 'Antenna'", "frequency.value "6,02" becomes 0",
/// "the area from offset 0x122 on". The place is that of what is lost; the path is that of its field or object, or of the
/// object that holds it. So a change that sets what is at the path has taken care of a LostValue.
///
/// Comments, declarations and processing instructions, blanks between elements, and digits behind those that a form keeps
/// are no losses.
Problems FindLosses(const QByteArray& bytes, const ReportFile& file);

} // namespace ReportCore

#endif
