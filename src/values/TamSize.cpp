#include <vesk/values/TamSize.hpp>

#include "values/IntMath_p.hpp"

#include <algorithm>

namespace vesk {

using namespace detail;

void TamSize::operator+=(const TamSize& s)
{
    m_nWidth = WrapAdd(m_nWidth, s.m_nWidth);
    m_nHeight = WrapAdd(m_nHeight, s.m_nHeight);
}

void TamSize::operator-=(const TamSize& s)
{
    m_nWidth = WrapSub(m_nWidth, s.m_nWidth);
    m_nHeight = WrapSub(m_nHeight, s.m_nHeight);
}

void TamSize::operator*=(int32_t factor)
{
    *this = *this * factor;
}

void TamSize::operator*=(double factor)
{
    *this = *this * factor;
}

void TamSize::operator/=(int32_t divisor)
{
    *this = *this / divisor;
}

void TamSize::operator/=(double divisor)
{
    *this = *this / divisor;
}

TamSize TamSize::operator*(int32_t factor) const
{
    return TamSize(WrapMul(m_nWidth, factor), WrapMul(m_nHeight, factor));
}

TamSize TamSize::operator*(double factor) const
{
    return TamSize(RoundToInt32(m_nWidth * factor), RoundToInt32(m_nHeight * factor));
}

TamSize TamSize::operator/(int32_t divisor) const
{
    if (divisor == 0)
        return *this;
    return TamSize(WrapDiv(m_nWidth, divisor), WrapDiv(m_nHeight, divisor));
}

TamSize TamSize::operator/(double divisor) const
{
    if (divisor == 0.0)
        return *this;
    return TamSize(RoundToInt32(m_nWidth / divisor), RoundToInt32(m_nHeight / divisor));
}

bool TamSize::operator<(const TamSize& s) const
{
    if (m_nWidth == s.m_nWidth)
        return m_nHeight < s.m_nHeight;
    if (m_nHeight == s.m_nHeight)
        return m_nWidth < s.m_nWidth;
    return m_nWidth < s.m_nWidth && m_nHeight < s.m_nHeight;
}

double TamSize::GetArea() const
{
    return static_cast<double>(m_nWidth) * m_nHeight;
}

int32_t TamSize::GetMaxSide() const
{
    return std::max(m_nWidth, m_nHeight);
}

int32_t TamSize::GetMinSide() const
{
    return std::min(m_nWidth, m_nHeight);
}

TamPoint TamSize::CenterWithin(const TamSize& outer) const
{
    return TamPoint(WrapSub(outer.m_nWidth, m_nWidth) / 2, WrapSub(outer.m_nHeight, m_nHeight) / 2);
}

TamSize TamSize::ScaleToHeight(int32_t h)
{
    if (m_nHeight != 0) {
        m_nWidth = RoundToInt32(static_cast<double>(h) / m_nHeight * m_nWidth);
        m_nHeight = h;
    }
    return *this;
}

SString TamSize::GetStr() const
{
    SString s("WID=");
    s += m_nWidth;
    s += ", HGT=";
    s += m_nHeight;
    return s;
}

} // namespace vesk
