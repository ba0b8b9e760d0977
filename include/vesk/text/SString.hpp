#pragma once

#include <vesk/export.hpp>

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace vesk {

// The library's 8-bit character sets (vesk/text/CharSet.hpp).
enum CharSet : int;

// Largest length a string may have; longer input is cut to it without report.
inline constexpr unsigned int STRING_MAXLEN = 0x1FFFEF;
// A length argument meaning "up to the end of the text".
inline constexpr unsigned int STRING_LEN = 0x1FFFFF;
// Index returned by every search that finds nothing.
inline constexpr unsigned int STRING_NOTFOUND = 0xFFFFFFFF;

// Result of Match and IMatch when no difference is found.
inline constexpr unsigned int STRING_MATCH = 0xFFFFFFFF;

// Result of Compare and ICompare.
enum StringCompare { COMPARE_LESS = 1, COMPARE_EQUAL = 2, COMPARE_GREATER = 3 };

// Line-end conventions: CR alone, LF alone, CR followed by LF.
enum LineEnd { LINEEND_CR = 0, LINEEND_LF = 1, LINEEND_CRLF = 2 };

struct SStringData;

// The library's 8-bit string. Copies share one counted record and a string copies its record
// before it changes it; every object guards its record pointer with its own spin lock, so
// strings may be copied, assigned and appended from several threads at once. A flag marks the
// bytes as UTF-8; otherwise they are in the system's 8-bit code page.
//
// Integer members are 32 bits wide (`int` and `unsigned int`; `operator int` saturates at 32
// bits like atol); the 64-bit members take int64_t and uint64_t, so a Linux `long` argument is formatted (or appended) in full.
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
    // The same for `long long` (int64_t is `long` here, so these would otherwise be ambiguous).
    SString(long long value) : SString(int64_t(value)) {}
    SString(unsigned long long value) : SString(uint64_t(value)) {}
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
    // `long` has 64 bits here: the full value is appended.
    SString& operator+=(long value);
    SString& operator+=(unsigned long value);

    // Appends `separator` when this string, `separator` and `text` are non-empty, then `text`.
    void AddSeparated(const SString& text, const SString& separator);
    // Appends `separator` when this string and `text` are non-empty and it is not 0, then `text`.
    void AddSeparated(const SString& text, char separator);

    // A new private record of length n (not cleared, flag 0); the caller may write n characters.
    // Sizes past 0x7FFFFFEF fail as out of memory (std::bad_alloc), like any failed allocation.
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

    // Zero-terminated UTF-16 text converted to the code page (0 and 3 Windows-1252, 1250-1254,
    // 65001 UTF-8 with the flag set); text that does not fit or convert gives length 0.
    SString(const char16_t* text, unsigned int codePage);
    // The text as flagged UTF-8.
    SString(const std::u16string& text);
    // Appends one character: below 128 as one byte, else as UTF-8, which sets the flag.
    SString& operator+=(char16_t c);
    // The same for a UTF-32 character (L'x'); characters beyond U+10FFFF append nothing.
    SString& operator+=(wchar_t c);
    // A new array of Len() + 1 UTF-16 units decoded in the code page (empty when it cannot
    // decode the text); the caller frees it with delete[].
    char16_t* CreateWCHARArr(unsigned int codePage) const;
    // The text converted from the code page (3, the thread's, by default) to flagged UTF-8; a
    // flagged or plain ASCII text is returned as it is, a failed conversion gives "".
    SString AnsiToUTF8() const;
    SString AnsiToUTF8(unsigned int codePage) const;
    // The UTF-8 text converted to the code page (3 by default), flag 0; text that is not UTF-8
    // gives "", text the code page cannot hold a copy of this string.
    SString UTF8ToAnsi() const;
    SString UTF8ToAnsi(unsigned int codePage) const;
    SString UTF8ToCzech() const;   // code page 1250
    SString UTF8ToRussian() const; // 1251
    SString UTF8ToEnglish() const; // 1252
    SString UTF8ToGreek() const;   // 1253
    SString UTF8ToTurkish() const; // 1254
    // Converts the text in place between character sets; nothing for CHARSET_DONTKNOW,
    // CHARSET_NONE or equal sets (CHARSET_SYSTEM counts as GetSystemCharSet()).
    void Convert(CharSet from, CharSet to);
    // Converts one character the same way.
    static char Convert(char c, CharSet from, CharSet to);
    // Whether more than half of the characters are letters of the application's transcript
    // script, a letter repeating the one before it not counted; false without transcript data.
    bool IsTranscript() const;
    static bool IsTranscript(const char* text);

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

    // Without regard to case: UTF-8 text folds ASCII letters only, other text follows the
    // locale of SetLocale or else the current locale (as _stricmp/_strnicmp).
    StringCompare ICompare(const SString& s, unsigned int n = STRING_LEN) const;
    StringCompare ICompare(const char* text, unsigned int n = STRING_LEN) const;
    // Same record, or equal lengths and equal texts without regard to case.
    bool NoCaseEqual(const SString& s) const;
    // Index of the first character that differs from `s` (whose end counts as a difference);
    // STRING_MATCH when this string is a prefix of `s`, equal to it, or empty.
    unsigned int Match(const SString& s) const;
    unsigned int Match(const char* s) const;
    // STRING_MATCH when the shorter of the two is a prefix of the other without regard to
    // case (or this string is empty), else 0.
    unsigned int IMatch(const SString& s) const;
    // Whether `s` is non-empty and this string ends with it.
    bool EndsOn(const SString& s) const;

    // `length` characters from `index`, cut to the text; the whole text shares the record.
    SString Copy(unsigned int index, unsigned int length = STRING_LEN) const;
    // Copy(index, length), then erases that range.
    SString Cut(unsigned int index, unsigned int length = STRING_LEN);
    // The text before the last `c`; the whole text when there is none.
    SString CopyToLastChar(char c) const;

    // Erases `length` characters from `index`, cut to the text; nothing at or past the end.
    void Erase(unsigned int index, unsigned int length = STRING_LEN);
    // Erases every `c`.
    void EraseAllChars(char c);
    // Erase the run of `c` at the start, at the end, or both.
    void EraseLeadingChars(char c = ' ');
    void EraseTrailingChars(char c = ' ');
    void Trim(char c = ' ');

    // Pads with `c` to `length` characters (no cut at STRING_MAXLEN); shorter does nothing.
    void Expand(unsigned int length, char c = ' ');
    // A longer `length` makes the string min(length, STRING_MAXLEN) copies of `c`; otherwise
    // the first `length` characters are overwritten with `c`.
    void Fill(unsigned int length, char c = ' ');

    // Inserts `text` at `position` (cut to the length); the flags are ORed. Texts that would
    // pass STRING_MAXLEN keep the head, as much of the text as fits, then of the old tail.
    void Insert(const SString& text, unsigned int position);
    // Inserts `length` characters of `text` from `index` (cut to it) at `position`.
    void Insert(const SString& text, unsigned int index, unsigned int length, unsigned int position);
    // Inserts a zero-terminated text; the flag is kept.
    void Insert(const char* text, unsigned int position);
    // Inserts one character; at STRING_MAXLEN the last character drops out (nothing at the end).
    void Insert(char c, unsigned int position);

    // Overwrites from `position` with `text`, never past the end.
    void Replace(const SString& text, unsigned int position);
    // Sets the character at `position` when it is inside the string.
    void Replace(char c, unsigned int position);
    // Every `from` becomes `to`.
    void ReplaceAllChars(char from, char to);
    // Replaces every `what` that starts a match at an index from `start` below start + count
    // (the match itself may be found further on) by `with`, continuing after the inserted
    // text. A negative start or count changes nothing.
    void ReplaceAllPhrases(const SString& what, const SString& with, int start = 0, int count = int(STRING_LEN));
    // The same without regard to case, from `start` to the end.
    void ReplaceAllPhrasesI(const SString& what, const SString& with, int start = 0);
    // One left-to-right pass replacing non-overlapping matches; the result is not flagged UTF-8.
    void ReplaceAllPhrases2(const SString& what, const SString& with);
    // Reverses the bytes.
    void Reverse();
    // Blanks become "0", or "0" becomes a blank, up to the first zero byte.
    void SpaceToZero();
    void ZeroToSpace();
    // Case conversion: ASCII letters for UTF-8 text, else the locale's (multibyte-aware).
    void ToLower();
    void ToUpper();
    SString Lower() const;
    SString Upper() const;
    // Makes every line end (CR, LF, CR LF or LF CR) the target's; nothing when all already are
    // or when the text would reach STRING_MAXLEN.
    void ConvertLineEnd(LineEnd target = LINEEND_CRLF);

    // First occurrence at or after `from`; a zero in the text ends a comparison.
    unsigned int Search(const SString& what, unsigned int from = 0) const;
    unsigned int Search(const char* what, unsigned int from = 0) const;
    unsigned int Search(char c, unsigned int from = 0) const;
    // Search without regard to case.
    unsigned int NoCaseSearch(const SString& what, unsigned int from = 0) const;
    // Last occurrence starting at or before `from`, which must be inside the string.
    unsigned int SearchBackward(const SString& what, unsigned int from) const;
    // Last occurrence anywhere; a one-character `what` is always searched case-sensitively.
    unsigned int SearchFromEnd(const SString& what, bool noCase = false) const;
    unsigned int SearchFromEnd(char c) const;

    // 0 for the empty string, else 1 + the number of separators.
    unsigned int GetTokenCount(char sep) const;
    // Token `index` (from 0); empty past the last token.
    SString GetToken(unsigned int index, char sep) const;
    // Start of token `index`; 0 for token 0, when it does not exist, or when it is the empty
    // token after a separator that ends the string.
    unsigned int GetTokenPos(unsigned int index, char sep) const;
    // Every token, stripped of leading and trailing blanks.
    std::vector<SString> GetAllTokens(char sep) const;

    // Whether every character (true for the empty string) is an ASCII letter, a letter or
    // digit, a digit, digits after an optional "-", not upper case, not lower case.
    bool IsAlpha() const;
    bool IsAlphaNumeric() const;
    bool IsNumeric() const;
    bool IsNumber() const;
    bool IsLower() const;
    bool IsUpper() const;

    // Appends the text to a list of zero-terminated strings ended by an empty one; the caller
    // guarantees the room.
    void AddToStringListBuffer(char* buffer) const;

    // The number of characters.
    unsigned int Len() const;
    // True for the empty string.
    bool operator!() const;
    // The zero-terminated text; valid until this string changes.
    operator const char*() const;
    // The character at `index`; 0 at or beyond the end.
    char operator[](unsigned int index) const;

    // Case conversion and comparison of non-UTF-8 text use this POSIX locale_t (from
    // newlocale, kept alive by the caller) when set, else the calling thread's current locale;
    // null unsets it. Call it again after changing the locale object.
    static void SetLocale(void* locale);

private:
    struct Adopt {};
    friend class SStringLock;
    friend class SStringPairLock;
    friend class SStringRef;
    friend struct SStringAccess;

    // Takes over a record that the caller made or referenced.
    SString(Adopt, SStringData* rec) noexcept;
    // The UTF-8 text decoded and encoded in the code page.
    SString UTF8ToLanguage(unsigned int codePage) const;
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
