#pragma once

#include <vesk/values/TamPoint.hpp>

#include <cstdint>

namespace vesk {

// Measures of a device's current font in pixels, taken from the same line box the plain
// text family draws in: height = ascent + descent.
struct FontMetric
{
    int32_t height = 0;          // one line of text
    int32_t ascent = 0;          // top of the line to the baseline
    int32_t descent = 0;         // baseline to the bottom of the line
    int32_t internalLeading = 0; // height above the font's em height (accents)
    int32_t externalLeading = 0; // extra space the font asks for between lines
    int32_t aveCharWidth = 0;
    int32_t maxCharWidth = 0;    // widest character of the system code page
};

// Measures of one character: the box of its inked pixels and how far it moves the pen.
struct GlyphMetric
{
    int32_t blackBoxX = 0; // inked width (0 for a blank character)
    int32_t blackBoxY = 0; // inked height
    TamPoint origin;       // top-left of the inked box: x from the pen position, y up from the baseline
    int32_t cellIncX = 0;  // advance to the next character
    int32_t cellIncY = 0;
};

} // namespace vesk
