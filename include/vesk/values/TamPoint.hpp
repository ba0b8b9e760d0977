#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>

#include <cstdint>

namespace vesk {

// An integer point. Coordinates are signed 32-bit and wrap around on overflow; conversions
// from double round half away from zero and give -2147483648 outside the 32-bit range.
class VESK_API TamPoint {
public:
    int32_t x = 0;
    int32_t y = 0;

    TamPoint() = default;
    TamPoint(int32_t px, int32_t py) : x(px), y(py) {}

    // Component-wise sum and difference.
    TamPoint& operator+=(const TamPoint& p);
    TamPoint& operator-=(const TamPoint& p);
    // Both coordinates multiplied.
    TamPoint& operator*=(int32_t factor);
    // Each coordinate becomes lround(coordinate * factor).
    TamPoint& operator*=(double factor);
    // Truncating division; a divisor of 0 leaves the point unchanged.
    TamPoint& operator/=(int32_t divisor);
    // Each coordinate becomes lround(coordinate / divisor); 0.0 leaves the point unchanged.
    TamPoint& operator/=(double divisor);

    bool operator==(const TamPoint&) const = default;

    // Whether this point lies left of p (smaller x).
    bool IsLeft(const TamPoint& p) const { return x < p.x; }
    // Whether this point lies right of p (larger x).
    bool IsRight(const TamPoint& p) const { return x > p.x; }
    // Whether this point has the larger y: "above" in the mathematical sense, not on screen.
    bool IsAbove(const TamPoint& p) const { return y > p.y; }
    // Whether this point has the smaller y (mathematical sense, as IsAbove).
    bool IsBelow(const TamPoint& p) const { return y < p.y; }
    // The Euclidean distance to p: the root, despite the name.
    double GetSqDistance(const TamPoint& p) const;
    // "X=5, Y=-3".
    SString GetStr() const;
};

} // namespace vesk
