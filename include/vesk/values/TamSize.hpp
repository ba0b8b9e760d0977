#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/values/TamPoint.hpp>

#include <cstdint>

namespace vesk {

// An integer size. Arithmetic wraps around like TamPoint's; the compound operators return
// nothing.
class VESK_API TamSize {
public:
    TamSize() = default;
    TamSize(int32_t width, int32_t height) : m_nWidth(width), m_nHeight(height) {}

    int32_t Width() const { return m_nWidth; }
    int32_t& Width() { return m_nWidth; }
    int32_t Height() const { return m_nHeight; }
    int32_t& Height() { return m_nHeight; }

    // Component-wise sum and difference.
    void operator+=(const TamSize& s);
    void operator-=(const TamSize& s);
    // Both components multiplied; the double form rounds with lround.
    void operator*=(int32_t factor);
    void operator*=(double factor);
    // Truncating (int) or lround (double) division; a zero divisor changes nothing.
    void operator/=(int32_t divisor);
    void operator/=(double divisor);

    // New sizes by the same rules as the compound operators.
    TamSize operator*(int32_t factor) const;
    TamSize operator*(double factor) const;
    TamSize operator/(int32_t divisor) const;
    TamSize operator/(double divisor) const;

    bool operator==(const TamSize&) const = default;
    // Partial order: smaller in both directions (or in one when the other is equal).
    bool operator<(const TamSize& s) const;

    // Whether the width or the height is 0.
    bool IsEmpty() const { return m_nWidth == 0 || m_nHeight == 0; }
    // Width times height, in double.
    double GetArea() const;
    // The larger of width and height.
    int32_t GetMaxSide() const;
    // The smaller of width and height.
    int32_t GetMinSide() const;
    // The offset that centres this size inside outer (halves truncated toward zero).
    TamPoint CenterWithin(const TamSize& outer) const;
    // Sets the height to h and scales the width in proportion; returns the new size. A
    // height of 0 changes nothing.
    TamSize ScaleToHeight(int32_t h);
    // "WID=10, HGT=4".
    SString GetStr() const;

private:
    int32_t m_nWidth = 0;
    int32_t m_nHeight = 0;
};

} // namespace vesk
