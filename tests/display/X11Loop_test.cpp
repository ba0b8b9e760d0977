#include "X11Fixture.hpp"

#include <thread>

namespace vesk::test {
namespace {

using namespace vesk::display;

class X11Loop : public X11Fixture { };

TEST_F(X11Loop, WakeAndInvalidateFromOtherThreadsEndAWait)
{
    NativeWindow window = ShowWindow(20, 30, 100, 100);
    // Lets what showing the window caused arrive, so that only the wake can end the next wait.
    for (int round = 0; round < 5; ++round) {
        m_backend->WaitEvents(50);
        m_backend->DispatchEvents();
    }
    s_messages.clear();

    std::thread waker([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        m_backend->Wake();
    });
    EXPECT_TRUE(m_backend->WaitEvents(-1));
    waker.join();

    std::thread invalidator([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        m_backend->Invalidate(window, nullptr);
    });
    EXPECT_TRUE(m_backend->WaitEvents(-1));
    invalidator.join();
    EXPECT_TRUE(m_backend->DispatchEvents());
    EXPECT_EQ(Count(window, WM_PAINT), 1u);
}

TEST(X11Gone, NoServerMeansNoBackend)
{
    EXPECT_EQ(CreateX11Backend(":4093"), nullptr);
}

TEST(X11Gone, ServerGoingAwayEndsTheLoopWithoutHanging)
{
    std::unique_ptr<XServer> server = XServer::Start();
    ASSERT_TRUE(server);
    std::unique_ptr<DisplayBackend> backend = CreateX11Backend(server->Display().c_str());
    ASSERT_TRUE(backend);
    WindowParams params;
    params.width = params.height = 50;
    NativeWindow window = backend->CreateWindow(params);
    backend->Show(window, ShowCommand::Normal);
    EXPECT_TRUE(backend->WaitEvents(1000));
    EXPECT_TRUE(backend->DispatchEvents());

    server->Kill();
    // No limit on the wait: it must end because the connection does.
    EXPECT_FALSE(backend->WaitEvents(-1));
    EXPECT_FALSE(backend->DispatchEvents());
    EXPECT_FALSE(backend->WaitEvents(0));
    // Everything else still answers without a server.
    backend->Invalidate(window, nullptr);
    cairo_surface_t* surface = backend->GetSurface(window);
    ASSERT_TRUE(surface);
    backend->ReleaseSurface(surface);
    cairo_surface_t* shown = backend->Snapshot(window);
    EXPECT_TRUE(shown);
    cairo_surface_destroy(shown);
    backend->SetTitle(window, "gone");
    backend->Show(window, ShowCommand::Maximised);
    EXPECT_EQ(backend->GetFocus(), nullptr);
    EXPECT_FALSE(backend->CreateWindow(params));
    backend->DestroyWindow(window);
    EXPECT_EQ(backend->WindowCount(), 0u);
}

} // namespace
} // namespace vesk::test
