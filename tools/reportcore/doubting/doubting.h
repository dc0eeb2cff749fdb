#ifndef REPORTCORE_DOUBTING_DOUBTING_H
#define REPORTCORE_DOUBTING_DOUBTING_H

#include <reportcore/doubts.h>

#include <reportgenerator/reflection/fieldpath.h>

namespace ReportCore {

// The places where `FindDoubts` looks.

/// What stands oddly in XML: names, numbers, entities, what comes twice.
Problems FindXmlDoubts(const QByteArray& bytes);

/// The same in a binary form.
Problems FindBinaryDoubts(const QByteArray& bytes, bool isBinaryFile);

/// What stands behind compressed data where they are thought to end, in one that can be uncompressed.
Problems FindDataBehind(const QByteArray& bytes, bool isBinaryFile);

/// What the report's fields say, in whichever form.
Problems FindFieldDoubts(const QByteArray& bytes, const ReportFile& file, Look look);

// What they have in common

bool IsFiniteNumber(const QString& text);

/// That the text at the path is none.
Problem NoNumber(const FilePlace& place, const FieldPath& path, const QString& text);

} // namespace ReportCore

#endif
