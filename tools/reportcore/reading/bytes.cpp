#include <reportcore/reading/bytes.h>

#include <algorithm>

namespace ReportCore {

namespace {

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
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
    const char* const point = std::find_if_not(begin, end, IsDigit);
    if (point == begin || point == end)
        return point != begin;
    return *point == '.' && point + 1 != end && std::all_of(point + 1, end, IsDigit);
}

} // namespace ReportCore
