#include "platform/locale_formats.hpp"
#include "platform/locale_strftime.hpp"

#include <cstring>
#include <vector>

namespace vesk::platform {

ClockFormat ClockFromTimeFormat(const TimeFormats& formats)
{
    ClockFormat clock;
    std::vector<FormatPiece> pieces = SplitFormat(ExpandFormat(formats.time, formats));
    for (size_t i = 0; i < pieces.size(); ++i) {
        const FormatPiece& piece = pieces[i];
        if (!piece.isField || !std::strchr("HIkl", piece.conversion))
            continue;
        clock.nTime = piece.conversion == 'I' || piece.conversion == 'l' ? 0 : 1;
        clock.nLeadingZero = piece.noPadding || piece.conversion == 'k' || piece.conversion == 'l' ? 0 : 1;
        if (i + 1 < pieces.size() && !pieces[i + 1].isField)
            clock.sSeparator = pieces[i + 1].text;
        break;
    }
    return clock;
}

std::optional<int> PositiveCurrencyCode(int csPrecedes, int sepBySpace)
{
    if (csPrecedes < 0 || csPrecedes > 1 || sepBySpace < 0 || sepBySpace > 2)
        return std::nullopt;
    // A separation of 2 puts the space next to the (empty) positive sign, not the symbol.
    bool space = sepBySpace == 1;
    return csPrecedes ? (space ? 2 : 0) : (space ? 3 : 1);
}

std::optional<int> NegativeCurrencyCode(int csPrecedes, int sepBySpace, int signPosn)
{
    // [symbol first][sign position 0 to 4][separation 0 to 2]
    static constexpr int kCodes[2][5][3] = {
        {{4, 4, 4}, {5, 8, 5}, {7, 10, 7}, {6, 6, 6}, {7, 10, 7}},
        {{0, 0, 0}, {1, 9, 1}, {3, 3, 3}, {1, 9, 1}, {2, 2, 11}},
    };
    if (csPrecedes < 0 || csPrecedes > 1 || sepBySpace < 0 || sepBySpace > 2 || signPosn < 0 || signPosn > 4)
        return std::nullopt;
    return kCodes[csPrecedes][signPosn][sepBySpace];
}

} // namespace vesk::platform
