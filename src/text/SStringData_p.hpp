#pragma once

#include <vesk/text/SString.hpp>

#include <atomic>
#include <cstdint>
#include <cstring>
#include <new>

namespace vesk {

// The count word's low 31 bits are the number of additional owners; bit 31 takes no part in
// any count test, and 0x7FFFFFFF is the saturated count.
inline constexpr uint32_t SSTRING_COUNT_MASK = 0x7FFFFFFF;
// Appends and inserts switch to their cut rules once a sum of lengths reaches this.
inline constexpr uint32_t SSTRING_CUT_LENGTH = 0x1FFFF0;
// Largest record we try to allocate: no 32-bit process could hold more, so a larger request
// is reported as the out-of-memory condition it would have been.
inline constexpr uint32_t SSTRING_RECORD_LIMIT = 0x7FFFFFEF;

// The record that strings share: a 16-byte header followed by the text and its zero, allocated
// as one array of bytes. Its capacity counts the bytes the text area holds, zero included.
struct SStringData {
    uint32_t nLen;
    std::atomic<uint32_t> nRefs;
    uint32_t nCap;
    // Atomic because ClearUTF8 writes it while other sharers may read it.
    std::atomic<uint8_t> nUTF8;
    uint8_t aPad[3];

    char* Text() noexcept { return reinterpret_cast<char*>(this) + sizeof(SStringData); }
    const char* Text() const noexcept { return reinterpret_cast<const char*>(this) + sizeof(SStringData); }

    bool IsUTF8() const noexcept { return nUTF8.load(std::memory_order_relaxed) != 0; }
    void SetUTF8(bool utf8) noexcept { nUTF8.store(utf8 ? 1 : 0, std::memory_order_relaxed); }
    // Only the sole owner of a record may change it; the whole count word must be 0.
    bool IsPrivate() const noexcept { return nRefs.load(std::memory_order_acquire) == 0; }
    bool IsShared() const noexcept { return (nRefs.load(std::memory_order_acquire) & SSTRING_COUNT_MASK) != 0; }
    // Sets the length and writes the terminating zero.
    void SetLength(uint32_t n) noexcept
    {
        nLen = n;
        Text()[n] = 0;
    }

    // The permanent record of every empty string: 16 zero bytes and a zero text, never written.
    static SStringData* Empty() noexcept;
    bool IsEmptyRecord() const noexcept { return this == Empty(); }

    // A private record of length n (text not cleared, zero at n, flag 0) with capacity
    // (room OR 15) + 1, room >= n. Throws std::bad_alloc past SSTRING_RECORD_LIMIT.
    static SStringData* Make(uint32_t n, uint32_t room);
    static SStringData* Make(uint32_t n) { return Make(n, n); }
    // A private record holding a copy of n bytes.
    static SStringData* Make(const char* text, uint32_t n, bool utf8)
    {
        SStringData* rec = Make(n);
        std::memcpy(rec->Text(), text, n);
        rec->SetUTF8(utf8);
        return rec;
    }

    // A private record given capacity (room OR 15) + 1, room >= its length; its text, length
    // and flag stay. The old pointer is invalid afterwards. Throws std::bad_alloc as Make.
    static SStringData* Grow(SStringData* rec, uint32_t room);

    // Counts one more owner unless the count is saturated.
    bool TryAddRef() noexcept
    {
        uint32_t count = nRefs.load(std::memory_order_relaxed);
        do {
            if ((count & SSTRING_COUNT_MASK) >= SSTRING_COUNT_MASK)
                return false;
        } while (!nRefs.compare_exchange_weak(count, count + 1, std::memory_order_relaxed));
        return true;
    }

    // Drops one owner: the empty record is left alone, a counted one is decremented, and the
    // last owner frees it.
    static void Release(SStringData* rec) noexcept
    {
        if (rec->IsEmptyRecord())
            return;
        uint32_t count = rec->nRefs.load(std::memory_order_acquire);
        while ((count & SSTRING_COUNT_MASK) != 0) {
            if (rec->nRefs.compare_exchange_weak(count, count - 1, std::memory_order_acq_rel,
                                                 std::memory_order_acquire))
                return;
        }
        Free(rec);
    }

private:
    static void Free(SStringData* rec) noexcept;
};

static_assert(sizeof(SStringData) == 16, "the text follows a 16-byte header");

struct SStringEmptyRecord {
    SStringData head;
    char text[16];
};
// Defined in SStringData.cpp; only code inside the library may refer to it.
extern SStringEmptyRecord g_SStringEmpty;

inline SStringData* SStringData::Empty() noexcept
{
    return &g_SStringEmpty.head;
}

} // namespace vesk
