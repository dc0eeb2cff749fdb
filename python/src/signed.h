#ifndef REPORTGENERATOR_PYTHON_SIGNED_H
#define REPORTGENERATOR_PYTHON_SIGNED_H

#include <string>

namespace Python {

/// Documentation that begins with a signature, as Python's own functions have it: `help` and `inspect` read it.
inline std::string Signed(const std::string& name, const std::string& arguments, const std::string& text)
{
    return name + arguments + "\n--\n\n" + text;
}

} // namespace Python

#endif
