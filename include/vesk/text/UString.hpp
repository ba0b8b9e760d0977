#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace vesk {

// Largest length of a UString; longer input is cut to it without report.
inline constexpr unsigned int USTRING_MAXLEN = 0xFFFF4;
// A length argument meaning "the whole text" (Compare, ICompare, Copy, GetToken...).
inline constexpr unsigned int USTRING_LEN = 0xFFFFF;

struct UStringData;

// The library's 16-bit string: UTF-16 in char16_t units. Copies share one counted record and a
// string copies its record before it changes it; every object guards its record pointer with
// its own spin lock. The count of a record is changed without atomic operations, under the lock
// of the string through which it is reached: one UString object may be used from several
// threads, but copies that share a record must not be made or released in different threads
// at the same time.
//
// Bytes become UTF-16 as UTF-8 when SString::MayBeUTF8 finds UTF-8 in them, else in the
// system code page (Windows-1252); a failed decoding gives the empty string. Integer widths
// follow SString: `int` and `unsigned int` stand for 32-bit `long` values.
class VESK_API UString {
public:
    // The empty string (the static empty record, never allocated).
    UString() noexcept;
    // Shares `s`'s record.
    UString(const UString& s);
    // Takes `s`'s record and leaves `s` empty.
    UString(UString&& s) noexcept;
    // `length` characters of `s` from `index`; shares the record for the whole text.
    UString(const UString& s, unsigned int index, unsigned int length);
    // The bytes of `s` (cut to USTRING_MAXLEN) decoded; the UTF-8 flag of `s` is not consulted.
    UString(const SString& s);
    // `length` bytes of `s` from `index`, decoded.
    UString(const SString& s, unsigned int index, unsigned int length);
    // The zero-terminated bytes decoded; null gives the empty string.
    UString(const char* text);
    // `length` bytes of `text` from `index` (USTRING_LEN: up to the zero; the array may end
    // early at a zero), decoded.
    UString(const char* text, unsigned int index, unsigned int length);
    // Copy of the characters, cut to USTRING_MAXLEN.
    UString(const std::u16string& text);
    // Copy of the zero-terminated characters, cut to USTRING_MAXLEN; null gives the empty string.
    UString(const char16_t* text);
    // `length` characters of `text` from `index` (USTRING_LEN: up to the zero; the array may
    // end early at a zero).
    UString(const char16_t* text, unsigned int index, unsigned int length);
    // One byte decoded in the system code page; 0 gives the empty string.
    UString(char c);
    // One character; 0 gives the empty string.
    UString(char16_t c);
    // Decimal text, "-" for negative values.
    UString(short value);
    // Decimal text left-padded with "0" to `width`; the zeros stand before the sign ("00-5").
    UString(int value, int width = 0);
    // Decimal digits.
    UString(unsigned int value);
    // The "%f" text of `value` (six decimals, no exponent).
    UString(double value);
    // Decimal text of a 64-bit value.
    UString(int64_t value);
    // Decimal digits of a 64-bit value.
    UString(uint64_t value);
    // The same for `long long`, which int64_t is not here.
    UString(long long value) : UString(int64_t(value)) {}
    UString(unsigned long long value) : UString(uint64_t(value)) {}
    // Releases the record.
    ~UString();

    // Shares `s`'s record.
    UString& operator=(const UString& s);
    // Takes `s`'s record and leaves `s` empty.
    UString& operator=(UString&& s) noexcept;
    // Copies `text` (cut to USTRING_MAXLEN), in place when the record is private and fits.
    UString& operator=(const char16_t* text);

