#include "platform/utf.hpp"

#include <cstdint>

namespace vesk::platform {

namespace {

// Length of the valid UTF-8 sequence at the start of s, 0 when there is none. Overlong
// forms, surrogates and values past U+10FFFF are not valid.
size_t SequenceLength(std::string_view s, char32_t& code)
{
    const auto byte = [&](size_t i) { return static_cast<uint8_t>(s[i]); };
    const uint8_t lead = byte(0);
    size_t length;
    char32_t min;
    if (lead < 0x80) {
        code = lead;
        return 1;
    } else if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2, min = 0x80, code = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3, min = 0x800, code = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4, min = 0x10000, code = lead & 0x07;
    } else {
        return 0;
    }
    if (s.size() < length)
        return 0;
    for (size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return 0;
        code = (code << 6) | (byte(i) & 0x3F);
    }
    if (code < min || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        return 0;
    return length;
}

// Writes code as UTF-8 at out and returns the position after it.
char* PutCodePoint(char32_t code, char* out)
{
    if (code < 0x80) {
        *out++ = static_cast<char>(code);
    } else if (code < 0x800) {
        *out++ = static_cast<char>(0xC0 | (code >> 6));
        *out++ = static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        *out++ = static_cast<char>(0xE0 | (code >> 12));
        *out++ = static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        *out++ = static_cast<char>(0x80 | (code & 0x3F));
    } else {
        *out++ = static_cast<char>(0xF0 | (code >> 18));
        *out++ = static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        *out++ = static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        *out++ = static_cast<char>(0x80 | (code & 0x3F));
    }
    return out;
}

} // namespace

// Both conversions size the output for the longest result first and write through a pointer:
// these run on every profile read.
char16_t* Utf8ToUtf16Units(std::string_view utf8, char16_t* at)
{
    while (!utf8.empty()) {
        if (static_cast<uint8_t>(utf8[0]) < 0x80) { // the common case, without decoding
            *at++ = static_cast<char16_t>(utf8[0]);
            utf8.remove_prefix(1);
            continue;
        }
        char32_t code;
        size_t length = SequenceLength(utf8, code);
        if (length == 0) {
            code = static_cast<uint8_t>(utf8[0]);
            length = 1;
        }
        if (code >= 0x10000) {
            code -= 0x10000;
            *at++ = static_cast<char16_t>(0xD800 + (code >> 10));
            *at++ = static_cast<char16_t>(0xDC00 + (code & 0x3FF));
        } else {
            *at++ = static_cast<char16_t>(code);
        }
        utf8.remove_prefix(length);
    }
    return at;
}

void AppendUtf8AsUtf16(std::string_view utf8, std::u16string& out)
{
    size_t start = out.size();
    out.resize(start + utf8.size()); // one unit per byte at most
    char16_t* end = Utf8ToUtf16Units(utf8, out.data() + start);
    out.resize(static_cast<size_t>(end - out.data()));
}

void AppendUtf16AsUtf8(std::u16string_view utf16, std::string& out)
{
    // A leading ASCII run takes one byte per unit, the rest three bytes per unit at most;
    // sizing for that keeps short names within the string's own storage.
    size_t ascii = 0;
    while (ascii < utf16.size() && utf16[ascii] < 0x80)
        ++ascii;
    size_t start = out.size();
    out.resize(start + ascii + 3 * (utf16.size() - ascii));
    char* at = out.data() + start;
    for (size_t i = 0; i < ascii; ++i)
        *at++ = static_cast<char>(utf16[i]);
    for (size_t i = ascii; i < utf16.size(); ++i) {
        char32_t code = utf16[i];
        if (code >= 0xD800 && code <= 0xDBFF && i + 1 < utf16.size() && utf16[i + 1] >= 0xDC00
            && utf16[i + 1] <= 0xDFFF) {
            code = 0x10000 + ((code - 0xD800) << 10) + (utf16[++i] - 0xDC00);
        } else if (code >= 0xD800 && code <= 0xDFFF) {
            code = 0xFFFD;
        }
        at = PutCodePoint(code, at);
    }
    out.resize(static_cast<size_t>(at - out.data()));
}

} // namespace vesk::platform
