// Dock position and neighbour records read from arbitrary bytes, and the write-read round
// trip of every position that reads successfully.
#include "models/dockposition_check.hpp"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::string failed;
    if (!dockposition_check::Run(data, size, failed)) {
        std::fprintf(stderr, "dock position record fails its %s\n", failed.c_str());
        std::abort();
    }
    return 0;
}
