#ifndef REPORTTOOL_DUMP_H
#define REPORTTOOL_DUMP_H

#include <QtCore/QByteArray>

namespace ReportTool {

class TextOutput;

/// Writes each field of a binary form on a line of its own: offset, bytes and meaning. What belongs to a
/// length or count is indented below it; a field that is not as it should be bears a "!" behind its kind.
/// Compressed data are followed by the fields that they hold, with offsets of their own.
void Dump(const QByteArray& bytes, bool isBinaryFile, TextOutput& output);

} // namespace ReportTool

#endif
