#ifndef REPORTGENERATOR_REFLECTION_TEXTS_H
#define REPORTGENERATOR_REFLECTION_TEXTS_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace ReportCore {

/// The text with escapes in place of what would end a line or change how a terminal shows the rest of it.
QString Printable(const QString& text);

/// The printable text in double quotes, in which quotes and backslashes are escaped too.
QString Quoted(const QString& text);

/// The shortest text in fixed notation that reads back as the same number, whatever the locale; "nan", "inf"
/// and "-inf" for what is no number.
QString NumberText(double number);

/// The same with a fraction always, "100.0", so that who guesses a type from it comes to the same one each time.
QString FractionText(double number);

/// The text with U+FFFD for each half of a surrogate pair that has lost the other one: UTF-8 has no bytes for it.
QString WellFormed(QString text);

/// In UTF-8 that every reader takes.
QByteArray ToUtf8(const QString& text);

} // namespace ReportCore

#endif
