#ifndef REPORTGENERATOR_REPORTMODELS_EXPORT_H
#define REPORTGENERATOR_REPORTMODELS_EXPORT_H

#include <QtCore/qglobal.h>

/// Marks what the shared library exports; everything else stays hidden. What is private of a class that is marked
/// stays so by `Q_DECL_HIDDEN`, but on Windows.
#if defined(REPORTMODELS_LIBRARY)
#    define REPORTMODELS_EXPORT Q_DECL_EXPORT
#else
#    define REPORTMODELS_EXPORT Q_DECL_IMPORT
#endif

#endif
