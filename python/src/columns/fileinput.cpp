#include "fileinput.h"

#include <reportcore/files.h>

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace ReportColumns {

QByteArray ReadFile(const std::string& path)
{
    const std::filesystem::path name = std::filesystem::u8path(path);
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(name, error);
    if (error)
        throw UnreadableFile{error.message()};
    if (size > static_cast<std::uintmax_t>(ReportCore::Ceiling()))
        throw UnreadableFile{"holds more than " + std::to_string(ReportCore::Ceiling()) + " bytes"};
    std::ifstream file(name, std::ios::binary);
    if (!file)
        throw UnreadableFile{std::generic_category().message(errno)};
    QByteArray bytes(static_cast<int>(size), Qt::Uninitialized);
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    if (file.bad())
        throw UnreadableFile{std::generic_category().message(errno)};
    bytes.truncate(static_cast<int>(file.gcount()));
    return bytes;
}

} // namespace ReportColumns
