#pragma once

// Where saved layouts live in the settings store, and how their values are encoded.
#include <vesk/text/UString.hpp>
#include <vesk/values/CRectangle.hpp>

#include <cstdint>
#include <string>

namespace vesk {

// "<base>\DockingManagers\<profile><kind>-<index decimal>", then the id in lower-case
// hexadecimal when it is not PANE_DEFAULT_STATE_ID.
std::u16string DockingSectionPath(const UString& profile, const char* kind, int32_t index, uint32_t id);

// Rectangles are binary values of 16 bytes: left, top, right, bottom as little-endian signed
// 32-bit numbers. A value of another length reads as absent.
bool WriteRectValue(const std::u16string& path, const char16_t* name, const CRectangle& rect);
bool ReadRectValue(const std::u16string& path, const char16_t* name, CRectangle& rect);
// 32-bit numbers in the store are unsigned; signed values keep their bits.
bool WriteIntValue(const std::u16string& path, const char16_t* name, int32_t value);
bool ReadIntValue(const std::u16string& path, const char16_t* name, int32_t& value);

} // namespace vesk
