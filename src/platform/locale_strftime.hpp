#pragma once

// Reading strftime formats: the composite conversions expanded, the rest split into literal
// text and single conversions.

#include "platform/locale_formats.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace vesk::platform {

// One piece of a strftime format: literal text, or a conversion with its '-' flag.
struct FormatPiece {
    bool isField;
    char conversion; // the conversion letter of a field
    bool noPadding;  // a '-' flag
    std::string text; // the literal text
};

// Replaces the composite conversions by their parts: %D, %F, %R, %T and, from the locale's
// own formats, %c, %x, %X and %r (a missing %r format reads as %I:%M:%S %p). A format that
// refers to itself, or nests deeper than twice, adds nothing.
std::string ExpandFormat(std::string_view format, const TimeFormats& formats);

// Splits an expanded format into literal text and conversions: "%%" is a literal '%', %n and
// %t are white space; flags other than '-', field widths and the E and O modifiers are read
// over (the library writes Gregorian years in ASCII digits).
std::vector<FormatPiece> SplitFormat(std::string_view format);

} // namespace vesk::platform
