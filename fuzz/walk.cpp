// The complete walk over the golden vectors: every byte changed in turn, every vector cut off everywhere. The
// ordinary tests take samples of it.

#include "support/vectorwalk.h"

#include <cstdio>
#include <cstdlib>

int main()
{
    const Support::Walk walk = Support::WalkVectors(1);
    std::printf("%lld cases\n", walk.cases);
    if (walk.difference.empty())
        return EXIT_SUCCESS;
    std::fprintf(stderr, "The two ways part:\n%s\n", walk.difference.c_str());
    return EXIT_FAILURE;
}
