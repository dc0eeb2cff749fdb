#ifndef WENDBASE_EXPORT_H
#define WENDBASE_EXPORT_H

#include <QtCore/qglobal.h>

/// Marks what the shared library exports; everything else stays hidden.
#if defined(WENDBASE_LIBRARY)
#    define WENDBASE_EXPORT Q_DECL_EXPORT
#else
#    define WENDBASE_EXPORT Q_DECL_IMPORT
#endif

#endif
