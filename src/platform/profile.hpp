#pragma once

// The private-profile functions over the profile engine: wide (UTF-16) names and values,
// files in UTF-8 (see ProfileDocument for the format). A file name without '/' names a file
// in the user's config directory.


#include <cstdint>
#include <string_view>

namespace vesk::platform {

// With a key: copies the key's value, or defaultValue (null: empty) without its trailing
// blanks when the key is absent, cut to size - 1 characters and zero-ended; returns the
// number of characters copied. Without a key: copies the section's key names, each ended by a
// zero and the list by a second zero, and returns the length without the last zero; a list
// that does not fit is cut, ended by two zeros, and the result is size - 2. Without a
// section: an empty result.
uint32_t GetPrivateProfileString(const char16_t* section, const char16_t* key,
    const char16_t* defaultValue, char16_t* buffer, uint32_t size, std::string_view file);

// Writes value under key in section; without a value deletes the key, without a key deletes
// the section, without a section makes the file durable. Returns false when the file cannot
// be written or a name or value cannot be stored (a line break, '=' or a leading '[', ';' or
// '#' in a key, ']' in a section name).
bool WritePrivateProfileString(const char16_t* section, const char16_t* key, const char16_t* value,
    std::string_view file);

} // namespace vesk::platform