    // Appends the text (the sum cut to USTRING_MAXLEN).
    UString& operator+=(const UString& s);
    UString& operator+=(const char16_t* text);
    // Appends one character; 0 does nothing.
    UString& operator+=(char16_t c);
    // Append the decimal text of a number ("-" for negative values).
    UString& operator+=(short value);
    UString& operator+=(int value);
    UString& operator+=(unsigned int value);
    UString& operator+=(int64_t value);
    UString& operator+=(uint64_t value);
    UString& operator+=(long long value) { return *this += int64_t(value); }
    UString& operator+=(unsigned long long value) { return *this += uint64_t(value); }
    // Appends the "%f" text of `value`.
    UString& operator+=(double value);

    // Appends `separator` when this string, `separator` and `text` are non-empty, then `text`.
    void AddSeparated(const UString& text, const UString& separator);
    // Appends `separator` when this string and `text` are non-empty and it is not 0, then `text`.
    void AddSeparated(const UString& text, char16_t separator);

    // A new private record of length n (cleared); the caller may write n characters.
    char16_t* AllocStrBuf(unsigned int n);
    // A new private record with room for n characters and length 0.
    char16_t* AllocStrCapBuf(unsigned int n);
    // Makes this string empty.
    void Clear();

    // A new array of Len() + 1 bytes holding the text in the system code page (empty when it
    // cannot hold the text); the caller frees it with delete[].
    char* CreateCharArr() const;
    // A new array copy of the characters and their zero; the caller frees it with delete[].
    char16_t* CreateWCHARArr() const;

    // The text as flagged UTF-8 (empty when it holds a lone surrogate).
    SString GetUTF8() const;
    operator SString() const;
    // Writes the UTF-8 form and its zero into `buffer` (the last of `size` bytes is always
    // set to zero); returns the bytes written with the zero, 0 when empty, too long or size 0.
    unsigned int GetUTF8(char* buffer, unsigned int size) const;
    // Decodes `s` as UTF-8 when MayBeUTF8 finds UTF-8 in it, else in the system code page.
    void SetUTF8(const SString& s);
    // Decodes `length` bytes of `text` as UTF-8.
    void SetUTF8(const char* text, unsigned int length);
    // Decodes `length` bytes of `text` from `index` in the transcript code page (the system
    // code page while the library holds no transcript settings).
    void SetTranscript(const SString& text, unsigned int index, unsigned int length);
    // Copies `length` characters of `text` from `index`.
    void SetTranscript(const std::u16string& text, unsigned int index, unsigned int length);
    // Whether the text, in the transcript code page, is transcript text (see SString).
    bool IsTranscript() const;
    // Whether the zero-terminated bytes are transcript text (see SString).
    static bool IsTranscript(const char* text);
    // Always false: a UString has no UTF-8 flag.
    bool IsUTF8() const { return false; }

    // A string made by printf-style formatting with Windows' wide conventions: %s and %c take
    // char16_t text, %S/%hs and %C/%hc char text; cut to USTRING_MAXLEN, empty on failure.
    static UString F(const char16_t* format, ...);
    // Formats into this string; on failure the string keeps what it held.
    void Format(const char16_t* format, ...);

    // The first character (0 when empty).
    operator char16_t() const;
    // The number conversions of SString, on the text's ASCII characters.
    operator unsigned char() const;
    operator short() const;
    operator unsigned int() const;
    operator int() const;
    operator double() const;
    operator int64_t() const;
    operator uint64_t() const;
    bool ToBool() const;

    // Equal texts give COMPARE_EQUAL; n other than USTRING_LEN compares at most n characters.
    StringCompare Compare(const UString& s, unsigned int n = USTRING_LEN) const;
    StringCompare Compare(const char16_t* text, unsigned int n = USTRING_LEN) const;
    // The same without regard to case (towlower in the string locale).
    StringCompare ICompare(const UString& s, unsigned int n = USTRING_LEN) const;
    StringCompare ICompare(const char16_t* text, unsigned int n = USTRING_LEN) const;

