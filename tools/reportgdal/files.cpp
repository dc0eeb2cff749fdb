#include <reportgdal/files.h>

#include <reportcore/files.h>

#include <cpl_conv.h>
#include <cpl_multiproc.h>
#include <cpl_string.h>
#include <cpl_vsi.h>
#include <cpl_vsi_error.h>

#include <algorithm>
#include <memory>

namespace ReportGdal {

using ReportCore::UnusableFile;

namespace {

using Index = decltype(QByteArray().size());

struct CloseFile
{
    void operator()(VSILFILE* file) const { VSIFCloseL(file); }
};
using File = std::unique_ptr<VSILFILE, CloseFile>;

struct CloseFolder
{
    void operator()(VSIDIR* folder) const { VSICloseDir(folder); }
};

[[noreturn]] void Refuse(const std::string& name, const QString& text)
{
    throw UnusableFile{TextOf(name), text};
}

File Open(const std::string& name, const char* mode)
{
    VSIErrorReset();
    File file(VSIFOpenExL(name.c_str(), mode, TRUE));
    if (!file) {
        const QString reason = QString::fromUtf8(VSIGetLastErrorMsg());
        Refuse(name, reason.isEmpty() ? QStringLiteral("cannot be opened") : reason);
    }
    return file;
}

/// Reads so many bytes more, or those that are left. Returns whether there may be others: packed files know their end
/// only when they are read once more.
bool ReadPiece(VSILFILE* file, Index size, QByteArray& bytes, const std::string& name)
{
    const Index before = bytes.size();
    bytes.resize(before + size);
    const auto count =
        static_cast<Index>(VSIFReadL(bytes.data() + before, 1, static_cast<size_t>(size), file));
    bytes.resize(before + count);
    const bool isAtEnd = VSIFEofL(file) != 0;
    if (count == 0 && !isAtEnd)
        Refuse(name, QStringLiteral("cannot be read to its end"));
    return !isAtEnd;
}

/// A link leads to a file or a folder, which the folder that it stands in may not know.
bool LeadsToFile(const VSIDIREntry& entry, const std::string& name)
{
    if (entry.bModeKnown && VSI_ISREG(entry.nMode))
        return true;
    if (entry.bModeKnown && VSI_ISDIR(entry.nMode))
        return false;
    VSIStatBufL state;
    return VSIStatExL(name.c_str(), &state, VSI_STAT_EXISTS_FLAG | VSI_STAT_NATURE_FLAG) == 0 &&
           VSI_ISREG(state.st_mode);
}

/// What stands in a folder comes where the folder itself would.
bool ComesBefore(const std::string& left, const std::string& right)
{
    return std::lexicographical_compare(
        left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
            const auto rank = [](char character) {
                return character == '/' ? 0 : static_cast<int>(static_cast<unsigned char>(character)) + 1;
            };
            return rank(a) < rank(b);
        });
}

} // namespace

QString TextOf(const std::string& name)
{
    return QString::fromUtf8(name.data(), static_cast<Index>(name.size()));
}

bool IsFolder(const std::string& name)
{
    VSIStatBufL state;
    return VSIStatExL(name.c_str(), &state, VSI_STAT_EXISTS_FLAG | VSI_STAT_NATURE_FLAG) == 0 &&
           VSI_ISDIR(state.st_mode);
}

std::string NameIn(const std::string& folder, const std::string& name)
{
    return !folder.empty() && folder.back() == '/' ? folder + name : folder + '/' + name;
}

void ForEachFile(const std::string& folder, bool isRecursive, const TakeName& take)
{
    constexpr int WITHOUT_END = -1;
    const char* const options[] = {"NAME_AND_TYPE_ONLY=YES", nullptr};
    const std::unique_ptr<VSIDIR, CloseFolder> entries(
        VSIOpenDir(folder.c_str(), isRecursive ? WITHOUT_END : 0, options));
    if (!entries)
        Refuse(folder, QStringLiteral("the folder cannot be read"));
    while (const VSIDIREntry* const entry = VSIGetNextDirEntry(entries.get())) {
        const std::string name = NameIn(folder, entry->pszName);
        if (LeadsToFile(*entry, name) && !take(name))
            return;
    }
}

std::vector<std::string> FilesOf(const std::string& folder, bool isRecursive)
{
    std::vector<std::string> files;
    ForEachFile(folder, isRecursive, [&files](const std::string& name) {
        files.push_back(name);
        return true;
    });
    std::sort(files.begin(), files.end(), ComesBefore);
    return files;
}

QByteArray ReadBytes(const std::string& name)
{
    constexpr Index FIRST_PIECE = 16 * 1024;
    const File file = Open(name, "rb");
    QByteArray bytes;
    while (ReadPiece(file.get(), std::max(FIRST_PIECE, bytes.size()), bytes, name)) {
        if (bytes.size() > ReportCore::Ceiling())
            break;
    }
    if (bytes.size() > ReportCore::Ceiling())
        Refuse(name, QStringLiteral("holds more than %1 bytes").arg(ReportCore::Ceiling()));
    return bytes;
}

QByteArray ReadBeginning(const std::string& name, int size)
{
    const File file = Open(name, "rb");
    QByteArray bytes;
    ReadPiece(file.get(), size, bytes, name);
    return bytes;
}

void WriteBytes(const std::string& name, const QByteArray& bytes)
{
    const std::string beside = name + '.' + std::to_string(CPLGetPID()) + ".part";
    File file = Open(beside, "wb");
    const auto size = static_cast<size_t>(bytes.size());
    const bool isWritten = VSIFWriteL(bytes.constData(), 1, size, file.get()) == size;
    const bool isClosed = VSIFCloseL(file.release()) == 0;
    if (isWritten && isClosed && VSIRename(beside.c_str(), name.c_str()) == 0)
        return;
    VSIUnlink(beside.c_str());
    Refuse(name, QStringLiteral("cannot be written"));
}

} // namespace ReportGdal
