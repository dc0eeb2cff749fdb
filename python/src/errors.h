#ifndef REPORTGENERATOR_PYTHON_ERRORS_H
#define REPORTGENERATOR_PYTHON_ERRORS_H

#include <reportcore/problem.h>

#include <pybind11/pybind11.h>

#include <QtCore/QString>

#include <string>

class ReportException;

namespace Python {

/// Has what the library throws arrive in Python as `ReportError` or what is below it.
void RegisterErrors();

/// A value that a setter refuses is a `ValueError` too, whatever its name is. A note tells more of where it stands.
[[noreturn]] void ThrowRefused(const ReportException& refused, const std::string& note = std::string());

/// Bytes or text that hold no good object: the first problem, with all of them.
[[noreturn]] void ThrowProblems(const ReportCore::Problems& problems);

/// An error that is no exception of the library, under a name of its own.
[[noreturn]] void ThrowNamed(const QString& name, const QString& text);

/// The problems as a list of `Problem`.
pybind11::list ListOf(const ReportCore::Problems& problems);

} // namespace Python

#endif
