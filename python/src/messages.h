#ifndef REPORTGENERATOR_PYTHON_MESSAGES_H
#define REPORTGENERATOR_PYTHON_MESSAGES_H

#include <reportgenerator/reportbase/irgobject.h>

#include <memory>

namespace Python {

class Collector;

/// What an object says while this lives, for Python's logger "reportgenerator". The messages are kept, and handed on by
/// `HandOn` when the interpreter's lock is held again: what a handler of that logger does is nothing that an object of the
/// library is in the middle of. What ends an operation is thrown and not logged.
class Listening
{
public:
    /// With the lock held. Listens only to what somebody wants to have.
    explicit Listening(const REPORTGENERATOR::IRGObject& object);
    ~Listening();
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;

    /// With the lock held; what a handler throws is passed on.
    void HandOn();

private:
    const REPORTGENERATOR::IRGObject& m_object;
    std::shared_ptr<Collector> m_collector;
};

} // namespace Python

#endif
