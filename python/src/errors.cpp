#include "errors.h"

#include "object.h"
#include "values.h"

#include <reportcore/files.h>
#include <reportcore/reportwriting.h>

#include <reportgenerator/reportbase/reportexception.h>

namespace Python {

namespace py = pybind11;

namespace {

/// Made by the package, which has the classes of errors.
py::object NewError(const QString& name, const QString& text, bool isRefusal)
{
    const py::object make = py::module_::import("reportgenerator._errors").attr("_make");
    return make(ToPython(name), ToPython(text), isRefusal);
}

void SetError(const py::object& error)
{
    PyErr_SetObject(reinterpret_cast<PyObject*>(Py_TYPE(error.ptr())), error.ptr());
}

void SetError(const ReportException& exception)
{
    SetError(NewError(exception.GetErrorName(), exception.GetErrorText(), false));
}

} // namespace

void RegisterErrors()
{
    py::register_exception_translator([](std::exception_ptr thrown) {
        try {
            if (thrown)
                std::rethrow_exception(thrown);
        } catch (const ReportException& exception) {
            SetError(exception);
        } catch (const ReportCore::NotWritten& refused) {
            SetError(NewError(QStringLiteral("NotWritten"), refused.text, false));
        } catch (const ReportCore::UnusableFile& unusable) {
            SetError(py::module_::import("builtins").attr("OSError")(ToPython(unusable.text)));
        } catch (const PartIsGone&) {
            PyErr_SetString(PyExc_ReferenceError,
                            "the object that this was a part of doesn't have it any more");
        }
    });
}

void ThrowRefused(const ReportException& refused, const std::string& note)
{
    const py::object error = NewError(refused.GetErrorName(), refused.GetErrorText(), true);
    if (!note.empty())
        error.attr("add_note")(note);
    SetError(error);
    throw py::error_already_set();
}

void ThrowNamed(const QString& name, const QString& text)
{
    SetError(NewError(name, text, false));
    throw py::error_already_set();
}

void ThrowProblems(const ReportCore::Problems& problems)
{
    const ReportCore::Problem& first = problems.front();
    const py::object error = NewError(first.name, first.text, false);
    error.attr("problems") = py::tuple(ListOf(problems));
    SetError(error);
    throw py::error_already_set();
}

py::list ListOf(const ReportCore::Problems& problems)
{
    const py::object make = py::module_::import("reportgenerator._problems").attr("Problem");
    py::list list;
    for (const ReportCore::Problem& problem : problems) {
        const ReportCore::FilePlace& place = problem.place;
        py::dict facts;
        facts["name"] = ToPython(problem.name);
        facts["text"] = ToPython(problem.text);
        facts["path"] = ToPython(problem.path);
        facts["value"] = problem.value.isNull() ? py::object(py::none()) : ToPython(problem.value);
        facts["place"] = ToPython(ReportCore::PlaceCode(place));
        facts["line"] = place.line > 0 ? py::object(py::int_(place.line)) : py::object(py::none());
        facts["column"] = place.line > 0 ? py::object(py::int_(place.column)) : py::object(py::none());
        facts["offset"] = place.offset >= 0 ? py::object(py::int_(place.offset)) : py::object(py::none());
        facts["is_uncompressed"] = place.isUncompressed;
        facts["summary"] = ToPython(ReportCore::ProblemLine(problem));
        list.append(make(**facts));
    }
    return list;
}

} // namespace Python
