#ifndef BENCH_CONTENDERS_H
#define BENCH_CONTENDERS_H

namespace Bench {

class Suite;

/// The library's objects, with validation on and off and through the streams of a caller.
void AddLibraryForms(Suite& suite);
void AddLibraryJobs(Suite& suite);

/// What a user would write instead: plain values through the Qt classes.
void AddBareQt(Suite& suite);

/// What the machine can do: loops over one buffer, and zlib and files as they are.
void AddFloor(Suite& suite);

} // namespace Bench

#endif
