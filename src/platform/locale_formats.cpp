#include "platform/locale_formats.hpp"

#include <cstring>
#include <vector>

namespace vesk::platform {

namespace {

// One piece of a strftime format: literal text, or a conversion with its flag.
struct Piece {
    bool isField;
    char conversion; // the conversion letter of a field
    bool noPadding;  // a '-' flag
    std::string text; // the literal text
};

// Splits a format into literal text and conversions; "%%" is a literal '%'. Flags other than
// '-', field widths and the E and O modifiers are read over.
std::vector<Piece> Split(std::string_view format)
{
    std::vector<Piece> pieces;
    auto literal = [&pieces](char c) {
        if (pieces.empty() || pieces.back().isField)
            pieces.push_back(Piece{false, 0, false, {}});
        pieces.back().text += c;
    };
    size_t i = 0;
    while (i < format.size()) {
        char c = format[i++];
        if (c != '%') {
            literal(c);
            continue;
        }
        bool noPadding = false;
        while (i < format.size() && std::strchr("-_0^#", format[i])) {
            noPadding = noPadding || format[i] == '-';
            ++i;
        }
        while (i < format.size() && ((format[i] >= '0' && format[i] <= '9') || format[i] == 'E' || format[i] == 'O'))
            ++i;
        if (i == format.size())
            break;
        char conversion = format[i++];
        if (conversion == '%')
            literal('%');
        else
            pieces.push_back(Piece{true, conversion, noPadding, {}});
    }
    return pieces;
}

// Replaces the composite conversions by their parts.
std::string Expand(std::string_view format, std::string_view format12)
{
    std::string out;
    for (size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%' || i + 1 == format.size()) {
            out += format[i];
            continue;
        }
        switch (format[i + 1]) {
        case 'D': out += "%m/%d/%y"; break;
        case 'F': out += "%Y-%m-%d"; break;
        case 'T': out += "%H:%M:%S"; break;
        case 'R': out += "%H:%M"; break;
        case 'r': // the locale's twelve-hour format, unless it is missing or refers to itself
            out += format12.empty() || format12.find("%r") != std::string_view::npos ? "%I:%M:%S %p" : format12;
            break;
        default: out.append(format.substr(i, 2)); break;
        }
        ++i;
    }
    return out;
}

// The picture text of a date conversion; null for anything else (time, zone, unknown).
const char* DateToken(const Piece& piece, bool longForm)
{
    switch (piece.conversion) {
    case 'd': return piece.noPadding ? "d" : "dd";
    case 'e': return "d";
    case 'm': return piece.noPadding ? "M" : "MM";
    case 'y': return "yy";
    case 'Y': return "yyyy";
    case 'a': return longForm ? "dddd" : "ddd";
    case 'A': return "dddd";
    case 'b':
    case 'h': return longForm ? "MMMM" : "MMM";
    case 'B': return "MMMM";
    default: return nullptr;
    }
}

// Literal text as picture text: apostrophes cannot be carried and are dropped; text with
// ASCII letters is quoted so that they do not read as picture letters.
std::string Quoted(std::string_view text)
{
    std::string out;
    bool letters = false;
    for (char c : text) {
        if (c == '\'')
            continue;
        letters = letters || ((c | 0x20) >= 'a' && (c | 0x20) <= 'z');
        out += c;
    }
    return letters ? "'" + out + "'" : out;
}

} // namespace

std::string DatePicture(std::string_view format, bool longForm)
{
    std::vector<Piece> pieces = Split(Expand(format, {}));
    std::string picture;
    const Piece* pending = nullptr; // literal text since the last field
    bool leftOut = false;           // a time field stood since the last date field
    for (const Piece& piece : pieces) {
        if (!piece.isField) {
            pending = &piece;
            continue;
        }
        const char* token = DateToken(piece, longForm);
        if (!token) {
            leftOut = true;
            pending = nullptr;
            continue;
        }
        // Text before the first date field counts only when it starts the format.
        if (pending && !(picture.empty() && leftOut))
            picture += Quoted(pending->text);
        picture += token;
        pending = nullptr;
        leftOut = false;
    }
    if (pending && !leftOut)
        picture += Quoted(pending->text);
    return picture;
}

ClockFormat ClockFromTimeFormat(std::string_view format, std::string_view format12)
{
    ClockFormat clock;
    std::vector<Piece> pieces = Split(Expand(format, format12));
    for (size_t i = 0; i < pieces.size(); ++i) {
        const Piece& piece = pieces[i];
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
