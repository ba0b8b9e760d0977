#pragma once

#include <vesk/export.hpp>

#include <atomic>
#include <cstdint>

namespace vesk {

// Largest length a string may have; longer input is cut to it without report.
inline constexpr unsigned int STRING_MAXLEN = 0x1FFFEF;
// A length argument meaning "up to the end of the text".
inline constexpr unsigned int STRING_LEN = 0x1FFFFF;
// Index returned by every search that finds nothing.
inline constexpr unsigned int STRING_NOTFOUND = 0xFFFFFFFF;

// Result of Compare and ICompare.
enum StringCompare { COMPARE_LESS = 1, COMPARE_EQUAL = 2, COMPARE_GREATER = 3 };

struct SStringData;

// The library's 8-bit string. Copies share one counted record and a string copies its record
// before it changes it; every object guards its record pointer with its own spin lock, so
// strings may be copied, assigned and appended from several threads at once. A flag marks the
// bytes as UTF-8; otherwise they are in the system's 8-bit code page.
//
// Integer widths follow the original 32-bit platform, where `long` has 32 bits: its `long`
// members are the `int` and `unsigned int` ones here (same text, and `operator int` is its
// `operator long`, saturating at 32 bits like atol); its 64-bit members take int64_t and
// uint64_t, so a Linux `long` argument is formatted in full.
class VESK_API SString {
public:
    // The empty string (the shared empty record, never allocated).
    SString() noexcept;
    // Shares `s`'s record.
    SString(const SString& s);
    // Takes `s`'s record and leaves `s` empty.
    SString(SString&& s) noexcept;
    // The substring of `length` characters from `index`; shares the record for the whole text.
    SString(const SString& s, unsigned int index, unsigned int length);
    // One character; 0 gives the empty string.
    SString(char c);
    // The decimal digits of `value` (the number, not the character).
    SString(unsigned char value);
    // Decimal text, "-" for negative values.
    SString(short value);
    // Decimal text left-padded with "0" to `width`; the zeros stand before the sign ("00-5").
    SString(int value, int width = 0);
    // Decimal digits.
    SString(unsigned int value);
    // The "%f" text of `value` (six decimals, no exponent), in the "C" locale.
    SString(double value);
    // Decimal text of a 64-bit value.
    SString(int64_t value);
    // Decimal digits of a 64-bit value.
    SString(uint64_t value);
    // Copy of a zero-terminated text cut to STRING_MAXLEN; null gives the empty string.
    SString(const char* text);
    // `length` bytes of `text` from `index` (STRING_LEN: up to the zero). With `isTerminated`
    // false the array may end early at a zero; with true exactly that many bytes are copied.
    SString(const char* text, unsigned int index, unsigned int length, bool isTerminated = false);
    // Releases the record.
    ~SString();

    // Shares `s`'s record.
    SString& operator=(const SString& s);
    // Takes `s`'s record and leaves `s` empty.
    SString& operator=(SString&& s) noexcept;
    // Copies `text` (cut to STRING_MAXLEN), in place when the record is private and fits.
    SString& operator=(const char* text);

    // Appends the text; the UTF-8 flag becomes the OR of both flags.
    SString& operator+=(const SString& s);
    // Appends the text; the UTF-8 flag is kept.
    SString& operator+=(const char* text);
    // Appends one character; 0 does nothing.
    SString& operator+=(char c);
    // Append the decimal text of a number ("-" for negative values).
    SString& operator+=(unsigned char value);
    SString& operator+=(short value);
    SString& operator+=(int value);
    SString& operator+=(unsigned int value);

    // Appends `separator` when this string, `separator` and `text` are non-empty, then `text`.
    void AddSeparated(const SString& text, const SString& separator);
    // Appends `separator` when this string and `text` are non-empty and it is not 0, then `text`.
    void AddSeparated(const SString& text, char separator);

    // A new private record of length n (not cleared, flag 0); the caller may write n characters.
    char* AllocStrBuf(unsigned int n);
    // A new private record with room for n characters and length 0.
    char* AllocStrCapBuf(unsigned int n);
    // Makes this string empty.
    void Clear();

