// windows.h before the library's headers, as the CMake target has it included: without its graphics part, which has a macro
// ERROR.

// clang-format off
#include <windows.h>

#include <publicheaders.h>

#include "usingheaders.h"
// clang-format on

#ifdef ERROR
#    error "ERROR is a macro, and NOGDI is said to keep it from being one"
#endif

TEST(WindowsHeader, BeforeThoseOfTheLibraryLeavesTheirNamesUsable)
{
    UseTheLibrary();
}
