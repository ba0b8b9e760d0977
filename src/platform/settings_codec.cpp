#include "platform/settings_codec.hpp"

#include "platform/utf.hpp"

#include <utility>

namespace vesk::platform::settings {

namespace {

constexpr std::string_view kDword = "dword:", kString = "sz:", kBinary = "hex:";
constexpr char kHexDigits[] = "0123456789ABCDEF";

int HexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

// Escapes marks that would change how the line reads: the escape itself, control characters,
// the section, key and comment marks, and blanks that trimming would drop.
std::string Escape(std::u16string_view text, std::string_view marks)
{
    std::string utf8 = Utf16ToUtf8(text), out;
    for (size_t i = 0; i < utf8.size(); ++i) {
        auto c = static_cast<uint8_t>(utf8[i]);
        bool blankAtEnd = (c == ' ' || c == '\t') && (i == 0 || i + 1 == utf8.size());
        if (c < 0x20 || c == 0x7F || c == '%' || blankAtEnd || marks.find(static_cast<char>(c)) != std::string_view::npos) {
            out += '%';
            out += kHexDigits[c >> 4];
            out += kHexDigits[c & 15];
        } else {
            out += static_cast<char>(c);
        }
    }
    return out;
}

std::string EscapeName(std::u16string_view name)
{
    return Escape(name, "[]=;#");
}

} // namespace

std::string SectionOf(std::u16string_view keyPath)
{
    std::string section;
    while (!keyPath.empty()) {
        size_t separator = keyPath.find(u'\\');
        std::u16string_view part = keyPath.substr(0, separator);
        keyPath.remove_prefix(separator == std::u16string_view::npos ? keyPath.size() : separator + 1);
        if (part.empty())
            continue;
        if (!section.empty())
            section += '\\';
        section += EscapeName(part);
    }
    return section;
}

std::string KeyOf(std::u16string_view name)
{
    return EscapeName(name);
}

std::string EncodeDword(uint32_t value)
{
    return std::string(kDword) + std::to_string(value);
}

std::string EncodeString(std::u16string_view value)
{
    return std::string(kString) + Escape(value, {});
}

std::string EncodeBinary(std::span<const uint8_t> value)
{
    std::string out(kBinary);
    out.reserve(out.size() + 2 * value.size());
    for (uint8_t byte : value) {
        out += kHexDigits[byte >> 4];
        out += kHexDigits[byte & 15];
    }
    return out;
}

bool DecodeDword(std::string_view text, uint32_t& value)
{
    if (!text.starts_with(kDword))
        return false;
    text.remove_prefix(kDword.size());
    if (text.empty() || text.size() > 10)
        return false;
    uint64_t number = 0;
    for (char c : text) {
        if (c < '0' || c > '9')
            return false;
        number = number * 10 + static_cast<uint64_t>(c - '0');
    }
    if (number > UINT32_MAX)
        return false;
    value = static_cast<uint32_t>(number);
    return true;
}

bool DecodeString(std::string_view text, std::u16string& value)
{
    if (!text.starts_with(kString))
        return false;
    text.remove_prefix(kString.size());
    std::string utf8;
    for (size_t i = 0; i < text.size(); ++i) {
        int high = -1, low = -1;
        if (text[i] == '%' && i + 2 < text.size()) {
            high = HexValue(text[i + 1]);
            low = HexValue(text[i + 2]);
        }
        if (high >= 0 && low >= 0) {
            utf8 += static_cast<char>(high << 4 | low);
            i += 2;
        } else {
            utf8 += text[i]; // a stray '%' stands for itself
        }
    }
    value = Utf8ToUtf16(utf8);
    return true;
}

bool DecodeBinary(std::string_view text, std::vector<uint8_t>& value)
{
    if (!text.starts_with(kBinary))
        return false;
    text.remove_prefix(kBinary.size());
    if (text.size() % 2 != 0)
        return false;
    std::vector<uint8_t> bytes(text.size() / 2);
    for (size_t i = 0; i < bytes.size(); ++i) {
        int high = HexValue(text[2 * i]), low = HexValue(text[2 * i + 1]);
        if (high < 0 || low < 0)
            return false;
        bytes[i] = static_cast<uint8_t>(high << 4 | low);
    }
    value = std::move(bytes);
    return true;
}

} // namespace vesk::platform::settings
