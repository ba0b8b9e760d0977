#pragma once

// How the string classes reach the transcript settings and test text against them.

#include <vesk/text/TranscriptData.hpp>

#include <cstdint>
#include <string_view>

namespace vesk::detail {

// The application's transcript settings, or null while the library state holds none.
const TranscriptData* CurrentTranscriptData();

// Whether the bytes are transcript text for data: more than half of them are letters of its
// script, where a letter repeating the byte before it does not count. False for null data or
// data without a transcript language.
bool IsTranscriptText(const TranscriptData* data, const char* text, uint32_t length);

// The same for UTF-16 text, read in the transcript code page; text that the code page cannot
// hold is not transcript text.
bool IsTranscriptWide(const TranscriptData* data, std::u16string_view text);

} // namespace vesk::detail
