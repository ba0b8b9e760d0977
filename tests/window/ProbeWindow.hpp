#pragma once

#include "WindowFixture.hpp"

#include <functional>
#include <string>
#include <vector>

namespace vesk::test {

// A Window that writes each handler call into its log and can run an action inside one.
class ProbeWindow : public Window
{
public:
    std::vector<std::string> log;
    std::function<void()> onPaint, onMouse, onNote;
    bool handleKeys = false;
    bool eraseHandled = false;

    void Clear() { log.clear(); }

protected:
    void Paint(const CRectangle& r) override
    {
        Note("Paint " + std::to_string(r.Left()) + "," + std::to_string(r.Top()) + "," +
             std::to_string(r.Right()) + "," + std::to_string(r.Bottom()));
        if (onPaint)
            onPaint();
    }
    void MouseMove(const MouseEvent& e) override { Mouse("Move", e); }
    void MouseButtonDown(const MouseEvent& e) override { Mouse("Down", e); }
    void MouseButtonUp(const MouseEvent& e) override { Mouse("Up", e); }
    void MouseWheel(const MouseEvent& e) override { Mouse("Wheel" + std::to_string(e.GetWheelDelta()), e); }
    void MouseHover(const MouseEvent& e) override { Mouse("Hover", e); }
    void MouseLeave() override { Note("Leave"); }
    bool KeyInput(const KeyEvent& e) override
    {
        Note("Key " + std::string(static_cast<const char*>(e.GetKeyCode().GetName())) + " " + std::to_string(e.GetCharCode()));
        return handleKeys;
    }
    bool KeyUp(const KeyEvent& e) override
    {
        Note("KeyUp " + std::string(static_cast<const char*>(e.GetKeyCode().GetName())));
        return handleKeys;
    }
    void Move() override { Note("Move"); }
    void Activate(bool active) override { Note(active ? "Activate 1" : "Activate 0"); }
    void ActivateApp(bool active) override { Note(active ? "ActivateApp 1" : "ActivateApp 0"); }
    bool EraseBackground() override
    {
        Note("Erase");
        return eraseHandled;
    }
    void NonClientDoubleClick() override { Note("NcDClick"); }
    void EnterMenuLoop() override { Note("EnterMenu"); }
    void ExitMenuLoop() override { Note("ExitMenu"); }

private:
    void Note(const std::string& s)
    {
        log.push_back(s);
        if (onNote)
            onNote();
    }
    // "<kind> x,y b<buttons> m<modifier> c<clicks> <changed button>"
    void Mouse(const std::string& kind, const MouseEvent& e)
    {
        Note(kind + " " + std::to_string(e.GetPosPixel().x) + "," + std::to_string(e.GetPosPixel().y) + " b" +
             std::to_string(e.GetButtons()) + " m" + std::to_string(e.GetModifier()) + " c" +
             std::to_string(e.GetClicks()) + " " + std::to_string(e.GetChangedButton()));
        if (e.GetWindow() != this)
            Note("wrong window");
        if (onMouse)
            onMouse();
    }
};

} // namespace vesk::test
