#pragma once

// Backend-level tests on a real X server: each test program starts its own Xvfb, every test
// gets a fresh backend whose window procedure records the messages.

#include "platform/display/DisplayBackend.hpp"
#include "platform/display/Messages.hpp"
#include "support/XServer.hpp"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <chrono>
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

    // A top-level window (client box at x, y on the screen), shown and painted once.
    NativeWindow ShowWindow(int32_t x, int32_t y, int32_t width, int32_t height, const std::string& title = "test")
    {
        display::WindowSpec spec;
        spec.x = x;
        spec.y = y;
        spec.width = width;
        spec.height = height;
        spec.title = title;
        NativeWindow window = m_backend->CreateWindow(spec);
        EXPECT_NE(window, nullptr);
        m_windows.push_back(window);
        m_backend->Show(window, display::ShowCommand::Normal);
        EXPECT_TRUE(PumpUntil([&] { return Count(window, display::WM_PAINT) > 0; })) << "window never exposed";
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
        xcb_connection_t* xcb = xcb_connect(s_server->Display().c_str(), nullptr);
        xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data->root;
        xcb_query_tree_reply_t* tree = xcb_query_tree_reply(xcb, xcb_query_tree(xcb, root), nullptr);
        int children = tree ? tree->children_len : -1;
        free(tree);
        xcb_disconnect(xcb);
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
