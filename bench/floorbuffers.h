#ifndef BENCH_FLOORBUFFERS_H
#define BENCH_FLOORBUFFERS_H

#include "plainreport.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace Bench::Floor {

/// Where the characters stand. Out of line: where GCC sees how Qt finds the place behind an array's header,
/// it warns of bytes written over the end of the header.
char* CharactersOf(QByteArray& bytes);
char16_t* CharactersOf(QString& text);

/// Characters that a form takes at most: so many for each coordinate, and so many for the rest.
int Most(const PlainReport& report, int perCoordinate, int aroundCoordinates);

/// What `put` writes into a buffer that is large enough for any binary form of the report.
QByteArray Filled(const PlainReport& report, char* (*put)(char*, const PlainReport&));

} // namespace Bench::Floor

#endif
