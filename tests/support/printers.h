#ifndef TESTS_SUPPORT_PRINTERS_H
#define TESTS_SUPPORT_PRINTERS_H

// How GoogleTest shows Qt's types in a failure. Without these it would print a QString as a list of code
// units. Every test file gets them through support/expect.h or support/bytes.h; include one of the two in
// each test file, also in those that only use EXPECT_EQ on strings.

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <ostream>

QT_BEGIN_NAMESPACE

/// The text in quotes with escapes for what can't be seen; "null" for a null string, so that it differs from
/// "".
void PrintTo(const QString& text, std::ostream* stream);

/// The same for bytes; those outside of printable ASCII as \xNN.
void PrintTo(const QByteArray& bytes, std::ostream* stream);

QT_END_NAMESPACE

#endif
