#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdlib>

// glibc raises its mmap threshold once the first large block is freed, and a process stays in
// that state; doing it at start-up runs every benchmark of a program there, instead of
// favouring whichever runs after the first large free.
inline const bool kSteadyAllocator = [] {
    void* block = std::malloc(std::size_t(16) << 20);
    benchmark::DoNotOptimize(block);
    std::free(block);
    return true;
}();
