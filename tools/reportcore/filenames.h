#ifndef REPORTCORE_FILENAMES_H
#define REPORTCORE_FILENAMES_H

namespace ReportCore {

/// Has Qt keep the bytes of file names that are no UTF-8, where it can be told how to read them; elsewhere such files are
/// not found. Printable texts show such a byte as "\udcfc". Called once, before Qt is told the arguments.
void KeepOddFileNames();

} // namespace ReportCore

#endif
