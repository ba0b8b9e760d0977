#pragma once

// How the settings store writes key paths, value names and typed values into its profile
// file. A key path becomes a section ("[Control Panel\Colors]"), a value name a key, and a
// value one of:
//   dword:<decimal 0 to 4294967295>
//   sz:<UTF-8 text>
//   hex:<two hexadecimal digits per byte, any length>
// Names and text escape what the file's lines cannot carry ('%', control characters, the
// format's own marks, blanks at either end) as %XX with upper-case hexadecimal digits.


#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vesk::platform::settings {

// The section of a key path: its parts between '\' (empty parts dropped), each escaped.
std::string SectionOf(std::u16string_view keyPath);
// The key of a value name.
std::string KeyOf(std::u16string_view name);

std::string EncodeDword(uint32_t value);
std::string EncodeString(std::u16string_view value);
std::string EncodeBinary(std::span<const uint8_t> value);

// Each decoder returns false for text of another type or damaged text.
bool DecodeDword(std::string_view text, uint32_t& value);
bool DecodeString(std::string_view text, std::u16string& value);
bool DecodeBinary(std::string_view text, std::vector<uint8_t>& value);

} // namespace vesk::platform::settings
