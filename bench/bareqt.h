#ifndef BENCH_BAREQT_H
#define BENCH_BAREQT_H

#include "plainreport.h"

#include <QtCore/QByteArray>

QT_BEGIN_NAMESPACE
class QDataStream;
class QXmlStreamReader;
class QXmlStreamWriter;
QT_END_NAMESPACE

// The code that a user would write who has no library: plain values, the Qt classes, and one line for each
// field.

namespace Bench::BareQt {

void WriteXml(QXmlStreamWriter& writer, const PlainReport& report);

/// Reads the element that the reader comes to next.
PlainReport ReadXml(QXmlStreamReader& reader);

void WritePlain(QDataStream& stream, const PlainReport& report);
PlainReport ReadPlain(QDataStream& stream);

void WriteCompressed(QDataStream& stream, const PlainReport& report, int level);
PlainReport ReadCompressed(QDataStream& stream);

/// Root tag, length, elements.
void WriteTagged(QDataStream& stream, const PlainReport& report);
PlainReport ReadTagged(QDataStream& stream);

void WriteRaw(QDataStream& stream, const PlainReport& report);
PlainReport ReadRaw(QDataStream& stream);

} // namespace Bench::BareQt

#endif
