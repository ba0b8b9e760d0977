#pragma once

// Conversions between the library's code pages and UTF-16, for the text classes.
//
// Code pages: 0 (the system's ANSI set) and 3 (the calling thread's ANSI set) are both
// Windows-1252; 1250 to 1254 are the Windows sets of those numbers; 65001 is UTF-8. Any other
// number fails.
//
// The functions follow one contract:
// - srcLength -1 converts the zero-terminated source including its zero, and the count
//   returned then includes the zero; a srcLength >= 0 converts exactly that many units.
// - The result is the number of units written to dst; 0 means failure: a null or empty source,
//   an unknown code page, a destination of dstSize units too small for the whole result, or
//   input that the code page cannot represent. There is no default character and no
//   replacement: malformed UTF-8, lone surrogates, bytes a code page leaves undefined and
//   characters a code page lacks all fail the whole call.
// - dst may have been written to when the call fails.


#include <cstdint>

namespace vesk::platform {

inline constexpr unsigned int CODEPAGE_SYSTEM = 0;
inline constexpr unsigned int CODEPAGE_THREAD = 3;
inline constexpr unsigned int CODEPAGE_UTF8 = 65001;

// Decodes text in codePage into UTF-16; returns the units written, 0 on failure.
int MultiByteToWide(unsigned int codePage, const char* src, int srcLength, char16_t* dst,
    int dstSize);

// Encodes UTF-16 text in codePage; returns the bytes written, 0 on failure.
int WideToMultiByte(unsigned int codePage, const char16_t* src, int srcLength, char* dst,
    int dstSize);

// Converts text from one code page to another in one pass, with the result that decoding to
// UTF-16 and encoding that would give; returns the bytes written, 0 on failure.
int MultiByteToMultiByte(unsigned int fromPage, const char* src, int srcLength,
    unsigned int toPage, char* dst, int dstSize);

} // namespace vesk::platform
