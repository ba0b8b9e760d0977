#pragma once

// Backend-level tests on a real X server: each test program starts its own Xvfb, every test
// gets a fresh backend whose window procedure records the messages.

#include "platform/display/DisplayBackend.hpp"
#include <vesk/frame/WinMessages.hpp>
#include "support/XServer.hpp"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace vesk::test {

struct Message
{
    NativeWindow window;
    uint32_t message;
    WParam wParam;
    LParam lParam;
};

// A box's edges, comparable in one expectation.
using Edges = std::array<int32_t, 4>;
inline Edges EdgesOf(const display::WindowBox& box) { return {box.left, box.top, box.right, box.bottom}; }

// A second client of the server, looking at the backend's windows as a window manager would.
class XProbe {
public:
    explicit XProbe(const std::string& display) : m_xcb(xcb_connect(display.c_str(), nullptr))
    {
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_xcb)).data->root;
    }
    ~XProbe() { xcb_disconnect(m_xcb); }
    XProbe(const XProbe&) = delete;
    XProbe& operator=(const XProbe&) = delete;

    xcb_connection_t* Xcb() const { return m_xcb; }
    // Flushes and waits until the server has carried out every request sent so far.
    void Sync() const { free(xcb_get_input_focus_reply(m_xcb, xcb_get_input_focus(m_xcb), nullptr)); }
    xcb_window_t Root() const { return m_root; }

    xcb_atom_t Atom(const char* name) const
    {
        xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(
            m_xcb, xcb_intern_atom(m_xcb, 0, static_cast<uint16_t>(strlen(name)), name), nullptr);
        xcb_atom_t atom = reply ? reply->atom : XCB_NONE;
        free(reply);
        return atom;
    }

    // A property's bytes (8-bit formats) or words (32-bit formats).
    std::string Text(NativeWindow window, const char* name) const
    {
        std::string text;
        Read(window, name, [&](const xcb_get_property_reply_t* reply) {
            text.assign(static_cast<const char*>(xcb_get_property_value(reply)),
                        static_cast<size_t>(xcb_get_property_value_length(reply)));
        });
        return text;
    }
    std::vector<uint32_t> Words(NativeWindow window, const char* name) const
    {
        std::vector<uint32_t> words;
        Read(window, name, [&](const xcb_get_property_reply_t* reply) {
            auto* data = static_cast<const uint32_t*>(xcb_get_property_value(reply));
            words.assign(data, data + xcb_get_property_value_length(reply) / 4);
        });
        return words;
    }

    bool IsMapped(NativeWindow window) const
    {
        xcb_get_window_attributes_reply_t* reply
            = xcb_get_window_attributes_reply(m_xcb, xcb_get_window_attributes(m_xcb, Id(window)), nullptr);
        bool mapped = reply && reply->map_state != XCB_MAP_STATE_UNMAPPED;
        free(reply);
        return mapped;
    }

    static xcb_window_t Id(NativeWindow window) { return static_cast<xcb_window_t>(reinterpret_cast<uintptr_t>(window)); }

private:
    template <typename Use>
    void Read(NativeWindow window, const char* name, Use use) const
    {
        xcb_get_property_reply_t* reply = xcb_get_property_reply(
            m_xcb, xcb_get_property(m_xcb, 0, Id(window), Atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 4096), nullptr);
        if (reply)
            use(reply);
        free(reply);
    }

    xcb_connection_t* m_xcb;
    xcb_window_t m_root;
};

class X11Fixture : public ::testing::Test {
protected:
    static void SetUpTestSuite() { s_server = XServer::Start(); }
    static void TearDownTestSuite() { s_server.reset(); }

    void SetUp() override
    {
        ASSERT_TRUE(s_server) << "Xvfb did not start";
        m_backend = display::CreateX11Backend(s_server->Display().c_str());
        ASSERT_TRUE(m_backend) << "cannot open " << s_server->Display();
        s_messages.clear();
        s_onMessage = nullptr;
        m_backend->SetWindowProcedure(&Record);
    }

    void TearDown() override
    {
        if (!m_backend)
            return;
        for (NativeWindow window : m_windows)
            m_backend->DestroyWindow(window);
        EXPECT_EQ(m_backend->WindowCount(), 0u);
        m_backend.reset();
        // Nothing of ours is left on the server either.
        EXPECT_EQ(RootChildren(), 0);
        s_onMessage = nullptr;
    }

    // A window's client box at x, y: on the screen, or in `parent` for a child.
    static display::WindowParams Params(int32_t x, int32_t y, int32_t width, int32_t height,
                                        display::WindowKind kind = display::WindowKind::TopLevel,
                                        NativeWindow parent = nullptr)
    {
        display::WindowParams params;
        params.kind = kind;
        params.parent = parent;
        params.x = x;
        params.y = y;
        params.width = width;
        params.height = height;
        return params;
    }

    // A top-level window, shown and painted once.
    NativeWindow ShowWindow(int32_t x, int32_t y, int32_t width, int32_t height, const std::string& title = "test")
    {
        display::WindowParams params = Params(x, y, width, height);
        params.title = title;
        NativeWindow window = m_backend->CreateWindow(params);
        EXPECT_NE(window, nullptr);
        m_windows.push_back(window);
        m_backend->Show(window, display::ShowCommand::Normal);
        EXPECT_TRUE(PumpUntil([&] { return Count(window, WM_PAINT) > 0; })) << "window never exposed";
        return window;
    }

    // Dispatches events until done() holds; false when it still does not after ten seconds
    // (a lost event, not slowness).
    bool PumpUntil(const std::function<bool()>& done)
    {
        auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!done()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            if (!m_backend->WaitEvents(50) || !m_backend->DispatchEvents())
                return false;
        }
        return true;
    }

    // A round trip on the backend's connection: the server has carried out all it asked for,
    // so another client sees the result.
    void SyncBackend() { m_backend->GetFocus(); }

    int Xdo(std::vector<std::string> args)
    {
        args.insert(args.begin(), "xdotool");
        return s_server->Run(args);
    }

    static size_t Count(NativeWindow window, uint32_t message)
    {
        size_t count = 0;
        for (const Message& m : s_messages)
            count += m.window == window && m.message == message;
        return count;
    }

    // The messages of one window with one of the given numbers, in order.
    static std::vector<Message> Of(NativeWindow window, std::initializer_list<uint32_t> numbers)
    {
        std::vector<Message> found;
        for (const Message& m : s_messages)
            for (uint32_t number : numbers)
                if (m.window == window && m.message == number)
                    found.push_back(m);
        return found;
    }

    static int RootChildren()
    {
        XProbe probe(s_server->Display());
        xcb_query_tree_reply_t* tree
            = xcb_query_tree_reply(probe.Xcb(), xcb_query_tree(probe.Xcb(), probe.Root()), nullptr);
        int children = tree ? tree->children_len : -1;
        free(tree);
        return children;
    }

    static intptr_t Record(NativeWindow window, uint32_t message, WParam wParam, LParam lParam)
    {
        s_messages.push_back({window, message, wParam, lParam});
        if (s_onMessage)
            s_onMessage(s_messages.back());
        return 0;
    }

    static inline std::unique_ptr<XServer> s_server;
    static inline std::vector<Message> s_messages;
    static inline std::function<void(const Message&)> s_onMessage;
    std::unique_ptr<display::DisplayBackend> m_backend;
    std::vector<NativeWindow> m_windows;
};

} // namespace vesk::test
