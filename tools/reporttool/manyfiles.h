#ifndef REPORTTOOL_MANYFILES_H
#define REPORTTOOL_MANYFILES_H

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <vector>

namespace ReportTool {

class Console;

/// Does something with one file and returns the exit code. It may be called in any thread, for several files at once;
/// what it writes to its console comes out in the order of the files.
using FileWork = std::function<int(const QString& name, Console& console)>;

/// Does the work for each of the files, on all processors, with a progress bar where errors go to a terminal. Returns
/// the exit codes in the order of the files. Ctrl-C ends it after the files that have been begun: then there are fewer
/// of them, which is complained about.
std::vector<int> DoForEach(const QStringList& names, Console& console, const FileWork& work);

/// The greatest of the exit codes; that of a file that cannot be read if there are fewer than there are files.
int ExitCodeOf(const std::vector<int>& exitCodes, const QStringList& names);

} // namespace ReportTool

#endif
