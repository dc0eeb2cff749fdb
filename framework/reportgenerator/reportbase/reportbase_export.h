#ifndef REPORTGENERATOR_REPORTBASE_EXPORT_H
#define REPORTGENERATOR_REPORTBASE_EXPORT_H

#include <QtCore/qglobal.h>

// A program that is compiled with another Qt than the library that it links would load both.
#if defined(REPORTGENERATOR_QT_MAJOR) && defined(QT_VERSION_MAJOR)
#    if REPORTGENERATOR_QT_MAJOR != QT_VERSION_MAJOR
#        error "The report library is for another Qt: ReportGenerator for Qt 5, ReportGeneratorQt6 for Qt 6"
#    endif
#endif

/// Marks what the shared library exports; everything else stays hidden. What is private of a class that is marked
/// stays so by `Q_DECL_HIDDEN`, but on Windows.
#if defined(REPORTBASE_LIBRARY)
#    define REPORTBASE_EXPORT Q_DECL_EXPORT
#else
#    define REPORTBASE_EXPORT Q_DECL_IMPORT
#endif

#endif