    // The number of characters.
    unsigned int Len() const;
    // True for the empty string.
    bool operator!() const;
    // The zero-terminated text; valid until this string changes.
    operator const char16_t*() const;
    // The character at `index`; 0 at or beyond the end or below 0.
    char16_t operator[](short index) const;
    char16_t operator[](unsigned short index) const;
    char16_t operator[](int index) const;

    // `length` characters from `index` (cut to the text); empty when out of range.
    UString Copy(unsigned int index, unsigned int length = USTRING_LEN) const;
    UString operator()(unsigned int index, unsigned int length) const { return Copy(index, length); }
    // Copy(index, length), then erases that range.
    UString Cut(unsigned int index, unsigned int length);
    // The text before the last `c`; the whole text when there is none.
    UString CopyToLastChar(char16_t c) const;

    // Erases `length` characters (cut to the text) from `index`.
    void Erase(unsigned int index, unsigned int length = USTRING_LEN);
    // Erases every `c`.
    void EraseAllChars(char16_t c);
    // Erases the run of `c` at the start / at the end.
    void EraseLeadingChars(char16_t c);
    void EraseTrailingChars(char16_t c);
    // EraseLeadingChars, then EraseTrailingChars.
    void Trim(char16_t c = u' ');

    // Grows the text to `length` with copies of `c`; no cut at USTRING_MAXLEN.
    void Expand(unsigned int length, char16_t c = u' ');
    // A longer `length` gives that many copies of `c`; otherwise the first `length`
    // characters become `c`.
    void Fill(unsigned int length, char16_t c = u' ');

    // Inserts at `position` (cut to the length); the sum is cut to USTRING_MAXLEN.
    void Insert(const UString& text, unsigned int position);
    // Inserts `length` characters of `text` from `index` at `position`.
    void Insert(const UString& text, unsigned int index, unsigned int length,
        unsigned int position);
    void Insert(const char16_t* text, unsigned int position);
    // Inserts one character; a string of USTRING_MAXLEN characters drops its last one.
    void Insert(char16_t c, unsigned int position);

    // Overwrites from `position` with `text`, never past the end.
    void Replace(const UString& text, unsigned int position);
    // Sets the character at `position` when it is inside the text.
    void Replace(char16_t c, unsigned int position);
    // Every `from` becomes `to`.
    void ReplaceAllChars(char16_t from, char16_t to);
    // The same with a widened `to`.
    void ReplaceAllChars(char16_t from, char to);
    // Replaces every `what` that starts a match at an index in [start, start + count) (the
    // match itself may be found further on) by `with`, continuing after the inserted text. A
    // negative start or count changes nothing.
    void ReplaceAllPhrases(const UString& what, const UString& with, int start, int count);
    // Replaces the occurrences of `what` from `start` to the end.
    void ReplaceAllPhrases(const UString& what, const UString& with, int start = 0);
    // The same without regard to case.
    void ReplaceAllPhrasesI(const UString& what, const UString& with, int start = 0);
    // One left-to-right pass replacing every occurrence of `what` by `with`.
    void ReplaceAllPhrases2(const UString& what, const UString& with);
    // Reverses the characters.
    void Reverse();
    // Blanks become '0' / '0's become blanks.
    void SpaceToZero();
    void ZeroToSpace();
    // Case conversion with towlower/towupper in the string locale.
    void ToLower();
    void ToUpper();
    UString Lower() const;
    UString Upper() const;
    // Makes every line end (CR, LF, CR LF or LF CR) the given one.
    void ConvertLineEnd(LineEnd lineEnd = LINEEND_CRLF);

