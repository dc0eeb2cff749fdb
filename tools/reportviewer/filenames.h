#ifndef REPORTVIEWER_FILENAMES_H
#define REPORTVIEWER_FILENAMES_H

namespace ReportViewer {

/// Has Qt keep the bytes of file names that are no UTF-8, where it can be told how to read them; elsewhere such files are
/// not found. Called once, at the start.
void KeepOddFileNames();

} // namespace ReportViewer

#endif
