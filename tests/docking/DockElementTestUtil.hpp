#pragma once

#include "DockingTestUtil.hpp"

#include <vesk/docking.hpp>

#include <memory>
#include <vector>

namespace vesk::test {

// A pane standing in for a pane window: a name and a rectangle; remembers the last size it
// was given in its container.
class TestPane final : public DockablePane {
public:
    TestPane(const char* name, const CRectangle& rect) : m_aRect(rect), m_sName(name) {}
    SString GetName() const override { return m_sName; }
    CRectangle GetScreenRect() const override { return m_aRect; }
    void SetSizeInContainer(int32_t length) override { m_nSizeInContainer = length; }
    bool GetMiniFrameScreenRect(CRectangle& rect) const override
    {
        if (m_aMiniFrame.IsEmpty())
            return false;
        rect = m_aMiniFrame;
        return true;
    }
    bool FloatPane() override { return ++m_nFloats > 0; }

    int32_t m_nSizeInContainer = -1;
    int32_t m_nFloats = 0;
    CRectangle m_aRect;
    // The floating mini-frame's rectangle; empty when the pane does not float in one.
    CRectangle m_aMiniFrame;

private:
    SString m_sName;
};

inline std::unique_ptr<DockElement> Docked(TestPane& pane)
{
    return std::make_unique<DockPaneElement>(&pane);
}

inline std::unique_ptr<HolderElement> Hold(std::unique_ptr<DockElement> left, std::unique_ptr<DockElement> right,
                                           int32_t depth = 0)
{
    return std::make_unique<HolderElement>(std::move(left), std::move(right), depth);
}

} // namespace vesk::test
