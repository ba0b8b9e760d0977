#include <vesk/graphics/GradientBrush.hpp>

#include "graphics/Cairo_p.hpp"

#include <utility>

namespace vesk {

GradientBrush GradientBrushAccess::Make(cairo_pattern_t* pattern, bool antiAlias)
{
    GradientBrush b;
    b.m_bAntiAlias = antiAlias;
    if (cairo_pattern_status(pattern) == CAIRO_STATUS_SUCCESS)
        b.m_pData = reinterpret_cast<GradientBrushData*>(pattern);
    else
        cairo_pattern_destroy(pattern);
    return b;
}

GradientBrush::GradientBrush(GradientBrush&& other) noexcept
    : m_pData(std::exchange(other.m_pData, nullptr)), m_bAntiAlias(other.m_bAntiAlias)
{
}

GradientBrush& GradientBrush::operator=(GradientBrush&& other) noexcept
{
    std::swap(m_pData, other.m_pData);
    m_bAntiAlias = other.m_bAntiAlias;
    return *this;
}

GradientBrush::~GradientBrush()
{
    if (m_pData)
        cairo_pattern_destroy(GradientBrushAccess::Get(*this));
}

} // namespace vesk
