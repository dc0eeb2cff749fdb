#ifndef REPORTCORE_READING_BYTES_H
#define REPORTCORE_READING_BYTES_H

#include <cstddef>
#include <cstring>

namespace ReportCore {

/// The first such byte, or `end`. Qt looks at one byte after the other; this is many times as fast in large files.
inline const char* FindByte(const char* begin, const char* end, char byte)
{
    const void* const found = std::memchr(begin, byte, static_cast<std::size_t>(end - begin));
    return found ? static_cast<const char*>(found) : end;
}

} // namespace ReportCore

#endif
