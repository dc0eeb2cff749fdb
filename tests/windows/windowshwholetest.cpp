// All of windows.h before the library's headers, in a program that doesn't use the CMake target: ERROR, interface, near
// and far are macros then. So are min, max and small with the compilers of others; here they are made so, behind the
// headers of Qt and of C++, which have their own ways with them.

// clang-format off
#undef NOGDI
#include <windows.h>
#include <QtCore/QtCore>
#include <algorithm>
#include <functional>
#include <memory>
#include <new>
#include <tuple>
#include <type_traits>

#define min(a, b) (((a) < (b)) ? (a) : (b))
#define max(a, b) (((a) > (b)) ? (a) : (b))
#define small char

#if !defined(ERROR) || !defined(interface) || !defined(near) || !defined(far) || !defined(GetObject)
#    error "windows.h doesn't define what this file is about"
#endif

#include <publicheaders.h>

#if !defined(min) || !defined(max)
#    error "a header of the library took the program's macros away"
#endif
#undef min
#undef max
#undef small

#include "usingheaders.h"
// clang-format on

TEST(WindowsHeader, WithAllItsMacrosBeforeThoseOfTheLibraryLeavesTheirNamesUsable)
{
    UseTheLibrary();
}
