#pragma once

#include <cstdint>

namespace vesk {

enum class SearchDirection { Forward, Backward };

// Finds the pattern `what` of wl bytes in text[0..len), compared as strncmp does (bytes after
// a zero in the pattern take no part), or as strncasecmp does through the lower-case table
// `fold` when it is not null. Only starts whose whole pattern fits before len count: forward
// gives the first at or after `from`, backward the last at or before `from`. Linear in
// len + wl; STRING_NOTFOUND when there is none or wl is 0.
uint32_t FindPattern(const char* text, uint32_t len, const char* what, uint32_t wl, uint32_t from,
                     SearchDirection direction, const unsigned char* fold);

} // namespace vesk
