#ifndef BENCH_CONTENDER_H
#define BENCH_CONTENDER_H

#include "plainreport.h"

#include <string>

namespace Bench {

/// One who takes part: the objects that it works on, and the way between them and the plain values.
template <class Object>
struct Contender
{
    std::string name;
    Object (*fill)(const PlainReport&);
    PlainReport (*values)(const Object&);
};

} // namespace Bench

#endif
