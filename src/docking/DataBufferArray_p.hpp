#pragma once

#include "common/LittleEndian.hpp"
#include "common/SpinLock.hpp"

#include <vesk/docking/DataBuffer.hpp>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

namespace vesk {

// The largest array of large mode: the biggest multiple of 16 a 32-bit position reaches.
inline constexpr int64_t DATABUFFER_LARGE_LIMIT = 0x7FFFFFF0;
// The smallest array a buffer makes.
inline constexpr int32_t DATABUFFER_MIN_ARRAY = 192;

// The byte array that buffer copies share: a 16-byte header, then nCap bytes whose first 4
// hold the content length. nRefs counts the additional owners; it changes under nLock, so
// buffers that share the array may take and release it from different threads.
struct DataBufferArray {
    std::atomic<uint32_t> nLock;
    std::atomic<uint32_t> nRefs;
    int32_t nCap;
    uint32_t nPad;

    uint8_t* Bytes() { return reinterpret_cast<uint8_t*>(this + 1); }
    const uint8_t* Bytes() const { return reinterpret_cast<const uint8_t*>(this + 1); }

    int32_t ContentSize() const { return static_cast<int32_t>(LoadLe32(Bytes())); }
    void SetContentSize(int32_t n) { StoreLe32(Bytes(), static_cast<uint32_t>(n)); }

    // A private array of cap bytes (at least the 4 header bytes) whose first `copy` bytes
    // come from `from`; null when memory runs out.
    static DataBufferArray* Make(int32_t cap, const uint8_t* from, int32_t copy)
    {
        void* block = std::malloc(sizeof(DataBufferArray) + static_cast<size_t>(cap));
        if (!block)
            return nullptr;
        auto* array = new (block) DataBufferArray{{0}, {0}, cap, 0};
        std::memset(array->Bytes(), 0, DATABUFFER_CONTENT_START);
        if (copy > 0)
            std::memcpy(array->Bytes(), from, static_cast<size_t>(copy));
        return array;
    }

    void AddRef()
    {
        SpinGuard guard(nLock);
        nRefs.fetch_add(1, std::memory_order_relaxed);
    }

    // Needs no lock while the caller holds the lock of a buffer that owns the array: owners
    // are only added by copying an owner under its lock, so a count of 0 cannot rise meanwhile,
    // and a count that falls at the same time only costs an unneeded copy.
    bool IsShared() const { return nRefs.load(std::memory_order_acquire) != 0; }

    // Drops one owner; the last one frees the array.
    static void Release(DataBufferArray* array)
    {
        if (!array)
            return;
        {
            SpinGuard guard(array->nLock);
            if (array->nRefs.load(std::memory_order_relaxed) != 0) {
                array->nRefs.fetch_sub(1, std::memory_order_release);
                return;
            }
        }
        array->~DataBufferArray();
        std::free(array);
    }
};

static_assert(sizeof(DataBufferArray) == 16, "the bytes follow a 16-byte header");

} // namespace vesk
