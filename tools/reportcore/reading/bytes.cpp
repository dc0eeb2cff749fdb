#include <reportcore/reading/bytes.h>

namespace ReportCore {

namespace {

/// The first that is no digit, or `end`.
const char* BehindDigits(const char* begin, const char* end)
{
    while (begin != end && *begin >= '0' && *begin <= '9')
        ++begin;
    return begin;
}

} // namespace

bool IsPlainNumber(const char* begin, const char* end)
{
    // No text of this size is beyond the numbers that there are.
    constexpr std::ptrdiff_t LONGEST = 40;
    if (end - begin > LONGEST)
        return false;
    if (begin != end && *begin == '-')
        ++begin;
    const char* const point = BehindDigits(begin, end);
    if (point == begin || point == end)
        return point != begin;
    return *point == '.' && point + 1 != end && BehindDigits(point + 1, end) == end;
}

} // namespace ReportCore
