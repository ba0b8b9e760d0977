#include "X11Fixture.hpp"

#include "platform/display/x11/connection.hpp"

#include <thread>

namespace vesk::test {
namespace {

using namespace vesk::display;

class X11Windows : public X11Fixture {
protected:
    NativeWindow Create(WindowKind kind, NativeWindow parent, int32_t x, int32_t y, int32_t width, int32_t height)
    {
        NativeWindow window = m_backend->CreateWindow(Params(x, y, width, height, kind, parent));
        SyncBackend(); // the server has the window and its properties before another client looks
        return window;
    }
};

TEST_F(X11Windows, DestroyingAWindowTakesItsChildrenAndOwnedWindows)
{
    NativeWindow window = ShowWindow(50, 60, 200, 100);
    EXPECT_EQ(EdgesOf(m_backend->GetWindowBox(window)), (Edges{50, 60, 250, 160}));
    NativeWindow child = Create(WindowKind::Child, window, 10, 20, 30, 40);
    NativeWindow popup = Create(WindowKind::Popup, window, 400, 400, 50, 50);
    ASSERT_TRUE(child && popup);
    m_backend->Show(child, ShowCommand::Normal);
    EXPECT_EQ(EdgesOf(m_backend->GetWindowBox(child)), (Edges{60, 80, 90, 120})); // on the screen
    EXPECT_EQ(EdgesOf(m_backend->GetClientBox(child)), (Edges{0, 0, 30, 40}));
    EXPECT_EQ(m_backend->WindowCount(), 3u);
    EXPECT_EQ(RootChildren(), 2);

    m_backend->DestroyWindow(window);
    EXPECT_FALSE(m_backend->IsWindow(child));
    EXPECT_FALSE(m_backend->IsWindow(popup));
    auto destroyed = Of(nullptr, {});
    for (const Message& m : s_messages)
        if (m.message == WM_DESTROY)
            destroyed.push_back(m);
    ASSERT_EQ(destroyed.size(), 3u);
    EXPECT_EQ(destroyed[0].window, window); // the window first, then what it holds
    // Gone windows and handles never made are ignored.
    m_backend->DestroyWindow(window);
    m_backend->Show(child, ShowCommand::Normal);
    WindowBox dirty;
    EXPECT_EQ(m_backend->BeginPaint(window, dirty), nullptr);
    EXPECT_EQ(m_backend->Snapshot(reinterpret_cast<NativeWindow>(uintptr_t{12345})), nullptr);
    EXPECT_EQ(Create(WindowKind::Child, nullptr, 0, 0, 10, 10), nullptr);
    EXPECT_EQ(Create(WindowKind::Child, window, 0, 0, 10, 10), nullptr);
    EXPECT_EQ(Count(window, WM_DESTROY), 1u);
}

TEST_F(X11Windows, AChildMovesToAnotherParentOnTheServer)
{
    NativeWindow first = ShowWindow(50, 60, 200, 100);
    NativeWindow second = ShowWindow(300, 60, 200, 100);
    NativeWindow child = Create(WindowKind::Child, first, 10, 20, 30, 40);
    NativeWindow inner = Create(WindowKind::Child, child, 1, 2, 3, 4);
    ASSERT_TRUE(child && inner);
    m_backend->Show(child, ShowCommand::Normal);
    ASSERT_TRUE(m_backend->SetParent(child, second, 5, 6));
    SyncBackend();
    EXPECT_EQ(EdgesOf(m_backend->GetWindowBox(child)), (Edges{305, 66, 335, 106})); // as the server has it
    EXPECT_EQ(m_backend->GetShowState(child), ShowCommand::Normal);
    EXPECT_FALSE(m_backend->SetParent(child, inner, 0, 0));
    EXPECT_FALSE(m_backend->SetParent(second, child, 0, 0));
    m_backend->DestroyWindow(first);
    EXPECT_TRUE(m_backend->IsWindow(child));
    m_backend->DestroyWindow(second);
    EXPECT_FALSE(m_backend->IsWindow(child));
    EXPECT_FALSE(m_backend->IsWindow(inner));
}

TEST_F(X11Windows, TitlesProtocolsAndWindowKindsAreProperties)
{
    NativeWindow window = ShowWindow(50, 60, 200, 100, "Grüße");
    XProbe probe(s_server->Display());
    EXPECT_EQ(probe.Text(window, "_NET_WM_NAME"), "Grüße");
    EXPECT_EQ(probe.Text(window, "WM_NAME"), "Grüße");
    m_backend->SetTitle(window, "Second");
    SyncBackend();
    EXPECT_EQ(probe.Text(window, "_NET_WM_NAME"), "Second");
    EXPECT_EQ(probe.Text(window, "WM_NAME"), "Second");
    auto protocols = probe.Words(window, "WM_PROTOCOLS");
    EXPECT_NE(std::find(protocols.begin(), protocols.end(), probe.Atom("WM_DELETE_WINDOW")), protocols.end());

    NativeWindow popup = Create(WindowKind::Popup, window, 300, 300, 50, 50);
    m_windows.push_back(popup);
    EXPECT_EQ(probe.Words(popup, "WM_TRANSIENT_FOR"), std::vector<uint32_t>{XProbe::Id(window)});
    xcb_get_window_attributes_reply_t* attributes = xcb_get_window_attributes_reply(
        probe.Xcb(), xcb_get_window_attributes(probe.Xcb(), XProbe::Id(popup)), nullptr);
    ASSERT_TRUE(attributes);
    EXPECT_TRUE(attributes->override_redirect);
    free(attributes);
}

TEST_F(X11Windows, DeleteWindowProtocolArrivesAsClose)
{
    NativeWindow window = ShowWindow(50, 60, 200, 100);
    XProbe probe(s_server->Display());
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = XProbe::Id(window);
    event.type = probe.Atom("WM_PROTOCOLS");
    event.data.data32[0] = probe.Atom("WM_DELETE_WINDOW");
    xcb_send_event(probe.Xcb(), 0, event.window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
    xcb_flush(probe.Xcb());
    ASSERT_TRUE(PumpUntil([&] { return Count(window, WM_CLOSE) == 1; }));
    // Closing is the window's decision: the backend keeps it.
    EXPECT_TRUE(m_backend->IsWindow(window));
}

TEST_F(X11Windows, MaximiseAndMinimiseWithoutAWindowManager)
{
    NativeWindow window = ShowWindow(50, 60, 200, 100);
    XProbe probe(s_server->Display());
    const uint32_t vertical = probe.Atom("_NET_WM_STATE_MAXIMIZED_VERT");
    const uint32_t horizontal = probe.Atom("_NET_WM_STATE_MAXIMIZED_HORZ");
    const uint32_t hidden = probe.Atom("_NET_WM_STATE_HIDDEN");

    m_backend->Show(window, ShowCommand::Maximised);
    SyncBackend();
    EXPECT_EQ(m_backend->GetShowState(window), ShowCommand::Maximised);
    EXPECT_EQ(probe.Words(window, "_NET_WM_STATE"), (std::vector<uint32_t>{vertical, horizontal}));
    ASSERT_TRUE(PumpUntil([&] { return Count(window, WM_SIZE) == 1; }));
    auto size = Of(window, {WM_SIZE});
    EXPECT_EQ(size[0].wParam, SIZE_MAXIMIZED);
    EXPECT_EQ(size[0].lParam, MakeLParam(1280, 1024));
    EXPECT_EQ(EdgesOf(m_backend->GetWindowBox(window)), (Edges{0, 0, 1280, 1024}));

    // Minimising unmaps the window, which reports a size change and no hiding.
    m_backend->Show(window, ShowCommand::Minimised);
    SyncBackend();
    EXPECT_EQ(m_backend->GetShowState(window), ShowCommand::Minimised);
    EXPECT_EQ(probe.Words(window, "_NET_WM_STATE"), std::vector<uint32_t>{hidden});
    EXPECT_FALSE(probe.IsMapped(window));
    ASSERT_TRUE(PumpUntil([&] { return Of(window, {WM_SIZE}).back().wParam == SIZE_MINIMIZED; }));
    EXPECT_EQ(Count(window, WM_SHOWWINDOW), 1u); // the first showing only

    m_backend->Show(window, ShowCommand::Normal);
    SyncBackend();
    EXPECT_EQ(m_backend->GetShowState(window), ShowCommand::Normal);
    EXPECT_TRUE(probe.Words(window, "_NET_WM_STATE").empty());
    EXPECT_TRUE(probe.IsMapped(window));
    EXPECT_EQ(EdgesOf(m_backend->GetWindowBox(window)), (Edges{50, 60, 250, 160}));

    m_backend->Show(window, ShowCommand::Hide);
    SyncBackend();
    EXPECT_EQ(m_backend->GetShowState(window), ShowCommand::Hide);
    EXPECT_FALSE(probe.IsMapped(window));
    ASSERT_TRUE(PumpUntil([&] { return Of(window, {WM_SHOWWINDOW}).back().wParam == 0; }));
}

// The probe plays window manager: it announces itself and takes the requests clients send.
class FakeWindowManager : public XProbe {
public:
    explicit FakeWindowManager(const std::string& display) : XProbe(display)
    {
        xcb_window_t check = xcb_generate_id(Xcb());
        xcb_create_window(Xcb(), XCB_COPY_FROM_PARENT, check, Root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                          XCB_COPY_FROM_PARENT, 0, nullptr);
        for (xcb_window_t on : {Root(), check})
            xcb_change_property(Xcb(), XCB_PROP_MODE_REPLACE, on, Atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW,
                                32, 1, &check);
        uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(Xcb(), Root(), XCB_CW_EVENT_MASK, &mask);
        Sync();
        m_check = check;
    }
    ~FakeWindowManager()
    {
        xcb_delete_property(Xcb(), Root(), Atom("_NET_SUPPORTING_WM_CHECK"));
        Crash();
    }
    // Goes as a crashed manager does: the check window goes, the root's property stays.
    void Crash()
    {
        if (m_check != XCB_NONE)
            xcb_destroy_window(Xcb(), m_check);
        m_check = XCB_NONE;
        Sync();
    }

    // The next event of the given type, or null after five seconds; the caller frees it.
    xcb_generic_event_t* Next(uint8_t type)
    {
        for (int tries = 0; tries < 500; ++tries) {
            while (xcb_generic_event_t* event = xcb_poll_for_event(Xcb())) {
                if ((event->response_type & 0x7F) == type)
                    return event;
                free(event);
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return nullptr;
    }

private:
    xcb_window_t m_check;
};

TEST_F(X11Windows, StateChangesAreRequestsToAWindowManager)
{
    FakeWindowManager manager(s_server->Display());
    NativeWindow window = m_backend->CreateWindow(Params(10, 10, 100, 100));
    m_windows.push_back(window);

    // Before mapping, the states are properties the manager reads when it maps the window.
    m_backend->Show(window, ShowCommand::Maximised);
    auto* request = reinterpret_cast<xcb_map_request_event_t*>(manager.Next(XCB_MAP_REQUEST));
    ASSERT_TRUE(request);
    EXPECT_EQ(request->window, XProbe::Id(window));
    free(request);
    EXPECT_EQ(manager.Words(window, "_NET_WM_STATE"),
              (std::vector<uint32_t>{manager.Atom("_NET_WM_STATE_MAXIMIZED_VERT"),
                                     manager.Atom("_NET_WM_STATE_MAXIMIZED_HORZ")}));
    xcb_map_window(manager.Xcb(), XProbe::Id(window));
    manager.Sync();

    // Once mapped, changes are client messages to the root window.
    m_backend->Show(window, ShowCommand::Normal);
    auto* message = reinterpret_cast<xcb_client_message_event_t*>(manager.Next(XCB_CLIENT_MESSAGE));
    ASSERT_TRUE(message);
    EXPECT_EQ(message->window, XProbe::Id(window));
    EXPECT_EQ(message->type, manager.Atom("_NET_WM_STATE"));
    EXPECT_EQ(message->data.data32[0], 0u); // remove
    EXPECT_EQ(message->data.data32[1], manager.Atom("_NET_WM_STATE_MAXIMIZED_VERT"));
    EXPECT_EQ(message->data.data32[2], manager.Atom("_NET_WM_STATE_MAXIMIZED_HORZ"));
    free(message);

    m_backend->Show(window, ShowCommand::Minimised);
    message = reinterpret_cast<xcb_client_message_event_t*>(manager.Next(XCB_CLIENT_MESSAGE));
    ASSERT_TRUE(message);
    EXPECT_EQ(message->type, manager.Atom("WM_CHANGE_STATE"));
    EXPECT_EQ(message->data.data32[0], 3u); // iconic
    free(message);
    EXPECT_EQ(m_backend->GetShowState(window), ShowCommand::Minimised);
}

TEST_F(X11Windows, TheWindowManagerAnswerHoldsUntilOneComesOrGoes)
{
    std::unique_ptr<x11::Connection> connection = x11::Connection::Open(s_server->Display().c_str());
    ASSERT_TRUE(connection);
    // Feeds the connection the events it has received, as the backend's dispatch does.
    auto dispatch = [&] {
        free(xcb_get_input_focus_reply(connection->Xcb(), xcb_get_input_focus(connection->Xcb()), nullptr));
        while (xcb_generic_event_t* event = xcb_poll_for_event(connection->Xcb())) {
            connection->NoteEvent(*event);
            free(event);
        }
    };
    EXPECT_FALSE(connection->HasWindowManager());
    FakeWindowManager manager(s_server->Display());
    EXPECT_FALSE(connection->HasWindowManager()); // the server is not asked again
    dispatch();
    EXPECT_TRUE(connection->HasWindowManager());
    manager.Crash();
    dispatch();
    EXPECT_FALSE(connection->HasWindowManager());
}

TEST_F(X11Windows, CaptureTakesThePointerFromOtherWindows)
{
    NativeWindow first = ShowWindow(100, 100, 100, 100);
    NativeWindow second = ShowWindow(300, 100, 100, 100);
    m_backend->SetCapture(first);
    EXPECT_EQ(m_backend->GetCapture(), first);
    ASSERT_EQ(Xdo({"mousemove", "--sync", "350", "150", "click", "1"}), 0);
    ASSERT_TRUE(PumpUntil([&] { return Count(first, WM_LBUTTONUP) == 1; }));
    EXPECT_EQ(Count(second, WM_LBUTTONDOWN), 0u);
    auto down = Of(first, {WM_LBUTTONDOWN});
    ASSERT_EQ(down.size(), 1u);
    EXPECT_EQ(down[0].lParam, MakeLParam(250, 50)); // in the capturing window's coordinates

    m_backend->SetCapture(nullptr);
    EXPECT_EQ(m_backend->GetCapture(), nullptr);
    ASSERT_EQ(Xdo({"click", "1"}), 0);
    ASSERT_TRUE(PumpUntil([&] { return Count(second, WM_LBUTTONUP) == 1; }));
    EXPECT_EQ(Of(second, {WM_LBUTTONDOWN})[0].lParam, MakeLParam(50, 50));
}

TEST_F(X11Windows, KeyboardFocusIsSetNotFollowedByThePointer)
{
    NativeWindow first = ShowWindow(100, 100, 100, 100);
    NativeWindow second = ShowWindow(300, 100, 100, 100);
    m_backend->SetFocus(first);
    ASSERT_TRUE(PumpUntil([&] { return Count(first, WM_SETFOCUS) == 1; }));
    EXPECT_EQ(m_backend->GetFocus(), first);
    m_backend->SetFocus(second);
    ASSERT_TRUE(PumpUntil([&] { return Count(second, WM_SETFOCUS) == 1; }));
    EXPECT_EQ(Count(first, WM_KILLFOCUS), 1u);

    // Focus that follows the pointer is the keys' route, not keyboard focus moving: the
    // window under the pointer gets no WM_SETFOCUS.
    ASSERT_EQ(Xdo({"mousemove", "--sync", "150", "150"}), 0);
    XProbe probe(s_server->Display());
    xcb_set_input_focus(probe.Xcb(), XCB_INPUT_FOCUS_POINTER_ROOT, XCB_INPUT_FOCUS_POINTER_ROOT, XCB_CURRENT_TIME);
    probe.Sync();
    // A move after the change marks the end of the events it caused.
    ASSERT_EQ(Xdo({"mousemove", "--sync", "151", "151"}), 0);
    ASSERT_TRUE(PumpUntil([&] {
        auto moves = Of(first, {WM_MOUSEMOVE});
        return !moves.empty() && moves.back().lParam == MakeLParam(51, 51);
    }));
    EXPECT_EQ(Count(second, WM_KILLFOCUS), 1u);
    EXPECT_EQ(Count(first, WM_SETFOCUS), 1u);
    EXPECT_EQ(m_backend->GetFocus(), nullptr);
}

TEST_F(X11Windows, ScreenSizeAndResolution)
{
    std::vector<ScreenInfo> screens = m_backend->GetScreens();
    ASSERT_EQ(screens.size(), 1u);
    EXPECT_EQ(screens[0].width, 1280);
    EXPECT_EQ(screens[0].height, 1024);
    EXPECT_GT(screens[0].dpi, 0);

    // The desktop's font resolution wins over the physical one.
    XProbe probe(s_server->Display());
    const char resources[] = "Xft.antialias:\t1\nXft.dpi:\t144\n";
    xcb_change_property(probe.Xcb(), XCB_PROP_MODE_REPLACE, probe.Root(), XCB_ATOM_RESOURCE_MANAGER, XCB_ATOM_STRING,
                        8, sizeof resources - 1, resources);
    probe.Sync();
    EXPECT_EQ(m_backend->GetScreens()[0].dpi, 144.0);
    xcb_delete_property(probe.Xcb(), probe.Root(), XCB_ATOM_RESOURCE_MANAGER);
    probe.Sync();
    EXPECT_EQ(m_backend->GetScreens()[0].dpi, screens[0].dpi);
}

} // namespace
} // namespace vesk::test
