#pragma once

#include <vesk/window/CWnd.hpp>

namespace vesk {

// A top-level window with a title that keeps one view window filling its client area. When
// the application's main window is destroyed, the event loop ends.
class VESK_API CFrameWnd : public CWnd
{
public:
    ~CFrameWnd() override;
    // Makes the frame, hidden.
    bool CreateFrame(const char* utf8Title, const TamPoint& pos, const TamSize& clientSize);
    // The child that fills the client area (null: none); sized at once and on every resize.
    void SetView(CWnd* view);
    CWnd* GetView() const { return m_pView; }

protected:
    intptr_t WindowProc(uint32_t message, WParam wParam, LParam lParam) override;

private:
    void FitView();
    CWnd* m_pView = nullptr;
};

} // namespace vesk
