#pragma once

// What the layout solver computes: the rectangle of every pane, divider and the free space.
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vesk {

class LayoutNode;
class LayoutPane;

enum class LayoutEdge : uint8_t { Left, Top, Right, Bottom };

// Resolutions the solver works at; others are clamped to them.
inline constexpr int32_t LAYOUT_MIN_DPI = 24;
inline constexpr int32_t LAYOUT_MAX_DPI = 960;
// Longest length (thickness, minimum side) the model stores, at 96 DPI.
inline constexpr int32_t LAYOUT_MAX_LENGTH = 65535;
// Width of a divider at 96 DPI.
inline constexpr int32_t LAYOUT_DIVIDER_96 = 5;

// v * num / den rounded half away from zero; 0 for a zero denominator.
int64_t LayoutMulDiv(int64_t v, int64_t num, int64_t den);
// A length at 96 DPI in pixels at `dpi`.
inline int32_t LayoutScale(int32_t v96, int32_t dpi)
{
    return static_cast<int32_t>(LayoutMulDiv(v96, dpi, 96));
}
// The divider width at `dpi`, at least one pixel.
inline int32_t LayoutDividerWidth(int32_t dpi)
{
    const int32_t d = LayoutScale(LAYOUT_DIVIDER_96, dpi);
    return d < 1 ? 1 : d;
}

// A pixel rectangle: x, y of the top-left corner and the width and height.
struct LayoutRect {
    int32_t x = 0;
    int32_t y = 0;
    int32_t cx = 0;
    int32_t cy = 0;
    int64_t Area() const { return int64_t(cx) * cy; }
    bool operator==(const LayoutRect&) const = default;
};

struct LayoutPaneRect {
    const LayoutPane* pPane;
    LayoutRect rect;
    bool operator==(const LayoutPaneRect&) const = default;
};

// A divider of a split, or the one on the inner side of a band. It moves between nLow and
// nHigh (positions of its left or top edge); the two are equal when the minimum sizes on its
// two sides do not fit.
struct LayoutDivider {
    LayoutRect rect;
    // Whether it separates things side by side (it is a vertical bar).
    bool bVertical = true;
    // The split it belongs to, or null for a band's divider.
    const LayoutNode* pSplit = nullptr;
    std::size_t nBand = 0;
    // The room the divider divides: where it starts along its axis and its length, divider
    // excluded.
    int32_t nStart = 0;
    int32_t nAvail = 0;
    int32_t nLow = 0;
    int32_t nHigh = 0;
    bool operator==(const LayoutDivider&) const = default;
};

struct LayoutSolution {
    LayoutRect client;
    int32_t nDpi = 96;
    // Panes in dock order: bands outermost first, each tree left (upper) part first.
    std::vector<LayoutPaneRect> panes;
    std::vector<LayoutDivider> dividers;
    LayoutRect freeSpace;
    bool operator==(const LayoutSolution&) const = default;
};

} // namespace vesk
