#ifndef BENCH_FLOOR_H
#define BENCH_FLOOR_H

#include "plainreport.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

// What the machine can do with the forms: one buffer of sufficient size, filled and walked through once, for
// reports of this shape and with numbers of this many decimals only. What stands in the buffer is compared
// with what has to stand there, and that is all.

namespace Bench::Floor {

QString XmlText(const PlainReport& report);
QByteArray XmlBytes(const PlainReport& report);
PlainReport FromXml(const QString& text);
PlainReport FromXml(const QByteArray& bytes);

QByteArray Plain(const PlainReport& report);
PlainReport FromPlain(const QByteArray& bytes);

/// Root tag, length, elements.
QByteArray Tagged(const PlainReport& report);
PlainReport FromTagged(const QByteArray& bytes);

/// Marker, name and the body `tagged`, packed by zlib.
QByteArray Packed(const QByteArray& tagged, int level);
QByteArray Unpacked(const QByteArray& bytes);

QByteArray Raw(const PlainReport& report);
PlainReport FromRaw(const QByteArray& bytes);

} // namespace Bench::Floor

#endif
