// Drives random sequences of searches, tokens, inserts, erases and replaces on an SString and
// checks every result against the reference model written on std::string.
#include "models/sstring_model.hpp"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::string failed;
    if (!sstring_model::Run(data, size, failed)) {
        std::fprintf(stderr, "SString differs from the model in %s\n", failed.c_str());
        std::abort();
    }
    return 0;
}
