#include "capsules.h"

namespace py = pybind11;

namespace ReportColumns {

namespace {

constexpr char SCHEMA[] = "arrow_schema";
constexpr char ARRAY[] = "arrow_array";
constexpr char STREAM[] = "arrow_array_stream";

constexpr char GIVES_ARRAY[] = "__arrow_c_array__";
constexpr char GIVES_STREAM[] = "__arrow_c_stream__";

/// A capsule that nobody has taken anything out of releases what it holds.
template <class Structure, const char* Name>
void Destroy(PyObject* capsule)
{
    auto* const held = static_cast<Structure*>(PyCapsule_GetPointer(capsule, Name));
    if (held && held->release)
        held->release(held);
    delete held;
}

template <class Structure, const char* Name>
py::capsule CapsuleOf(std::unique_ptr<Structure> held)
{
    PyObject* const capsule = PyCapsule_New(held.get(), Name, Destroy<Structure, Name>);
    if (!capsule) {
        held->release(held.get());
        throw py::error_already_set();
    }
    held.release();
    return py::reinterpret_steal<py::capsule>(capsule);
}

template <class Structure>
Owner<Structure> TakeOutOf(const py::handle& capsule, const char* name)
{
    auto* const held = static_cast<Structure*>(PyCapsule_GetPointer(capsule.ptr(), name));
    if (!held)
        throw py::error_already_set();
    if (!held->release)
        throw py::value_error("what the capsule held has been taken already");
    return Owner<Structure>(*held);
}

} // namespace

py::capsule SchemaCapsule(const ColumnType& type)
{
    auto schema = std::make_unique<ArrowSchema>();
    ExportSchema(type, schema.get());
    return CapsuleOf<ArrowSchema, SCHEMA>(std::move(schema));
}

py::capsule ArrayCapsule(const SharedValues& values)
{
    auto array = std::make_unique<ArrowArray>();
    ExportArray(values, array.get());
    return CapsuleOf<ArrowArray, ARRAY>(std::move(array));
}

py::capsule StreamCapsule(std::unique_ptr<Source> source)
{
    auto stream = std::make_unique<ArrowArrayStream>();
    ExportStream(std::move(source), stream.get());
    return CapsuleOf<ArrowArrayStream, STREAM>(std::move(stream));
}

bool GivesArray(const py::object& object)
{
    return py::hasattr(object, GIVES_ARRAY);
}

bool GivesStream(const py::object& object)
{
    return py::hasattr(object, GIVES_STREAM);
}

GivenArray TakeArray(const py::object& object)
{
    const py::tuple capsules = object.attr(GIVES_ARRAY)();
    return {TakeOutOf<ArrowSchema>(capsules[0], SCHEMA), TakeOutOf<ArrowArray>(capsules[1], ARRAY)};
}

OwnedStream TakeStream(const py::object& object)
{
    const py::object capsule = object.attr(GIVES_STREAM)();
    return TakeOutOf<ArrowArrayStream>(capsule, STREAM);
}

} // namespace ReportColumns
