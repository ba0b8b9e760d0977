#include <vesk/text/CharSet.hpp>

#include "text/CharSetTables_p.hpp"

namespace vesk {

using detail::kCharSetSource;
using detail::kCharSetTarget;
using detail::kFirstCharNumber;
using detail::kLastCharNumber;

namespace {

// Table column of a set; every set outside 1-8 reads the columns of set 1.
int Column(CharSet set)
{
    return set >= CHARSET_ANSI && set <= CHARSET_IBMPC_865 ? set - 1 : 0;
}

unsigned char ConvertUpperByte(unsigned char byte, int source, int target)
{
    const uint16_t number = kCharSetSource[byte - 0x80][source];
    if (number == 0 || number > kLastCharNumber)
        return byte;
    if (number < kFirstCharNumber)
        return static_cast<unsigned char>(number); // ASCII substitute
    const uint8_t converted = kCharSetTarget[number - kFirstCharNumber][target];
    return converted != 0 ? converted : byte;
}

// The DOS sets keep the section sign at 0x15, among the control codes, so it is moved by hand
// to where the target set has it.
unsigned char SectionSignByte(CharSet from, CharSet to)
{
    constexpr unsigned char kDosSection = 0x15;
    if (from == CHARSET_DONTKNOW || from == CHARSET_NONE || to == CHARSET_DONTKNOW
        || to == CHARSET_NONE)
        return kDosSection;
    const int source = from == CHARSET_SYSTEM ? CHARSET_ANSI : from;
    const int target = to == CHARSET_SYSTEM ? CHARSET_ANSI : to;
    if (source < CHARSET_IBMPC_437 || source > CHARSET_IBMPC_865 || source == target)
        return kDosSection;
    switch (target) {
    case CHARSET_ANSI: return 0xA7;
    case CHARSET_MAC: return 0xA4;
    case CHARSET_IBMPC_850: return 0xF5;
    case CHARSET_IBMPC_863: return 0x8F;
    default: return kDosSection;
    }
}

} // namespace

void ImpStringConvert(char* text, CharSet from, CharSet to)
{
    if (text == nullptr)
        return;
    const int source = Column(from);
    const int target = Column(to);
    const unsigned char section = SectionSignByte(from, to);
    for (auto* p = reinterpret_cast<unsigned char*>(text); *p != 0; ++p) {
        if (*p >= 0x80)
            *p = ConvertUpperByte(*p, source, target);
        else if (*p == 0x15)
            *p = section;
    }
}

uint16_t ImpCharToChar16(char c, CharSet set)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x80 ? byte : kCharSetSource[byte - 0x80][Column(set)];
}

char ImpChar16ToChar(uint16_t number, CharSet set)
{
    if (number < kFirstCharNumber || number > kLastCharNumber)
        return '?';
    return static_cast<char>(kCharSetTarget[number - kFirstCharNumber][Column(set)]);
}

CharSet GetSystemCharSet()
{
    return CHARSET_ANSI;
}

LineEnd GetSystemLineEnd()
{
    return LINEEND_CRLF;
}

} // namespace vesk
