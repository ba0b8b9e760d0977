#pragma once

#include "Pane.hpp"

namespace demo {

// The library's colour table, a hue circle built from HSL values, and one gradient drawn
// twice: by the plain family (pixel-exact) and by the anti-aliased one.
class ColoursPane : public Pane
{
public:
    ColoursPane() : Pane("Colours", false) {}
    void Render(vesk::OutputDevice& dev, const vesk::TamSize& size) override;
};

} // namespace demo
