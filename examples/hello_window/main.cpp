// A frame window whose client area paints a board with a marker: a click puts the marker
// where the pointer is, the arrow keys move it, the wheel changes its size and a letter key
// changes its colour. With an X display it runs until the window is closed; on the headless
// display it plays a few inputs itself and writes a picture of the window, hello_window.png,
// to the folder given on the command line (else the current one).

#include <vesk/frame.hpp>
#include <vesk/graphics.hpp>
#include <vesk/window.hpp>

#include <cstdio>
#include <string>

using namespace vesk;

namespace {

class HelloView : public Window
{
public:
    TamPoint marker{60, 60};
    int32_t radius = 20;
    int colour = 0;
    SString status = "Click, use the arrows, turn the wheel or type a letter";

protected:
    void Paint(const CRectangle&) override
    {
        const TamSize size = GetOutputSizePixel();
        Erase(CRectangle(0, 0, size.Width() - 1, size.Height() - 1), TamColor(0xF000, 0xF000, 0xE800));
        for (int32_t x = 0; x < size.Width(); x += 40)
            Erase(CRectangle(x, 0, x, size.Height() - 1), TamColor(0xC800, 0xC800, 0xC800));
        static const TamColor colours[] = {TamColor(0xD000, 0x3000, 0x3000), TamColor(0x3000, 0x9000, 0x3000),
                                           TamColor(0x3000, 0x5000, 0xD000)};
        ChangeFillInBrush(Brush(colours[colour % 3]));
        DrawEllipseHQ(FRectangle(marker.x - radius, marker.y - radius, marker.x + radius, marker.y + radius), 100);
        Font font("DejaVu Sans", 14);
        font.SetColor(TamColor(0x2000, 0x2000, 0x2000));
        ChangeFont(font);
        DrawTextHQ(FPoint(8, size.Height() - 24), status);
    }
    void MouseButtonDown(const MouseEvent& e) override
    {
        marker = e.GetPosPixel();
        Show("Clicked at " + std::to_string(marker.x) + ", " + std::to_string(marker.y));
    }
    void MouseWheel(const MouseEvent& e) override
    {
        radius = std::max(4, radius + e.GetWheelDelta() / 24);
        Show("Radius " + std::to_string(radius));
    }
    bool KeyInput(const KeyEvent& e) override
    {
        const uint16_t key = e.GetKeyCode().GetCode();
        if (key >= VK_LEFT && key <= VK_DOWN) {
            static const int dx[] = {-10, 0, 10, 0}, dy[] = {0, -10, 0, 10};
            marker.x += dx[key - VK_LEFT];
            marker.y += dy[key - VK_LEFT];
        } else if (key >= 'A' && key <= 'Z') {
            ++colour;
        } else {
            return false;
        }
        Show("Key " + std::string(static_cast<const char*>(e.GetKeyCode().GetName())));
        return true;
    }

private:
    void Show(const std::string& text)
    {
        status = SString(text.c_str());
        Invalidate();
    }
};

// Plays what a user would do, through the same messages a display delivers.
void PlayInputs(NativeWindow view)
{
    PostMessage(view, WM_LBUTTONDOWN, MK_LBUTTON, MakeLParam(200, 120));
    PostMessage(view, WM_LBUTTONUP, 0, MakeLParam(200, 120));
    PostMessage(view, WM_KEYDOWN, VK_RIGHT, 1);
    PostMessage(view, WM_KEYDOWN, 'C', 1);
    PostMessage(view, WM_MOUSEWHEEL, WParam{120} << 16, MakeLParam(0, 0));
}

} // namespace

int main(int argc, char** argv)
{
    VeskInit();
    int result = 0;
    {
        CFrameWnd frame;
        CWnd client;
        HelloView view;
        if (!frame.CreateFrame("Hello, window", TamPoint(100, 100), TamSize(480, 320)) ||
            !client.Create(WndKind::Child, &frame, TamPoint(0, 0), TamSize(480, 320))) {
            std::fprintf(stderr, "hello_window: cannot create the window\n");
            VeskExit();
            return 1;
        }
        frame.SetView(&client);
        view.SetAsWrap(&client);
        SetVeskMainFrame(frame.GetSafeHwnd());
        frame.ShowWindow(SW_SHOWNORMAL);
        client.ShowWindow(SW_SHOWNORMAL);
        client.SetFocus();

        if (std::string(GetDisplayName()) == "headless") {
            PlayInputs(client.GetSafeHwnd());
            PumpMessages();
            PumpMessages();
            const std::string path = std::string(argc > 1 ? argv[1] : ".") + "/hello_window.png";
            if (SaveWindowPicture(client.GetSafeHwnd(), path.c_str())) {
                std::printf("hello_window: wrote %s\n", path.c_str());
            } else {
                std::fprintf(stderr, "hello_window: cannot write %s\n", path.c_str());
                result = 1;
            }
        } else {
            result = RunMessageLoop();
            if (result != 0)
                std::fprintf(stderr, "hello_window: the display went away\n");
        }
    }
    VeskExit();
    return result;
}
