#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/TamColor.hpp>

namespace vesk {

// Two colours: the light and the dark edge of a 3D effect, or the two ends of a gradient.
class VESK_API ColorPair
{
public:
    // Two whites.
    ColorPair() = default;
    // `first` and `second`.
    ColorPair(const TamColor& first, const TamColor& second) : m_aColors{first, second} {}
    // Edges of `color`: percent >= 0 gives (lightened, darkened) for a raised edge, a negative
    // percent gives (darkened, lightened) for a sunken one, both by |percent|.
    ColorPair(const TamColor& color, int percent);

    // Colour i & 1: even indexes give the first colour, odd ones the second.
    TamColor operator[](int i) const { return m_aColors[i & 1]; }
    TamColor& operator[](int i) { return m_aColors[i & 1]; }

    bool operator==(const ColorPair& other) const = default;

private:
    TamColor m_aColors[2];
};

} // namespace vesk
