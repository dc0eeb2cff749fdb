#ifndef TESTS_REPORTTOOL_SAMPLES_H
#define TESTS_REPORTTOOL_SAMPLES_H

// One report in all its forms, from the golden vectors: a frequency with all fields, an IF bandwidth, and an
// area with two points and a script identifier. And what is needed to make reports that are not as they
// should be.

#include "support/bytes.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <string_view>

namespace ToolTest {

QByteArray FullXml();
QByteArray FullPlain();
QByteArray FullCompressed();

/// The representation behind its size.
QByteArray InFile(const QByteArray& representation);

/// The body of the full report: root tag, root length and elements.
QByteArray FullBody();

/// A plain representation of a report with these elements.
QByteArray Plain(const Support::Bytes& elements);

/// An area of version 1.0 with this name and one point, in XML and as an element.
QByteArray NamedAreaXml(const char* name);
Support::Bytes NamedArea(std::string_view name);

} // namespace ToolTest

#endif
