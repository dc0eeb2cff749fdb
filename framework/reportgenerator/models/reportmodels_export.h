#ifndef REPORTGENERATOR_REPORTMODELS_EXPORT_H
#define REPORTGENERATOR_REPORTMODELS_EXPORT_H

#include <QtCore/qglobal.h>

/// Marks what the shared library exports; everything else stays hidden. Of a class that is marked, what is
/// public or protected is exported, by its name in exports.txt.
#if defined(REPORTMODELS_LIBRARY) && defined(__MINGW32__)
// The linker exports by exports.txt.
#    define REPORTMODELS_EXPORT
#elif defined(REPORTMODELS_LIBRARY)
#    define REPORTMODELS_EXPORT Q_DECL_EXPORT
#else
#    define REPORTMODELS_EXPORT Q_DECL_IMPORT
#endif

#endif
