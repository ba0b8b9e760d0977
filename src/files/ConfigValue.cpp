#include "files/ConfigValue_p.hpp"

#include <algorithm>
#include <string>

namespace vesk {

namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

// The digit's value; -1 for anything but 0-9 and upper-case A-F.
int HexDigit(char16_t unit)
{
    for (int i = 0; i < 16; ++i) {
        if (unit == static_cast<char16_t>(kHexDigits[i]))
            return i;
    }
    return -1;
}

} // namespace

void ImpConfigEncode(const char* bytes, unsigned int length, std::u16string& out)
{
    for (unsigned int i = 0; i < length; ++i) {
        auto byte = static_cast<uint8_t>(bytes[i]);
        if (byte < 128 && byte != '/') {
            out += static_cast<char16_t>(byte);
        } else {
            out += u'/';
            out += static_cast<char16_t>(kHexDigits[byte >> 4]);
            out += static_cast<char16_t>(kHexDigits[byte & 15]);
        }
    }
}

SString ImpConfigDecode(const char16_t* units, uint32_t length)
{
    std::string bytes;
    bytes.reserve(length);
    for (uint32_t i = 0; i < length; ++i) {
        char16_t unit = units[i];
        // A UTF-8 continuation byte 0x9F that an 8-bit code page turned into the letter U+0178.
        if (unit == 376 && i > 0 && units[i - 1] == 195) {
            bytes += static_cast<char>(159);
            continue;
        }
        if ((unit & 0xFF) == '/' && i + 2 < length) {
            int high = HexDigit(units[i + 1]), low = HexDigit(units[i + 2]);
            if (high >= 0 && low >= 0) {
                bytes += static_cast<char>(high * 16 + low);
                i += 2;
                continue;
            }
        }
        bytes += static_cast<char>(unit & 0xFF);
    }
    // Cut first: a length of STRING_LEN would mean "up to the zero".
    auto kept = static_cast<unsigned int>(std::min<size_t>(bytes.size(), STRING_MAXLEN));
    SString value(bytes.data(), 0, kept, true);
    if (value.MayBeUTF8())
        value.SetIsUTF8();
    return value;
}

} // namespace vesk
