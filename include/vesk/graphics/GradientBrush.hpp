#pragma once

#include <vesk/export.hpp>

namespace vesk {

struct GradientBrushData;

// A gradient made ready for one area: what RectGradient::CreateGdiplusBrush returns. Owns the
// drawing engine's fill pattern; move-only. An invalid brush (a shape it could not be made
// for) fills nothing.
class VESK_API GradientBrush
{
public:
    GradientBrush() = default;
    GradientBrush(GradientBrush&& other) noexcept;
    GradientBrush& operator=(GradientBrush&& other) noexcept;
    GradientBrush(const GradientBrush&) = delete;
    GradientBrush& operator=(const GradientBrush&) = delete;
    ~GradientBrush();

    bool IsValid() const { return m_pData != nullptr; }
    // Whether shapes filled with it get anti-aliased edges.
    bool IsAntiAliased() const { return m_bAntiAlias; }

private:
    friend struct GradientBrushAccess;
    GradientBrushData* m_pData = nullptr;
    bool m_bAntiAlias = true;
};

} // namespace vesk
