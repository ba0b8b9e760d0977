#pragma once

#include <vesk/export.hpp>
#include <vesk/window/CWnd.hpp>

#include <vector>

namespace vesk {

class TamDockablePane;

// A floating mini-frame: a top-level window holding one pane, kept on a visible screen.
class VESK_API TamPaneFrameWnd : public CWnd {
public:
    explicit TamPaneFrameWnd(TamDockablePane& pane) : m_rPane(pane) {}
    ~TamPaneFrameWnd() override;
    // Makes the window with `rect` (screen) moved onto a visible screen, owned by `owner`.
    bool Create(const CRectangle& rect, CWnd* owner);
    TamDockablePane& GetPane() const { return m_rPane; }
    // `rect` moved so that it lies on a screen (as far as it fits), given the screens.
    static CRectangle KeepOnScreen(const CRectangle& rect, const std::vector<CRectangle>& screens);
    // `rect` unchanged while at least MIN_VISIBLE_WIDTH x MIN_VISIBLE_HEIGHT pixels of it (all
    // of a side shorter than that) lie on one screen, enough to grab the caption; else moved
    // onto a screen.
    static CRectangle KeepVisible(const CRectangle& rect, const std::vector<CRectangle>& screens);
    // The display's screens now.
    static std::vector<CRectangle> GetScreenRects();
    static constexpr int32_t MIN_VISIBLE_WIDTH = 64;
    static constexpr int32_t MIN_VISIBLE_HEIGHT = 24;

protected:
    intptr_t WindowProc(uint32_t message, WParam wParam, LParam lParam) override;

private:
    TamDockablePane& m_rPane;
};

} // namespace vesk
