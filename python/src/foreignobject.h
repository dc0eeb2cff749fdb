#ifndef REPORTGENERATOR_PYTHON_FOREIGNOBJECT_H
#define REPORTGENERATOR_PYTHON_FOREIGNOBJECT_H

#include "values.h"

#include <reportgenerator/reportbase/irgobject.h>

#include <pybind11/pybind11.h>

namespace Python {

/// Asks the counterpart of a service in Python, which has the objects and whatever else belongs to programs. It is known here
/// only while one of its operations runs, and so is kept by that operation: nothing in C++ refers to an object of Python for
/// longer, so that Python's garbage collector sees all references.
class Counterpart
{
public:
    /// The time in which one of its operations runs; they may be nested.
    class Running
    {
    public:
        Running(Counterpart& counterpart, const pybind11::object& self)
            : m_counterpart(counterpart), m_before(counterpart.m_self)
        {
            m_counterpart.m_self = self;
        }
        ~Running() { m_counterpart.m_self = m_before; }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

    private:
        Counterpart& m_counterpart;
        pybind11::handle m_before;
    };

    /// Calls a method of it that returns a bool, with the interpreter's lock. What it raises passes out, through the library too.
    template <class... Arguments>
    bool Ask(const char* method, const Arguments&... arguments) const
    {
        const pybind11::gil_scoped_acquire held;
        return m_self.attr(method)(arguments...).template cast<bool>();
    }

    /// The same, but what is a `ReportError` is thrown as the library's own exception, which its services deal with.
    template <class... Arguments>
    bool AskAsLibrary(const char* method, const Arguments&... arguments) const
    {
        const pybind11::gil_scoped_acquire held;
        try {
            return Ask(method, arguments...);
        } catch (const pybind11::error_already_set& raised) {
            ThrowAsLibrary(raised);
            throw;
        }
    }

private:
    /// Does nothing for what is no `ReportError`.
    static void ThrowAsLibrary(const pybind11::error_already_set& raised);

    pybind11::handle m_self;
};

/// An object of Python as the library's services know it: by a number under which their counterpart finds it.
class ForeignObject : public REPORTGENERATOR::IRGObject
{
public:
    ForeignObject(const Counterpart& counterpart, long long key) : m_counterpart(counterpart), m_key(key) {}

    /// Bears the identity of `object`, whose id is the key.
    ForeignObject(const Counterpart& counterpart, const pybind11::object& object);

    long long Key() const { return m_key; }

    bool HasData() const override { return m_counterpart.AskAsLibrary("_has_data", m_key); }
    void Reset() override { m_counterpart.AskAsLibrary("_reset", m_key); }
    using IRGObject::Check;
    void Check() const override {}
    void GetXml(QXmlStreamWriter& /*writer*/) const override {}
    bool SetXmlString(const QString& xml, bool checkRoot) override;
    using IRGObject::LoadXml;
    bool LoadXml(QFile* file) override;

private:
    const Counterpart& m_counterpart;
    const long long m_key;
};

} // namespace Python

#endif
