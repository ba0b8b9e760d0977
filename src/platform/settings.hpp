#pragma once

// The per-user settings store: key paths ("Software\Microsoft\Accessibility") holding named
// values of three types (32-bit number, text, bytes of any length), in one file of the user's
// config directory. Reads come from a cache that follows changes of the file on disk; every
// write replaces the file atomically under a lock (see CachedProfile). A missing, unreadable or
// damaged file or value reads as absent, so the caller's defaults stand.


#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vesk::platform::settings {

// <config directory>/vesk/settings.ini
std::string FilePath();

// Each read is false when the value is absent, damaged or of another type.
bool ReadDword(std::u16string_view keyPath, std::u16string_view name, uint32_t& value);
bool ReadString(std::u16string_view keyPath, std::u16string_view name, std::u16string& value);
bool ReadBinary(std::u16string_view keyPath, std::u16string_view name, std::vector<uint8_t>& value);

// Each write creates the key path as needed; false when the file cannot be written or the
// name or key path is empty.
bool WriteDword(std::u16string_view keyPath, std::u16string_view name, uint32_t value);
bool WriteString(std::u16string_view keyPath, std::u16string_view name, std::u16string_view value);
bool WriteBinary(std::u16string_view keyPath, std::u16string_view name, std::span<const uint8_t> value);

// Removes one value; true when it is absent afterwards.
bool DeleteValue(std::u16string_view keyPath, std::u16string_view name);
// Removes a key path with its values and every key below it; true when they are absent afterwards.
bool DeleteKey(std::u16string_view keyPath);

} // namespace vesk::platform::settings
