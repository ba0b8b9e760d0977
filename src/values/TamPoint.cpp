#include <vesk/values/TamPoint.hpp>

#include "values/IntMath_p.hpp"

#include <cmath>

namespace vesk {

using namespace detail;

TamPoint& TamPoint::operator+=(const TamPoint& p)
{
    x = WrapAdd(x, p.x);
    y = WrapAdd(y, p.y);
    return *this;
}

TamPoint& TamPoint::operator-=(const TamPoint& p)
{
    x = WrapSub(x, p.x);
    y = WrapSub(y, p.y);
    return *this;
}

TamPoint& TamPoint::operator*=(int32_t factor)
{
    x = WrapMul(x, factor);
    y = WrapMul(y, factor);
    return *this;
}

TamPoint& TamPoint::operator*=(double factor)
{
    x = RoundToInt32(x * factor);
    y = RoundToInt32(y * factor);
    return *this;
}

TamPoint& TamPoint::operator/=(int32_t divisor)
{
    if (divisor != 0) {
        x = WrapDiv(x, divisor);
        y = WrapDiv(y, divisor);
    }
    return *this;
}

TamPoint& TamPoint::operator/=(double divisor)
{
    if (divisor != 0.0) {
        x = RoundToInt32(x / divisor);
        y = RoundToInt32(y / divisor);
    }
    return *this;
}

double TamPoint::GetSqDistance(const TamPoint& p) const
{
    // The differences are taken in 32-bit integers first, as the coordinates are.
    const double dx = WrapSub(x, p.x);
    const double dy = WrapSub(y, p.y);
    return std::sqrt(dx * dx + dy * dy);
}

SString TamPoint::GetStr() const
{
    SString s("X=");
    s += x;
    s += ", Y=";
    s += y;
    return s;
}

} // namespace vesk
