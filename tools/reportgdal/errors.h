#ifndef REPORTGDAL_ERRORS_H
#define REPORTGDAL_ERRORS_H

#include <reportcore/files.h>

#include <QtCore/QString>

#include <utility>

namespace ReportGdal {

// What goes wrong on GDAL's way of telling it.

void Fail(const QString& text);
void Warn(const QString& text);

/// "FILE: TEXT".
QString LineOf(const ReportCore::UnusableFile& unusable);

/// Tells of the exception that is being handled.
void FailWithException() noexcept;

/// What the action returns, or `failed` where it throws. GDAL knows no exceptions, so none gets out of what it calls.
template <class Result, class Action>
Result Guarded(Result failed, Action&& action) noexcept
{
    try {
        return std::forward<Action>(action)();
    } catch (...) {
        FailWithException();
        return failed;
    }
}

} // namespace ReportGdal

#endif
