#pragma once

// The record of UString and the locked access that every member works through.

#include <vesk/text/UString.hpp>

#include "common/SpinLock.hpp"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace vesk {

// A record holds m_nLen + 1 characters ending in a zero; the static empty record holds none.
// m_nRefCount counts the owners beyond the first and saturates at kSaturatedCount; it changes
// only under the lock of the string through which the record is reached.
struct UStringData {
    std::vector<char16_t> m_aText;
    uint32_t m_nLen = 0;
    uint32_t m_nRefCount = 0;
};

class UStringRef;

namespace detail {

inline constexpr uint32_t kSaturatedCount = 0x7FFFFFFF;

// The record of every empty UString; never freed, never written.
UStringData* EmptyURecord() noexcept;
// A private record holding a copy of the text (the static empty record for no text).
UStringData* NewURecord(std::u16string_view text);
// A private record holding the parts one after another.
UStringData* NewURecord(std::initializer_list<std::u16string_view> parts);
// A private record of n characters, all zero.
UStringData* NewURecord(uint32_t n);
// A new reference to rec for another owner, or a private copy when its count is saturated.
UStringData* ReferenceURecord(UStringData* rec);
// Drops one owner: the static record is ignored, a shared one loses a count, else it is freed.
void ReleaseURecord(UStringData* rec) noexcept;

inline std::u16string_view ViewOf(const UStringData* rec) noexcept
{
    return rec->m_nLen == 0 ? std::u16string_view(u"", 0)
                            : std::u16string_view(rec->m_aText.data(), rec->m_nLen);
}

// `length` characters of a zero-terminated array from `index`, ending early at a zero;
// USTRING_LEN means up to the zero. Empty for a null text or an index at or past the end.
template <typename Char>
std::basic_string_view<Char> RangeView(const Char* text, uint32_t index, uint32_t length) noexcept
{
    if (text == nullptr)
        return {};
    const uint32_t limit = length == USTRING_LEN || length > UINT32_MAX - index ? UINT32_MAX
                                                                                : index + length;
    uint32_t end = 0;
    while (end < limit && text[end] != 0)
        ++end;
    if (index >= end)
        return {};
    return {text + index, std::min(end - index, length)};
}

// The text up to its first zero character, at most max characters.
inline std::u16string_view TerminatedView(const char16_t* text, uint32_t max) noexcept
{
    return RangeView(text, 0, max);
}

} // namespace detail

// Holds a string's lock and gives the members its record. The record of a string that the
// caller holds privately (a local copy made before locking) is read without a lock.
// Internal to the library: hidden although its enclosing class is exported.
class [[gnu::visibility("hidden")]] UString::Locked {
public:
    explicit Locked(const UString& s) noexcept : m_rString(s), m_guard(s.m_nLock) {}

    UStringData* Rec() const noexcept { return m_rString.m_pData; }
    std::u16string_view View() const noexcept { return detail::ViewOf(Rec()); }
    uint32_t Len() const noexcept { return Rec()->m_nLen; }
    bool IsPrivate() const noexcept
    {
        return Rec() != detail::EmptyURecord() && Rec()->m_nRefCount == 0;
    }

    // Points the string at rec (which it now owns) and releases the old record.
    void Adopt(UStringData* rec) const noexcept;
    // Makes the record private, copying it when shared; the empty record stays as it is.
    char16_t* Unique() const;
    // Replaces the text (cut to USTRING_MAXLEN), in place when the record is private and fits.
    void Assign(std::u16string_view text) const;
    // Appends text, the sum cut to USTRING_MAXLEN.
    void Append(std::u16string_view text) const;
    // Appends a referenced string; an empty string shares its record instead.
    void AppendString(const UStringRef& text) const;
    // Shortens a private record to n characters (n = 0 gives the empty record).
    void Truncate(uint32_t n) const;
    // `length` characters from `index` (cut to the text), sharing the record for all of it.
    UString Copy(uint32_t index, uint32_t length) const;
    // Erases `length` characters (cut to the text) from `index`.
    void Erase(uint32_t index, uint32_t length) const;
    // Inserts text at `position` (cut to the length); past USTRING_MAXLEN the result keeps the
    // head, as much of the text as fits, then as much of the tail as fits.
    void Insert(std::u16string_view text, uint32_t position) const;
    // A new reference to the record, for a copy (a saturated record is copied first).
    UStringData* Reference() const;

private:
    const UString& m_rString;
    SpinGuard m_guard;
};

// Access for the library's code outside the class.
struct UStringAccess {
    using Locked = UString::Locked;
    static UString FromRecord(UStringData* rec) noexcept { return UString(rec); }
    template <typename Char>
    static void InitStringRes(UString& s, const Char* data, unsigned int n)
    {
        s.InitStringRes(data, n);
    }
    template <typename Char>
    static void AppendStringRes(UString& s, const Char* data, unsigned int n)
    {
        s.AppendStringRes(data, n);
    }
};

// A counted reference to another string's record, taken and dropped under that string's lock
// (the count of a UString record changes only under the lock it is reached through). While it
// is held the record cannot change, so this string may be locked and changed with it as
// source, even when both are the same string.
class UStringRef {
public:
    explicit UStringRef(const UString& s) : m_rString(s), m_pRec(UString::Locked(s).Reference()) {}
    ~UStringRef()
    {
        UString::Locked lock(m_rString);
        detail::ReleaseURecord(m_pRec);
    }
    UStringRef(const UStringRef&) = delete;
    UStringRef& operator=(const UStringRef&) = delete;

    const UStringData* Rec() const noexcept { return m_pRec; }
    std::u16string_view View() const noexcept { return detail::ViewOf(m_pRec); }
    uint32_t Len() const noexcept { return m_pRec->m_nLen; }
    // A further reference for a new owner.
    UStringData* Share() const
    {
        UString::Locked lock(m_rString);
        return detail::ReferenceURecord(m_pRec);
    }

private:
    const UString& m_rString;
    UStringData* m_pRec;
};

} // namespace vesk
