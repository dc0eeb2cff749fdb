#ifndef REPORTGENERATOR_REPORTBASE_EXPORT_H
#define REPORTGENERATOR_REPORTBASE_EXPORT_H

#include <QtCore/qglobal.h>

/// Marks what the shared library exports; everything else stays hidden.
#if defined(REPORTBASE_LIBRARY)
#    define REPORTBASE_EXPORT Q_DECL_EXPORT
#else
#    define REPORTBASE_EXPORT Q_DECL_IMPORT
#endif

#endif
