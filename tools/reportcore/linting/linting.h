#ifndef REPORTCORE_LINTING_LINTING_H
#define REPORTCORE_LINTING_LINTING_H

#include <reportcore/lint.h>

namespace ReportCore {

// The places where `FindLint` looks.

/// What stands oddly in the bytes of either form: names, numbers, entities, what comes twice.
Problems FindDocumentLint(const QByteArray& bytes, const FileForm& form);

/// What stands behind compressed data where they are thought to end, in one that can be uncompressed.
Problems FindDataBehind(const QByteArray& bytes, bool isBinaryFile);

/// What the report's fields say, in whichever form.
Problems FindFieldLint(const QByteArray& bytes, const ReportFile& file, Look look);

} // namespace ReportCore

#endif
