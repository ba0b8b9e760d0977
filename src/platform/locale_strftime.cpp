#include "platform/locale_strftime.hpp"

#include <cstring>

namespace vesk::platform {

namespace {

constexpr int MAX_NESTING = 2;

void Expand(std::string_view format, const TimeFormats& formats, int depth, std::string& out)
{
    for (size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%' || i + 1 == format.size()) {
            out += format[i];
            continue;
        }
        std::string_view part;
        switch (format[++i]) {
        case 'D': part = "%m/%d/%y"; break;
        case 'F': part = "%Y-%m-%d"; break;
        case 'T': part = "%H:%M:%S"; break;
        case 'R': part = "%H:%M"; break;
        case 'r': part = formats.time12.empty() ? std::string_view("%I:%M:%S %p") : formats.time12; break;
        case 'c': part = formats.dateTime; break;
        case 'x': part = formats.date; break;
        case 'X': part = formats.time; break;
        default:
            out.append(format.substr(i - 1, 2));
            continue;
        }
        if (depth < MAX_NESTING && part != format)
            Expand(part, formats, depth + 1, out);
    }
}

} // namespace

std::string ExpandFormat(std::string_view format, const TimeFormats& formats)
{
    std::string out;
    Expand(format, formats, 0, out);
    return out;
}

std::vector<FormatPiece> SplitFormat(std::string_view format)
{
    std::vector<FormatPiece> pieces;
    auto literal = [&pieces](char c) {
        if (pieces.empty() || pieces.back().isField)
            pieces.push_back(FormatPiece{false, 0, false, {}});
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
        else if (conversion == 'n' || conversion == 't')
            literal(' ');
        else
            pieces.push_back(FormatPiece{true, conversion, noPadding, {}});
    }
    return pieces;
}

} // namespace vesk::platform
