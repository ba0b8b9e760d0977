#pragma once

#include <vesk/graphics.hpp>
#include <vesk/window.hpp>

#include <functional>
#include <string>

namespace demo {

// A pane of the demo: a child window with a title strip. Each pane draws through Render, on
// its own window when painted and on any other device when asked, so that the panes can move
// into another container without changing.
class Pane : public vesk::Window
{
public:
    explicit Pane(const char* title) : m_aTitle(title) {}
    ~Pane() override;

    bool CreatePane(vesk::CWnd* parent);
    vesk::CWnd& Wnd() { return m_aWnd; }
    const std::string& Title() const { return m_aTitle; }
    virtual void Render(vesk::OutputDevice& dev, const vesk::TamSize& size) = 0;
    // Where the keys typed while this pane has the focus go: the browser's keys work from
    // every pane.
    void SetKeyHandler(std::function<bool(const vesk::KeyEvent&)> handler) { m_aKeys = std::move(handler); }

protected:
    bool KeyInput(const vesk::KeyEvent& event) override { return m_aKeys && m_aKeys(event); }
    void Paint(const vesk::CRectangle&) override { Render(*this, GetOutputSizePixel()); }
    // Clears the pane and draws its title strip; returns the first free row.
    int32_t DrawFrame(vesk::OutputDevice& dev, const vesk::TamSize& size) const;
    // One line of text at (x, y) in the pane's font and `color`.
    static void DrawLine(vesk::OutputDevice& dev, int32_t x, int32_t y, const std::string& text,
                         const vesk::TamColor& color = vesk::TamColor(0x202020u));

    static constexpr int32_t TITLE_HEIGHT = 20;
    static constexpr int32_t LINE_HEIGHT = 17;

private:
    std::string m_aTitle;
    vesk::CWnd m_aWnd;
    std::function<bool(const vesk::KeyEvent&)> m_aKeys;
};

} // namespace demo
