#pragma once

// How Config stores a value's bytes in a profile file and reads them back.

#include <vesk/text/SString.hpp>

#include <cstdint>
#include <string>

namespace vesk {

// Appends the encoding of length bytes: a byte below 128 other than '/' as the character of
// that code, '/' and every byte of 128 or more as '/' and two upper-case hexadecimal digits.
void ImpConfigEncode(const char* bytes, unsigned int length, std::u16string& out);

// The bytes of what the profile reader returned: "/XX" escapes with upper-case digits decoded,
// U+0178 after U+00C3 repaired to the byte 159, the low eight bits of any other unit; the
// result is marked UTF-8 when it can be.
SString ImpConfigDecode(const char16_t* units, uint32_t length);

} // namespace vesk