    // First occurrence at or after `from`; STRING_NOTFOUND when there is none.
    unsigned int Search(const UString& what, unsigned int from = 0) const;
    unsigned int Search(const char16_t* what, unsigned int from = 0) const;
    unsigned int Search(char16_t c, unsigned int from = 0) const;
    // The same without regard to case.
    unsigned int NoCaseSearch(const UString& what, unsigned int from = 0) const;
    // Last occurrence starting at or before `from`.
    unsigned int SearchBackward(const UString& what, unsigned int from) const;
    // Last occurrence anywhere (case-sensitive).
    unsigned int SearchFromEnd(const UString& what) const;
    unsigned int SearchFromEnd(char16_t c) const;
    // Whether the text ends with the non-empty `s`.
    bool EndsOn(const UString& s) const;
    // Whether both texts are equal without regard to case.
    bool NoCaseEqual(const UString& s) const;
    // Index of the first character that differs from `s` (its end counts as a difference);
    // STRING_MATCH when this text is a prefix of `s`.
    unsigned int Match(const UString& s) const;
    unsigned int Match(const char16_t* s) const;
    // STRING_MATCH when the shorter text is a prefix of the other without regard to case, else 0.
    unsigned int IMatch(const UString& s) const;

    // 0 for the empty string, else 1 + the number of `sep` characters.
    unsigned int GetTokenCount(char16_t sep) const;
    // Token `index`; empty beyond the last token.
    UString GetToken(unsigned int index, char16_t sep) const;
    // Start index of token `index` (0 where it has none).
    unsigned int GetTokenPos(unsigned int index, char16_t sep) const;
    // Every token, each stripped of leading and trailing blanks.
    std::vector<UString> GetAllTokens(char16_t sep) const;

    // Whether every character is an ASCII letter / letter or digit / digit / digit after an
    // optional "-" / not an upper-case ASCII letter / not a lower-case one. True when empty.
    bool IsAlpha() const;
    bool IsAlphaNumeric() const;
    bool IsNumeric() const;
    bool IsNumber() const;
    bool IsLower() const;
    bool IsUpper() const;

    // Appends the text to a list of zero-terminated strings ended by an empty one.
    void AddToStringListBuffer(char16_t* buffer) const;

    // Case conversion and case-insensitive comparison use this POSIX locale_t (from newlocale,
    // kept alive by the caller) when set, else the calling thread's current locale.
    static void SetLocale(void* locale);

private:
    class Locked;
    friend struct UStringAccess;
    friend class UStringRef;

    explicit UString(UStringData* rec) noexcept;
    // Make or extend the string of n units of string data; bytes are decoded as the
    // constructors from bytes decode them, and the sum of lengths is cut to USTRING_MAXLEN.
    void InitStringRes(const char* data, unsigned int n);
    void InitStringRes(const char16_t* data, unsigned int n);
    void AppendStringRes(const char* data, unsigned int n);
    void AppendStringRes(const char16_t* data, unsigned int n);

    mutable UStringData* m_pData;
    mutable std::atomic<uint32_t> m_nLock;
};

// Comparisons by code unit order; a null text follows the rules of SString.
VESK_API bool operator==(const UString& a, const UString& b);
VESK_API bool operator==(const UString& a, const char16_t* b);
VESK_API bool operator==(const char16_t* a, const UString& b);
VESK_API bool operator!=(const UString& a, const UString& b);
VESK_API bool operator!=(const UString& a, const char16_t* b);
VESK_API bool operator!=(const char16_t* a, const UString& b);
VESK_API bool operator<(const UString& a, const UString& b);
VESK_API bool operator<(const UString& a, const char16_t* b);
VESK_API bool operator<(const char16_t* a, const UString& b);
VESK_API bool operator<=(const UString& a, const UString& b);
VESK_API bool operator<=(const UString& a, const char16_t* b);
VESK_API bool operator<=(const char16_t* a, const UString& b);
VESK_API bool operator>(const UString& a, const UString& b);
VESK_API bool operator>(const UString& a, const char16_t* b);
VESK_API bool operator>(const char16_t* a, const UString& b);
VESK_API bool operator>=(const UString& a, const UString& b);
VESK_API bool operator>=(const UString& a, const char16_t* b);
VESK_API bool operator>=(const char16_t* a, const UString& b);

} // namespace vesk
