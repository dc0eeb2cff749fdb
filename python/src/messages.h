#ifndef REPORTGENERATOR_PYTHON_MESSAGES_H
#define REPORTGENERATOR_PYTHON_MESSAGES_H

#include <reportgenerator/reportbase/irgobject.h>

#include <memory>
#include <optional>

namespace Python {

class Collector;

/// What the least severe message is that Python's logger "reportgenerator" wants to have; nothing when it wants none. Asking
/// runs code in Python, so that objects are looked for afterwards.
std::optional<REPORTGENERATOR::LogLevel> WantedLevel();

/// What an object says while this lives, for Python's logger "reportgenerator". The messages are kept, and handed on by
/// `HandOn` when the interpreter's lock is held again: what a handler of that logger does is nothing that an object of the
/// library is in the middle of. What ends an operation is thrown and not logged.
class Listening
{
public:
    /// With the lock held.
    Listening(const REPORTGENERATOR::IRGObject& object, std::optional<REPORTGENERATOR::LogLevel> level);
    ~Listening();
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;

    /// With the lock held; what a handler throws is passed on. The object is not touched any more: a handler may do
    /// anything, also with what the object is a part of.
    void HandOn();

private:
    void Leave();

    const REPORTGENERATOR::IRGObject* m_object;
    std::shared_ptr<Collector> m_collector;
};

} // namespace Python

#endif
