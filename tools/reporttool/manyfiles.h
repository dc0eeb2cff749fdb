#ifndef REPORTTOOL_MANYFILES_H
#define REPORTTOOL_MANYFILES_H

#include <QtCore/QtGlobal>

#include <any>
#include <functional>
#include <initializer_list>
#include <vector>

namespace ReportTool {

class Console;

/// Does something with the file of that number, counted from 0, and returns the exit code. It may be called in any thread,
/// for several files at once; what it writes to its console comes out in the order of the files.
using FileWork = std::function<int(int number, Console& console)>;

/// What one file has come to, where more than the exit code is needed.
struct FileResult
{
    int exitCode = 0;

    /// What the work hands over to whoever takes it, and about how many bytes that are.
    std::any result = {};
    qint64 size = 0;
};

using ResultWork = std::function<FileResult(int number, Console& console)>;
using TakeResult = std::function<void(std::any& result)>;

/// Does the work for each of `count` files, on all processors, with a progress bar where errors go to a terminal. Returns
/// the exit codes in the order of the files. Ctrl-C ends it after the files that have been begun: then there are fewer
/// of them, which is complained about.
std::vector<int> DoForEach(int count, Console& console, const FileWork& work);

/// The same. Results are taken in this thread, in the order of the files; of those that wait for others there are never
/// more than fit into memory.
std::vector<int> DoForEach(int count, Console& console, const ResultWork& work, const TakeResult& take);

/// The work, for files that don't keep others back: one that cannot be read or written is complained about.
ResultWork Complaining(ResultWork work);

/// The greatest of the exit codes; that of a file that cannot be read if there are fewer than there are files.
int ExitCodeOf(const std::vector<int>& exitCodes, int count);

/// How many files have come to this exit code.
qint64 CountOf(const std::vector<int>& exitCodes, int exitCode);

/// What has become of a part of the files, and of how many.
struct Share
{
    const char* what;
    qint64 count;
};

/// Sums the files up in a line to the errors: "4 files: 3 good, 1 invalid, 0 unreadable".
void Summarise(const std::vector<int>& exitCodes, std::initializer_list<Share> shares, Console& console);

} // namespace ReportTool

#endif
