#pragma once

// UTF-8 and UTF-16 conversion for the platform layer's text files and wide interfaces.


#include <string>
#include <string_view>

namespace vesk::platform {

// Appends UTF-8 text as UTF-16. A byte that does not start a valid sequence stands for
// itself (U+0000 to U+00FF), so text that is not UTF-8 keeps every byte in the low eight bits.
void AppendUtf8AsUtf16(std::string_view utf8, std::u16string& out);
// The same into out, which has room for utf8.size() units; returns the end of what it wrote.
char16_t* Utf8ToUtf16Units(std::string_view utf8, char16_t* out);

// Appends UTF-16 text as UTF-8; an unpaired surrogate becomes U+FFFD.
void AppendUtf16AsUtf8(std::u16string_view utf16, std::string& out);

inline std::u16string Utf8ToUtf16(std::string_view utf8)
{
    std::u16string out;
    AppendUtf8AsUtf16(utf8, out);
    return out;
}

inline std::string Utf16ToUtf8(std::u16string_view utf16)
{
    std::string out;
    AppendUtf16AsUtf8(utf16, out);
    return out;
}

} // namespace vesk::platform
