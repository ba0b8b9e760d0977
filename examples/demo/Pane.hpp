#pragma once

#include <vesk/graphics.hpp>
#include <vesk/window.hpp>

#include <string>

namespace demo {

// A pane of the demo: a child window, with a title strip of its own unless it sits in a
// dockable pane whose caption shows the title. Each pane draws through Render, on its own
// window when painted and on any other device when asked.
class Pane : public vesk::OwnedWindow
{
public:
    Pane(const char* title, bool titleStrip) : m_aTitle(title), m_bTitleStrip(titleStrip) {}

    // Makes the pane's window in `parent`; a pane made before moves to its new window.
    bool CreatePane(vesk::CWnd* parent);
    const std::string& Title() const { return m_aTitle; }
    virtual void Render(vesk::OutputDevice& dev, const vesk::TamSize& size) = 0;

protected:
    void Paint(const vesk::CRectangle&) override { Render(*this, GetOutputSizePixel()); }
    // Clears the pane and draws its title strip, if it has one; returns the first free row.
    int32_t DrawFrame(vesk::OutputDevice& dev, const vesk::TamSize& size) const;
    // One line of text at (x, y) in the pane's font and `color`.
    static void DrawLine(vesk::OutputDevice& dev, int32_t x, int32_t y, const std::string& text,
                         const vesk::TamColor& color = vesk::TamColor(0x202020u));

    static constexpr int32_t TITLE_HEIGHT = 20;
    static constexpr int32_t LINE_HEIGHT = 17;

private:
    std::string m_aTitle;
    bool m_bTitleStrip;
};

} // namespace demo
