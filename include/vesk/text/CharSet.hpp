#pragma once

// The library's 8-bit character sets and the conversions between them.

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>

#include <cstdint>

namespace vesk {

// 8-bit character sets; values outside 1-8 are read as CHARSET_ANSI by the table look-ups.
enum CharSet : int {
    CHARSET_DONTKNOW = 0, // unknown: no conversion is done
    CHARSET_ANSI = 1,     // Windows code page 1252
    CHARSET_MAC = 2,      // Mac Roman
    CHARSET_IBMPC_437 = 3,
    CHARSET_IBMPC_850 = 4,
    CHARSET_IBMPC_860 = 5, // Portuguese
    CHARSET_IBMPC_861 = 6, // Icelandic
    CHARSET_IBMPC_863 = 7, // Canadian French
    CHARSET_IBMPC_865 = 8, // Nordic
    CHARSET_SYSTEM = 9,    // the system's set, GetSystemCharSet()
    CHARSET_NONE = 10,     // no conversion is done
};

// Converts the zero-terminated text in place from one character set to another.
VESK_API void ImpStringConvert(char* text, CharSet from, CharSet to);

// The library number of byte c in set: 0 = none, 1-127 an ASCII substitute, 128-255 the
// ISO 8859-1 character, 256-687 the library's own numbering. Bytes below 0x80 are their own
// number.
VESK_API uint16_t ImpCharToChar16(char c, CharSet set);

// The byte standing for library number 128-687 in set (0 = the set lacks it); '?' otherwise.
VESK_API char ImpChar16ToChar(uint16_t number, CharSet set);

// The system's character set: always CHARSET_ANSI.
VESK_API CharSet GetSystemCharSet();

// The system's line end: always LINEEND_CRLF.
VESK_API LineEnd GetSystemLineEnd();

} // namespace vesk
