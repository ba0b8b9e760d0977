#include "platform/system_colors.hpp"

#include "platform/settings.hpp"

#include <charconv>
#include <string>

namespace vesk::platform {

namespace {

struct SystemColorEntry {
    int index;
    const char16_t* name; // the value's name in the store
    uint8_t red, green, blue; // the classic desktop scheme
};

constexpr SystemColorEntry kSystemColors[] = {
    {0, u"Scrollbar", 212, 208, 200},
    {4, u"Menu", 212, 208, 200},
    {5, u"Window", 255, 255, 255},
    {7, u"MenuText", 0, 0, 0},
    {8, u"WindowText", 0, 0, 0},
    {13, u"Hilight", 10, 36, 106},
    {14, u"HilightText", 255, 255, 255},
    {15, u"ButtonFace", 212, 208, 200},
    {16, u"ButtonShadow", 128, 128, 128},
    {18, u"ButtonText", 0, 0, 0},
    {20, u"ButtonHilight", 255, 255, 255},
};

uint32_t Pack(uint32_t red, uint32_t green, uint32_t blue)
{
    return red | green << 8 | blue << 16;
}

// Reads "r g b": three decimal numbers of 0 to 255 separated by blanks, nothing else.
bool ParseColor(const std::u16string& text, uint32_t& color)
{
    std::string ascii;
    for (char16_t c : text) {
        if (c >= 0x80)
            return false;
        ascii += static_cast<char>(c);
    }
    const char* at = ascii.data();
    const char* end = at + ascii.size();
    uint32_t channels[3];
    for (uint32_t& channel : channels) {
        while (at < end && (*at == ' ' || *at == '\t'))
            ++at;
        auto [next, error] = std::from_chars(at, end, channel);
        if (error != std::errc() || next == at || channel > 255)
            return false;
        at = next;
    }
    while (at < end && (*at == ' ' || *at == '\t'))
        ++at;
    if (at != end)
        return false;
    color = Pack(channels[0], channels[1], channels[2]);
    return true;
}

} // namespace

uint32_t SystemColor(int index)
{
    for (const SystemColorEntry& entry : kSystemColors) {
        if (entry.index != index)
            continue;
        std::u16string text;
        uint32_t color;
        if (settings::ReadString(u"Control Panel\\Colors", entry.name, text) && ParseColor(text, color))
            return color;
        return Pack(entry.red, entry.green, entry.blue);
    }
    return 0;
}

} // namespace vesk::platform