    // Sets the UTF-8 flag; the empty string is never marked.
    void SetIsUTF8();
    // Clears the UTF-8 flag in the record, as seen by every string that shares it.
    void ClearUTF8();
    // Whether the text holds a well-formed multi-byte UTF-8 sequence.
    bool MayBeUTF8() const;
    // Whether the first `length` bytes (up to a zero) hold a well-formed multi-byte UTF-8 sequence.
    static bool MayBeUTF8(const char* text, unsigned int length);
    // Erases a leading UTF-8 byte-order mark; true when there was one.
    bool RemoveUTF8Marker();
    // Whether the UTF-8 flag is set.
    bool IsUTF8() const;

    // A string made by printf-style formatting, flagged UTF-8 when MayBeUTF8; empty on failure.
    static SString F(const char* format, ...) __attribute__((format(printf, 1, 2)));
    // Formats into this string; on failure the string keeps what it held.
    void Format(const char* format, ...) __attribute__((format(printf, 2, 3)));

    // atoi of the text, cut to 8 bits.
    operator unsigned char() const;
    // atoi of the text, cut to 16 bits.
    operator short() const;
    // Leading decimal digits, no sign or blanks; wraps modulo 2^32.
    operator unsigned int() const;
    // atol of the text, saturating at the 32-bit limits.
    operator int() const;
    // atof of the text in the "C" locale.
    operator double() const;
    // _atoi64 of the text, saturating at the 64-bit limits.
    operator int64_t() const;
    // _strtoui64 of the text in radix 10 ("-1" gives the largest value).
    operator uint64_t() const;
    // "true"/"false" in any case, else a whole decimal text that is not zero.
    bool ToBool() const;

    // Equal texts give COMPARE_EQUAL; n other than STRING_LEN compares at most n characters.
    StringCompare Compare(const SString& s, unsigned int n = STRING_LEN) const;
    StringCompare Compare(const char* text, unsigned int n = STRING_LEN) const;

    // The number of characters.
    unsigned int Len() const;
    // True for the empty string.
    bool operator!() const;
    // The zero-terminated text; valid until this string changes.
    operator const char*() const;
    // The character at `index`; 0 at or beyond the end.
    char operator[](unsigned int index) const;

    // Case conversion of non-UTF-8 text uses this POSIX locale_t (from newlocale, kept alive by
    // the caller) when set, else the calling thread's current locale; null unsets it.
    static void SetLocale(void* locale);

private:
    struct Adopt {};
    friend class SStringLock;
    friend class SStringPairLock;
    friend class SStringRef;
    friend struct SStringAccess;

    // Takes over a record that the caller made or referenced.
    SString(Adopt, SStringData* rec) noexcept;
    // Makes the string of a string resource: n bytes copied, no length cut.
    void InitStringRes(const char* data, unsigned int n);

    mutable SStringData* m_pData;
    mutable std::atomic<uint32_t> m_nLock;
};

// Comparisons by unsigned byte order up to the first difference or zero. A null text on the
// right follows fixed rules: == and != are true for an empty string, < is false, <= and > are
// true for an empty string, >= for a non-empty one; on the left the mirrored operator applies.
VESK_API bool operator==(const SString& a, const SString& b);
VESK_API bool operator==(const SString& a, const char* b);
VESK_API bool operator==(const char* a, const SString& b);
VESK_API bool operator!=(const SString& a, const SString& b);
VESK_API bool operator!=(const SString& a, const char* b);
VESK_API bool operator!=(const char* a, const SString& b);
VESK_API bool operator<(const SString& a, const SString& b);
VESK_API bool operator<(const SString& a, const char* b);
VESK_API bool operator<(const char* a, const SString& b);
VESK_API bool operator<=(const SString& a, const SString& b);
VESK_API bool operator<=(const SString& a, const char* b);
VESK_API bool operator<=(const char* a, const SString& b);
VESK_API bool operator>(const SString& a, const SString& b);
VESK_API bool operator>(const SString& a, const char* b);
VESK_API bool operator>(const char* a, const SString& b);
VESK_API bool operator>=(const SString& a, const SString& b);
VESK_API bool operator>=(const SString& a, const char* b);
VESK_API bool operator>=(const char* a, const SString& b);

// Writes the decimal digits of `value` right-aligned into the 32-byte buffer at `cursor` (a
// zero at index 31); `cursor` then points at the first digit. Returns the number of digits.
VESK_API unsigned int ImpUNToA(uint32_t value, char*& cursor);

} // namespace vesk
