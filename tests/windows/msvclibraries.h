// Included before everything when Clang reads the public headers by the rules of MSVC with the libraries of MinGW-w64,
// which know that compiler's rules only together with its libraries: what they would have GCC tell.
#ifndef TESTS_WINDOWS_MSVCLIBRARIES_H
#define TESTS_WINDOWS_MSVCLIBRARIES_H

#define __STRICT_ANSI__ 1

#define __GCC_ATOMIC_TEST_AND_SET_TRUEVAL 1
#define __GCC_ATOMIC_BOOL_LOCK_FREE 2
#define __GCC_ATOMIC_CHAR_LOCK_FREE 2
#define __GCC_ATOMIC_CHAR16_T_LOCK_FREE 2
#define __GCC_ATOMIC_CHAR32_T_LOCK_FREE 2
#define __GCC_ATOMIC_WCHAR_T_LOCK_FREE 2
#define __GCC_ATOMIC_SHORT_LOCK_FREE 2
#define __GCC_ATOMIC_INT_LOCK_FREE 2
#define __GCC_ATOMIC_LONG_LOCK_FREE 2
#define __GCC_ATOMIC_LLONG_LOCK_FREE 2
#define __GCC_ATOMIC_POINTER_LOCK_FREE 2

#include <_mingw.h>

#undef __MINGW_IMPORT
#define __MINGW_IMPORT extern __declspec(dllimport)
#undef __MINGW_ATTRIB_DEPRECATED
#define __MINGW_ATTRIB_DEPRECATED

#endif
