#ifndef REPORTGENERATOR_QT_STANDARDEXCEPTION_H
#define REPORTGENERATOR_QT_STANDARDEXCEPTION_H

#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

// What the library throws is no `std::exception`. Code that knows these alone says nothing of it: a handler of
// `std::exception`, a test program, `std::terminate`.
//
//     try {
//         report = WithStandardExceptions([&] { return LoadReport(path); });
//     } catch (const std::exception& error) {
//         std::cerr << error.what() << '\n';  // "RGException: Can't open file for reading: 'today.xml'"
//     }

namespace REPORTGENERATOR {

/// A `ReportException` as a `std::exception`.
class StandardException : public std::runtime_error
{
public:
    /// Takes the exception that is being handled, which is `original`.
    explicit StandardException(const ReportException& original)
        : std::runtime_error(TextOf(original).toStdString()), m_original(std::current_exception())
    {
    }

    /// The exception as it was thrown, whatever its class.
    const std::exception_ptr& Original() const noexcept { return m_original; }

    /// Throws the exception as it was thrown.
    [[noreturn]] void RethrowOriginal() const { std::rethrow_exception(m_original); }

    /// Name and text of an exception: "OutOfRangeException: Area: Please set Name properly.", in UTF-8 what `what()`
    /// returns.
    static QString TextOf(const ReportException& original)
    {
        return original.GetErrorName() + QStringLiteral(": ") + original.GetErrorText();
    }

private:
    std::exception_ptr m_original;
};

/// Calls the function, and throws `StandardException` for each `ReportException`. Everything else passes as it is.
/// Returns what the function returns.
template <class Function>
std::invoke_result_t<Function> WithStandardExceptions(Function&& function)
{
    try {
        return std::forward<Function>(function)();
    } catch (const ReportException& exception) {
        throw StandardException(exception);
    }
}

namespace detail {

inline std::terminate_handler previousTerminateHandler = nullptr;

/// Prints a `ReportException` that nobody has caught, then leaves the rest to the handler that was there before.
[[noreturn]] inline void PrintAndTerminate() noexcept
{
    try {
        if (const std::exception_ptr current = std::current_exception())
            std::rethrow_exception(current);
    } catch (const ReportException& exception) {
        const QByteArray text = StandardException::TextOf(exception).toUtf8();
        std::fprintf(stderr, "terminate called after throwing %s\n", text.constData());
        std::fflush(stderr);
    } catch (...) { // NOLINT(bugprone-empty-catch): the handler from before knows it
    }
    if (previousTerminateHandler)
        previousTerminateHandler();
    std::abort();
}

} // namespace detail

/// Has `std::terminate` print name and text of a `ReportException` that nobody catches to standard error, in a line of
/// its own, and then go on as before. A second call does nothing. Not to be called by several threads at once.
inline void InstallTerminateHandler()
{
    const std::terminate_handler before = std::get_terminate();
    if (before == detail::PrintAndTerminate)
        return;
    detail::previousTerminateHandler = before;
    std::set_terminate(detail::PrintAndTerminate);
}

} // namespace REPORTGENERATOR

#endif
