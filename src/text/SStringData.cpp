#include "text/SStringData_p.hpp"

#if defined(__has_include) && __has_include(<sanitizer/asan_interface.h>)
#include <sanitizer/asan_interface.h>
#endif
#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(leak_sanitizer)
#define VESK_LEAK_CHECKED 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) && !defined(VESK_LEAK_CHECKED)
#define VESK_LEAK_CHECKED 1
#endif
#ifndef ASAN_POISON_MEMORY_REGION
#define ASAN_POISON_MEMORY_REGION(addr, size) ((void)(addr), (void)(size))
#define ASAN_UNPOISON_MEMORY_REGION(addr, size) ((void)(addr), (void)(size))
#endif

#include <cstdlib>

namespace vesk {

constinit SStringEmptyRecord g_SStringEmpty{};

namespace {

// Blocks of the two smallest records (capacity 16 and 32) are kept per thread for reuse:
// short strings are made and dropped in bulk (tokens, fields, numbers), and the general
// allocator's work and the memory it returns to the system and faults in again would
// otherwise dominate their cost. A thread keeps at most 4 MiB of such blocks; a cached block
// is poisoned for AddressSanitizer. Under the leak checker the cache is bypassed: blocks held
// in thread-local storage are not seen by it while the thread runs, so they would be reported
// as leaks, and a cache that hides blocks would hide real leaks as well.
#ifdef VESK_LEAK_CHECKED
constexpr bool kUseCache = false;
#else
constexpr bool kUseCache = true;
#endif
constexpr uint32_t kCachedSizes = 2;
constexpr size_t kCacheBytes = size_t(4) << 20;

struct FreeBlock {
    FreeBlock* next;
};

struct BlockCache {
    FreeBlock* head[kCachedSizes];
    size_t bytes;
    bool registered;
    bool closed;
};

constinit thread_local BlockCache t_cache{};

// Records live in malloc'ed byte blocks, so that a growing private record can be extended
// with realloc, in place where the allocator has room behind it.
char* AllocateBytes(size_t n)
{
    void* block = std::malloc(n);
    if (!block)
        throw std::bad_alloc();
    return static_cast<char*>(block);
}

size_t BlockSize(uint32_t sizeClass)
{
    return sizeof(SStringData) + 16 * (sizeClass + 1);
}

// Frees the thread's blocks when it ends; strings released after that free theirs directly.
struct CacheCloser {
    ~CacheCloser()
    {
        t_cache.closed = true;
        for (uint32_t c = 0; c < kCachedSizes; ++c)
            while (FreeBlock* block = t_cache.head[c]) {
                ASAN_UNPOISON_MEMORY_REGION(block, BlockSize(c));
                t_cache.head[c] = block->next;
                std::free(block);
            }
    }
};

char* TakeBlock(uint32_t sizeClass)
{
    FreeBlock* block = t_cache.head[sizeClass];
    if (!block)
        return AllocateBytes(BlockSize(sizeClass));
    ASAN_UNPOISON_MEMORY_REGION(block, BlockSize(sizeClass));
    t_cache.head[sizeClass] = block->next;
    t_cache.bytes -= BlockSize(sizeClass);
    return reinterpret_cast<char*>(block);
}

void GiveBlock(uint32_t sizeClass, char* memory)
{
    if (t_cache.closed || t_cache.bytes + BlockSize(sizeClass) > kCacheBytes) {
        std::free(memory);
        return;
    }
    if (!t_cache.registered) {
        static thread_local CacheCloser closer;
        (void)closer;
        t_cache.registered = true;
    }
    auto* block = reinterpret_cast<FreeBlock*>(memory);
    block->next = t_cache.head[sizeClass];
    t_cache.head[sizeClass] = block;
    t_cache.bytes += BlockSize(sizeClass);
    ASAN_POISON_MEMORY_REGION(block, BlockSize(sizeClass));
}

} // namespace

SStringData* SStringData::Make(uint32_t n, uint32_t room)
{
    if (room > SSTRING_RECORD_LIMIT)
        throw std::bad_alloc();
    const uint32_t capacity = (room | 15) + 1;
    const uint32_t sizeClass = capacity / 16 - 1;
    char* block = kUseCache && sizeClass < kCachedSizes ? TakeBlock(sizeClass) : AllocateBytes(sizeof(SStringData) + capacity);
    SStringData* rec = new (block) SStringData{n, 0, capacity, 0, {}};
    rec->Text()[n] = 0;
    return rec;
}

void SStringData::Free(SStringData* rec) noexcept
{
    const uint32_t sizeClass = rec->nCap / 16 - 1;
    rec->~SStringData();
    if (kUseCache && sizeClass < kCachedSizes)
        GiveBlock(sizeClass, reinterpret_cast<char*>(rec));
    else
        std::free(static_cast<void*>(rec));
}

SStringData* SStringData::Grow(SStringData* rec, uint32_t room)
{
    if (room > SSTRING_RECORD_LIMIT)
        throw std::bad_alloc();
    const uint32_t capacity = (room | 15) + 1;
    // Every block, cached sizes included, is malloc'ed at exactly header plus capacity, so the
    // grown block may later go to the cache of its new size.
    void* block = std::realloc(static_cast<void*>(rec), sizeof(SStringData) + capacity);
    if (!block)
        throw std::bad_alloc();
    // realloc moved the bytes; the header is trivially relocatable, so it stays valid.
    rec = static_cast<SStringData*>(block);
    rec->nCap = capacity;
    return rec;
}

} // namespace vesk
