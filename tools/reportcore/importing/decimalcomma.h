#ifndef REPORTCORE_IMPORTING_DECIMALCOMMA_H
#define REPORTCORE_IMPORTING_DECIMALCOMMA_H

#include <QtCore/QString>

namespace ReportCore {

/// The text of a number with a point in place of its only comma; any other text as it is.
QString WithDecimalPoint(const QString& text);

/// Whether the comma in the text of a number may stand before decimals as well as between thousands: "121,500".
bool IsAmbiguous(const QString& text);

} // namespace ReportCore

#endif
