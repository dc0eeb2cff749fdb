#ifndef REPORTCORE_LINTING_LINTING_H
#define REPORTCORE_LINTING_LINTING_H

#include <reportcore/lint.h>

#include <reportgenerator/reflection/fieldpath.h>

namespace ReportCore {

// The places where `FindLint` looks.

/// What stands oddly in XML: names, numbers, entities, what comes twice.
Problems FindXmlLint(const QByteArray& bytes);

/// The same in a binary form.
Problems FindBinaryLint(const QByteArray& bytes, bool isBinaryFile);

/// What stands behind compressed data where they are thought to end, in one that can be uncompressed.
Problems FindDataBehind(const QByteArray& bytes, bool isBinaryFile);

/// What the report's fields say, in whichever form.
Problems FindFieldLint(const QByteArray& bytes, const ReportFile& file, Look look);

// What they have in common

bool IsFiniteNumber(const QString& text);

/// That the text at the path is none.
Problem NoNumber(const FilePlace& place, const FieldPath& path, const QString& text);

} // namespace ReportCore

#endif
