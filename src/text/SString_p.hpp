#pragma once

#include "text/SStringData_p.hpp"
#include "common/SpinLock.hpp"

namespace vesk {

// Holds the string's lock word while it reads or changes its record pointer.
class SStringLock : public SpinGuard {
public:
    explicit SStringLock(const SString& s) noexcept : SpinGuard(s.m_nLock) {}
};

// Holds the lock words of two strings, taken in address order so that two threads comparing
// the same pair in opposite order cannot deadlock; one word when both are the same string.
class SStringPairLock {
public:
    SStringPairLock(const SString& a, const SString& b) noexcept;
    ~SStringPairLock();
    SStringPairLock(const SStringPairLock&) = delete;
    SStringPairLock& operator=(const SStringPairLock&) = delete;

private:
    std::atomic<uint32_t>* m_pFirst;
    std::atomic<uint32_t>* m_pSecond;
};

// A counted reference to another string's record, taken under that string's lock. While it is
// held the record cannot change, so this string may be locked and changed with it as source
// even when both are the same string.
class SStringRef {
public:
    explicit SStringRef(const SString& s);
    ~SStringRef() { SStringData::Release(m_p); }
    SStringRef(const SStringRef&) = delete;
    SStringRef& operator=(const SStringRef&) = delete;

    SStringData* Get() const noexcept { return m_p; }
    SStringData* operator->() const noexcept { return m_p; }
    // Hands the reference over to a new owner.
    SStringData* Take() noexcept
    {
        SStringData* rec = m_p;
        m_p = SStringData::Empty();
        return rec;
    }

private:
    SStringData* m_p;
};

// Internal access for the library's other string code and for tests.
struct SStringAccess {
    static const SStringData* Record(const SString& s) noexcept { return s.m_pData; }
    static void InitStringRes(SString& s, const char* data, unsigned int n) { s.InitStringRes(data, n); }
};

// The three-way result of a C-library comparison.
inline StringCompare SStringToCompare(int order) noexcept
{
    return order < 0 ? COMPARE_LESS : order > 0 ? COMPARE_GREATER : COMPARE_EQUAL;
}

// One bit per byte of `word` (the byte's high bit) where it equals c, exactly.
inline uint64_t SStringByteMatches(uint64_t word, char c) noexcept
{
    constexpr uint64_t kLow7 = 0x7F7F7F7F7F7F7F7Full;
    const uint64_t x = word ^ (0x0101010101010101ull * static_cast<unsigned char>(c));
    // The high bit of each byte is set where x has a non-zero byte.
    const uint64_t nonZero = ((x & kLow7) + kLow7) | x;
    return ~nonZero & ~kLow7;
}

inline bool SStringHasByte(uint64_t word, char c) noexcept
{
    return SStringByteMatches(word, c) != 0;
}

// The number of bytes equal to c among n bytes, eight at a time.
uint32_t SStringCountByte(const char* text, uint32_t n, char c) noexcept;

// The helpers below work on a string's record slot; the caller holds the string's lock.

// Puts `rec` in the slot and drops the record it held.
inline void SStringSetRecord(SStringData*& slot, SStringData* rec) noexcept
{
    SStringData* old = slot;
    slot = rec;
    SStringData::Release(old);
}

// A new reference to the slot's record for another owner; when the count is saturated the
// slot first gets a private copy, and the reference goes to that copy.
SStringData* SStringShare(SStringData*& slot);

// `length` characters from `index` (cut to the rest of the text) as a record for a new owner:
// the slot's own record for the whole text, the empty record when nothing is left, else a new
// record with the same flag.
SStringData* SStringCopyRange(SStringData*& slot, uint32_t index, uint32_t length);

// Gives the slot a record of its own (exactly the current length) before an in-place change.
void SStringMakeUnique(SStringData*& slot);

// Appends n bytes, cut so that the length stays within STRING_MAXLEN: in place when the
// record is private and has room, else into a new record that grows by half when the old one
// was private. The UTF-8 flag is left to the caller.
void SStringAppend(SStringData*& slot, const char* text, uint32_t n);

// Erases `length` characters at `index` (cut to the text; nothing at or past the end): all of
// them gives the empty record, a tail is cut off in the unique record, anything else builds a
// new record of the remaining length with the same flag.
void SStringErase(SStringData*& slot, uint32_t index, uint32_t length);

} // namespace vesk
