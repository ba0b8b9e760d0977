#include "platform/locale_formats.hpp"
#include "platform/locale_strftime.hpp"

#include <vector>

namespace vesk::platform {

namespace {

enum class Kind { Weekday, Day, Month, Year, Other };

// A format as fields and the literal texts between them.
struct Item {
    bool isField;
    Kind kind;
    std::string text; // a field's picture token, else the literal text
};

std::string Token(const FormatPiece& piece, bool longForm, Kind& kind)
{
    kind = Kind::Other;
    switch (piece.conversion) {
    case 'd': kind = Kind::Day; return piece.noPadding ? "d" : "dd";
    case 'e': kind = Kind::Day; return "d";
    case 'm': kind = Kind::Month; return piece.noPadding ? "M" : "MM";
    case 'b':
    case 'h': kind = Kind::Month; return longForm ? "MMMM" : "MMM";
    case 'B': kind = Kind::Month; return "MMMM";
    case 'y': kind = Kind::Year; return "yy";
    case 'Y': kind = Kind::Year; return "yyyy";
    case 'a': kind = Kind::Weekday; return longForm ? "dddd" : "ddd";
    case 'A': kind = Kind::Weekday; return "dddd";
    default: return {};
    }
}

std::vector<Item> Items(const std::string& format, const TimeFormats& formats, bool longForm)
{
    std::vector<Item> items;
    for (const FormatPiece& piece : SplitFormat(ExpandFormat(format, formats))) {
        if (!piece.isField) {
            items.push_back(Item{false, Kind::Other, piece.text});
            continue;
        }
        Kind kind;
        std::string token = Token(piece, longForm, kind);
        // The century directly before a two-digit year makes a four-digit one.
        if (kind == Kind::Year && piece.conversion == 'y' && !items.empty() && items.back().isField &&
            items.back().text == "C") {
            items.back() = Item{true, Kind::Year, "yyyy"};
            continue;
        }
        items.push_back(Item{true, kind, kind == Kind::Other ? std::string(1, piece.conversion) : token});
    }
    return items;
}

// A kept field with the text that follows it.
struct Kept {
    Kind kind;
    std::string token;
    std::string sep;
};

bool IsSpace(std::string_view text, size_t i)
{
    return text[i] == ' ' || text[i] == '\t' || text.substr(i).starts_with("\xC2\xA0") ||
        text.substr(i).starts_with("\xE2\x80\xAF") || text.substr(i).starts_with("\xE3\x80\x80");
}

// The part of the text leading up to left-out fields that stays with the field before it:
// up to its first white space, without trailing commas; nothing when it has no white space.
std::string LeadingPart(std::string_view text)
{
    size_t end = 0;
    while (end < text.size() && !IsSpace(text, end))
        ++end;
    if (end == text.size())
        return {};
    std::string_view part = text.substr(0, end);
    for (bool cut = true; cut;) {
        cut = false;
        for (std::string_view comma : {",", "\xD8\x8C", "\xEF\xBC\x8C", "\xE1\x8D\xA3"}) {
            if (part.ends_with(comma)) {
                part.remove_suffix(comma.size());
                cut = true;
            }
        }
    }
    return std::string(part);
}

// The text between kept fields `from` (an item index) and `to` (an item index or the end).
std::string Separator(const std::vector<Item>& items, size_t from, size_t to)
{
    std::string lead, tail;
    bool leftOut = false;
    for (size_t i = from + 1; i < to && i < items.size(); ++i) {
        if (items[i].isField) {
            leftOut = true;
            tail.clear();
        } else {
            (leftOut ? tail : lead) += items[i].text;
        }
    }
    if (!leftOut)
        return lead;
    return LeadingPart(lead) + (to < items.size() ? tail : std::string());
}

// The kept fields in order, or none when the date fields cannot be held.
std::vector<Kept> KeptFields(const std::vector<Item>& items, bool longForm)
{
    std::vector<size_t> at;
    std::string order;
    for (size_t i = 0; i < items.size(); ++i) {
        const Item& item = items[i];
        if (!item.isField || item.kind == Kind::Other)
            continue;
        if (item.kind == Kind::Weekday) {
            if (longForm && order.empty()) {
                order += 'W';
                at.push_back(i);
            }
            continue;
        }
        char letter = item.kind == Kind::Day ? 'D' : item.kind == Kind::Month ? 'M' : 'Y';
        if (order.find(letter) != std::string::npos)
            return {};
        order += letter;
        at.push_back(i);
    }
    std::string_view dates = std::string_view(order).substr(order.starts_with('W'));
    if (dates != "DMY" && dates != "MDY" && dates != "YMD")
        return {};
    std::vector<Kept> kept;
    for (size_t k = 0; k < at.size(); ++k) {
        size_t next = k + 1 < at.size() ? at[k + 1] : items.size();
        kept.push_back(Kept{items[at[k]].kind, items[at[k]].text, Separator(items, at[k], next)});
    }
    return kept;
}

bool HasLetter(std::string_view text, char letter)
{
    return text.find(letter) != std::string_view::npos;
}

// Whether the picture reader takes a field's text as it stands (see the header).
bool Readable(const std::vector<Kept>& kept, size_t index)
{
    const std::string& sep = kept[index].sep;
    for (std::string_view doubled : {"dd", "DD", "mm", "MM", "yy", "YY"})
        if (sep.find(doubled) != std::string::npos)
            return false;
    if (kept[index].kind == Kind::Weekday)
        return true;
    size_t day = 0, month = 0;
    for (size_t i = 0; i < kept.size(); ++i) {
        day = kept[i].kind == Kind::Day ? i : day;
        month = kept[i].kind == Kind::Month ? i : month;
    }
    if (kept[day].token == "d" && index < day && HasLetter(sep, 'd'))
        return false;
    if (kept[month].token == "M" && index != day && (HasLetter(sep, 'm') || (index < month && HasLetter(sep, 'M'))))
        return false;
    return true;
}

// A field's text as picture text.
std::string Quoted(const std::string& sep)
{
    std::string out;
    bool letters = false;
    for (char c : sep) {
        if (c == '\'')
            continue;
        letters = letters || ((c | 0x20) >= 'a' && (c | 0x20) <= 'z');
        out += c;
    }
    return letters ? "'" + out + "'" : out;
}

size_t CharCount(std::string_view text)
{
    size_t n = 0;
    for (char c : text)
        n += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    return n;
}

constexpr size_t PICTURE_CHARS = 40;

std::string Picture(const std::string& format, const TimeFormats& formats, bool longForm)
{
    std::vector<Kept> kept = KeptFields(Items(format, formats, longForm), longForm);
    std::vector<std::string> texts;
    for (size_t i = 0; i < kept.size(); ++i) {
        const std::string& sep = kept[i].sep;
        bool space = sep.find_first_of(" \t") != std::string::npos;
        texts.push_back(Readable(kept, i) ? Quoted(sep) : space ? " " : "");
    }
    for (size_t drop = kept.size();; --drop) {
        std::string picture;
        for (size_t i = 0; i < kept.size(); ++i)
            picture += kept[i].token + (i < drop ? texts[i] : std::string());
        if (CharCount(picture) <= PICTURE_CHARS || drop == 0)
            return picture;
    }
}

} // namespace

std::string ShortDatePicture(const TimeFormats& formats)
{
    return Picture(formats.date, formats, false);
}

std::string LongDatePicture(const TimeFormats& formats)
{
    for (const std::string* format : {&formats.dateLong, &formats.dateTime, &formats.date}) {
        std::string picture = Picture(*format, formats, true);
        if (!picture.empty())
            return picture;
    }
    return {};
}

} // namespace vesk::platform
