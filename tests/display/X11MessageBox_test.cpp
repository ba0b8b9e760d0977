#include "X11Fixture.hpp"

#include "platform/display/x11/dialog.hpp"

#include <thread>

namespace vesk::test {
namespace {

using namespace vesk::display;

class X11MessageBox : public X11Fixture {
protected:
    // The box's window once it is mapped and has the keyboard; XCB_NONE after ten seconds.
    static xcb_window_t WaitForBox(const XProbe& probe, const std::string& caption, xcb_get_geometry_reply_t* geometry)
    {
        for (int tries = 0; tries < 1000; ++tries) {
            xcb_get_input_focus_reply_t* focus
                = xcb_get_input_focus_reply(probe.Xcb(), xcb_get_input_focus(probe.Xcb()), nullptr);
            xcb_window_t window = focus ? focus->focus : XCB_NONE;
            free(focus);
            if (window > XCB_INPUT_FOCUS_POINTER_ROOT
                && probe.Text(reinterpret_cast<NativeWindow>(uintptr_t{window}), "_NET_WM_NAME") == caption) {
                xcb_get_geometry_reply_t* reply
                    = xcb_get_geometry_reply(probe.Xcb(), xcb_get_geometry(probe.Xcb(), window), nullptr);
                if (reply && geometry)
                    *geometry = *reply;
                free(reply);
                return window;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return XCB_NONE;
    }

    // Shows a box and answers it from another thread with `answer`, which gets the box's geometry.
    int Answer(NativeWindow owner, uint32_t type, const std::function<void(const xcb_get_geometry_reply_t&)>& answer)
    {
        const int expectedWindows = RootChildren();
        std::thread user([&] {
            XProbe probe(s_server->Display());
            xcb_get_geometry_reply_t geometry{};
            if (WaitForBox(probe, "Question", &geometry) == XCB_NONE)
                return;
            answer(geometry);
            // A box the answer did not close would hold the test forever: it fails, and Enter
            // closes the box.
            for (int tries = 0; tries < 500 && RootChildren() > expectedWindows; ++tries)
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            if (RootChildren() > expectedWindows) {
                ADD_FAILURE() << "the answer did not close the box";
                Xdo({"key", "Return"});
            }
        });
        int result = m_backend->MessageBox(owner, "Save the changes to the document before closing?", "Question", type);
        user.join();
        return result;
    }
};

TEST_F(X11MessageBox, KeyboardAnswers)
{
    auto keys = [this](std::vector<std::string> names) {
        return [this, names](const xcb_get_geometry_reply_t&) {
            std::vector<std::string> args{"key", "--delay", "20"};
            args.insert(args.end(), names.begin(), names.end());
            Xdo(args);
        };
    };
    EXPECT_EQ(Answer(nullptr, MB_YESNO, keys({"Return"})), IDYES);
    EXPECT_EQ(Answer(nullptr, MB_YESNO | MB_DEFBUTTON2, keys({"Return"})), IDNO);
    EXPECT_EQ(Answer(nullptr, MB_OKCANCEL, keys({"Escape"})), IDCANCEL);
    EXPECT_EQ(Answer(nullptr, MB_OK, keys({"Escape"})), IDOK);
    EXPECT_EQ(Answer(nullptr, MB_YESNOCANCEL, keys({"Tab", "Tab", "space"})), IDCANCEL);
    EXPECT_EQ(Answer(nullptr, MB_YESNO, keys({"Escape", "Right", "Return"})), IDNO); // Escape cannot answer Yes/No
    EXPECT_EQ(Answer(nullptr, MB_ABORTRETRYIGNORE | MB_DEFBUTTON3, keys({"shift+Tab", "Return"})), IDRETRY);
}

TEST_F(X11MessageBox, MouseAnswersWhileTheOwnerTakesNoInputButPaints)
{
    NativeWindow owner = ShowWindow(100, 100, 600, 400);
    s_messages.clear();
    int result = Answer(owner, MB_OKCANCEL, [&](const xcb_get_geometry_reply_t& box) {
        // Centred on its owner.
        EXPECT_NEAR(box.x + box.width / 2, 400, 1);
        EXPECT_NEAR(box.y + box.height / 2, 300, 1);
        Xdo({"mousemove", "--sync", "120", "120", "click", "1"});
        m_backend->Invalidate(owner, nullptr);
        WindowBox cancel = x11::DialogButtonBox(box.width, box.height, 1, 2);
        Xdo({"mousemove", "--sync", std::to_string(box.x + cancel.left + 5), std::to_string(box.y + cancel.top + 5),
             "click", "1"});
    });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(Count(owner, WM_LBUTTONDOWN), 0u);
    EXPECT_EQ(Count(owner, WM_PAINT), 1u);
}

} // namespace
} // namespace vesk::test
