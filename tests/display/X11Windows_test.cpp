#include "X11Fixture.hpp"

namespace vesk::test {
namespace {

using namespace vesk::display;

class X11Windows : public X11Fixture { };

TEST_F(X11Windows, CreateShowAndDestroy)
{
    NativeWindow window = ShowWindow(50, 60, 200, 100);
    EXPECT_TRUE(m_backend->IsWindow(window));
    EXPECT_EQ(m_backend->GetShowState(window), ShowCommand::Normal);
    WindowBox box = m_backend->GetWindowBox(window);
    EXPECT_EQ(box.left, 50);
    EXPECT_EQ(box.top, 60);
    EXPECT_EQ(box.right, 250);
    EXPECT_EQ(box.bottom, 160);
    EXPECT_EQ(RootChildren(), 1);
    m_backend->DestroyWindow(window);
    EXPECT_FALSE(m_backend->IsWindow(window));
    EXPECT_EQ(Count(window, WM_DESTROY), 1u);
}

} // namespace
} // namespace vesk::test
