// Layout-tree element records read from arbitrary bytes, and the write-read round trip of
// every element read.
#include "models/docklayout_check.hpp"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::string failed;
    if (!docklayout_check::Run(data, size, failed)) {
        std::fprintf(stderr, "layout record fails its %s\n", failed.c_str());
        std::abort();
    }
    return 0;
}
