#include "X11Fixture.hpp"

namespace vesk::test {
namespace {

using namespace vesk::display;

class X11Input : public X11Fixture { };

int16_t X(LParam l) { return static_cast<int16_t>(LoWordSigned(l)); }
int16_t Y(LParam l) { return static_cast<int16_t>(HiWordSigned(l)); }

TEST_F(X11Input, ClickAndDoubleClickArriveInClientCoordinates)
{
    NativeWindow window = ShowWindow(100, 100, 200, 150);
    ASSERT_EQ(Xdo({"mousemove", "--sync", "130", "140", "click", "1", "click", "3"}), 0);
    ASSERT_TRUE(PumpUntil([&] { return Count(window, WM_RBUTTONUP) == 1; }));
    auto moves = Of(window, {WM_MOUSEMOVE});
    ASSERT_FALSE(moves.empty());
    EXPECT_EQ(X(moves.back().lParam), 30);
    EXPECT_EQ(Y(moves.back().lParam), 40);
    EXPECT_EQ(moves.back().wParam, 0u);

    auto buttons = Of(window, {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONDOWN, WM_RBUTTONUP});
    ASSERT_EQ(buttons.size(), 4u);
    // The key state is the one after the event: the pressed button is in it, the released one not.
    EXPECT_EQ(buttons[0].message, WM_LBUTTONDOWN);
    EXPECT_EQ(buttons[0].wParam, MK_LBUTTON);
    EXPECT_EQ(buttons[1].message, WM_LBUTTONUP);
    EXPECT_EQ(buttons[1].wParam, 0u);
    EXPECT_EQ(buttons[2].message, WM_RBUTTONDOWN);
    EXPECT_EQ(buttons[2].wParam, MK_RBUTTON);
    for (const Message& m : buttons) {
        EXPECT_EQ(X(m.lParam), 30);
        EXPECT_EQ(Y(m.lParam), 40);
    }

    // Buttons and keys held during a click are in its key state.
    s_messages.clear();
    ASSERT_EQ(Xdo({"keydown", "ctrl", "mousedown", "3", "mousedown", "2", "click", "1", "mouseup", "2", "mouseup",
                   "3", "keyup", "ctrl"}),
              0);
    ASSERT_TRUE(PumpUntil([&] { return Count(window, WM_RBUTTONUP) == 1; }));
    auto held = Of(window, {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_MBUTTONUP, WM_RBUTTONUP});
    ASSERT_EQ(held.size(), 4u);
    EXPECT_EQ(held[0].wParam, MK_LBUTTON | MK_RBUTTON | MK_MBUTTON | MK_CONTROL);
    EXPECT_EQ(held[1].wParam, MK_RBUTTON | MK_MBUTTON | MK_CONTROL);
    EXPECT_EQ(held[2].message, WM_MBUTTONUP);
    EXPECT_EQ(held[2].wParam, MK_RBUTTON | MK_CONTROL);
    EXPECT_EQ(held[3].wParam, MK_CONTROL);

    // Away from the last click, so the first press starts a new sequence; the timing and
    // distance rule itself is DoubleClick's own test.
    s_messages.clear();
    ASSERT_EQ(Xdo({"mousemove", "--sync", "150", "160", "click", "--repeat", "2", "--delay", "40", "1"}), 0);
    ASSERT_TRUE(PumpUntil([&] { return Count(window, WM_LBUTTONUP) == 2; }));
    auto clicks = Of(window, {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK});
    ASSERT_EQ(clicks.size(), 2u);
    EXPECT_EQ(clicks[0].message, WM_LBUTTONDOWN);
    EXPECT_EQ(clicks[1].message, WM_LBUTTONDBLCLK);
    EXPECT_EQ(clicks[1].lParam, MakeLParam(50, 60));
}

TEST_F(X11Input, DragKeepsReportingToTheWindowBeyondItsEdges)
{
    NativeWindow window = ShowWindow(100, 100, 200, 150);
    ASSERT_EQ(Xdo({"mousemove", "--sync", "110", "120", "mousedown", "1", "mousemove", "--sync", "250", "200",
                   "mousemove", "--sync", "40", "60", "mouseup", "1"}),
              0);
    ASSERT_TRUE(PumpUntil([&] { return Count(window, WM_LBUTTONUP) == 1; }));
    auto drag = Of(window, {WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP});
    ASSERT_GE(drag.size(), 4u);
    const Message& up = drag.back();
    const Message& lastMove = drag[drag.size() - 2];
    EXPECT_EQ(lastMove.message, WM_MOUSEMOVE);
    EXPECT_EQ(lastMove.wParam, MK_LBUTTON);
    // Left of and above the window: negative 16-bit client coordinates.
    EXPECT_EQ(X(lastMove.lParam), -60);
    EXPECT_EQ(Y(lastMove.lParam), -40);
    EXPECT_EQ(lastMove.lParam, MakeLParam(-60, -40));
    EXPECT_LT(lastMove.lParam, 0); // the packed word sign-extends
    EXPECT_EQ(up.wParam, 0u);
    EXPECT_EQ(X(up.lParam), -60);
    bool sawInside = false;
    for (const Message& m : drag)
        sawInside |= m.message == WM_MOUSEMOVE && X(m.lParam) == 150 && Y(m.lParam) == 100;
    EXPECT_TRUE(sawInside);
}

TEST_F(X11Input, WheelNotchesAndSideButtons)
{
    NativeWindow window = ShowWindow(100, 100, 200, 150);
    ASSERT_EQ(Xdo({"mousemove", "--sync", "160", "170", "click", "4", "keydown", "shift", "click", "5", "keyup",
                   "shift", "click", "7"}),
              0);
    ASSERT_TRUE(PumpUntil([&] { return Count(window, WM_MOUSEHWHEEL) == 1; }));
    ASSERT_EQ(Xdo({"click", "8", "mousedown", "9"}), 0);
    ASSERT_TRUE(PumpUntil([&] { return Count(window, WM_XBUTTONDOWN) == 2; }));
    Xdo({"mouseup", "9"});
    auto side = Of(window, {WM_XBUTTONDOWN, WM_XBUTTONUP});
    ASSERT_EQ(side.size(), 3u);
    EXPECT_EQ(side[0].wParam, MakeWParam(MK_XBUTTON1, 1)); // which side button in the high word
    EXPECT_EQ(side[1].wParam, MakeWParam(0, 1));
    EXPECT_EQ(side[2].wParam, MakeWParam(MK_XBUTTON2, 2));
    auto wheel = Of(window, {WM_MOUSEWHEEL, WM_MOUSEHWHEEL});
    ASSERT_EQ(wheel.size(), 3u);
    EXPECT_EQ(wheel[0].message, WM_MOUSEWHEEL);
    EXPECT_EQ(HiWordSigned(static_cast<intptr_t>(wheel[0].wParam)), 120);
    EXPECT_EQ(wheel[0].wParam & 0xFFFF, 0u);
    EXPECT_EQ(X(wheel[0].lParam), 160); // screen, not client, coordinates
    EXPECT_EQ(Y(wheel[0].lParam), 170);
    EXPECT_EQ(HiWordSigned(static_cast<intptr_t>(wheel[1].wParam)), -120);
    EXPECT_EQ(wheel[1].wParam, MakeWParam(MK_SHIFT, static_cast<uint32_t>(-120)));
    EXPECT_EQ(wheel[2].message, WM_MOUSEHWHEEL);
    EXPECT_EQ(HiWordSigned(static_cast<intptr_t>(wheel[2].wParam)), 120);
}

class X11Keys : public X11Fixture {
protected:
    NativeWindow FocusedWindow()
    {
        NativeWindow window = ShowWindow(100, 100, 200, 150);
        m_backend->SetFocus(window);
        EXPECT_TRUE(PumpUntil([&] { return Count(window, WM_SETFOCUS) > 0; }));
        EXPECT_EQ(m_backend->GetFocus(), window);
        s_messages.clear();
        return window;
    }

    std::vector<Message> Keys(NativeWindow window)
    {
        return Of(window, {WM_KEYDOWN, WM_KEYUP, WM_CHAR, WM_SYSKEYDOWN, WM_SYSKEYUP, WM_SYSCHAR});
    }

    struct Key
    {
        uint32_t message;
        WParam code;
        uint32_t bits; // lParam's 32 bits
        bool operator==(const Key&) const = default;
    };
    std::vector<Key> Summary(NativeWindow window)
    {
        std::vector<Key> keys;
        for (const Message& m : Keys(window))
            keys.push_back({m.message, m.wParam, static_cast<uint32_t>(m.lParam)});
        return keys;
    }
};

uint32_t Bits(LParam l) { return static_cast<uint32_t>(l); }

TEST_F(X11Keys, LetterGivesKeyDownCharAndKeyUpWithScanAndTransitionBits)
{
    NativeWindow window = FocusedWindow();
    ASSERT_EQ(Xdo({"key", "a"}), 0);
    ASSERT_TRUE(PumpUntil([&] { return Count(window, WM_KEYUP) == 1; }));
    // Repeat count 1 and scan code 0x1E; the release has the previous-state and transition bits.
    EXPECT_EQ(Summary(window), (std::vector<Key>{{WM_KEYDOWN, 'A', 0x001E0001u}, {WM_CHAR, 'a', 0x001E0001u},
                                                 {WM_KEYUP, 'A', 0xC01E0001u}}));
    EXPECT_LT(Keys(window).back().lParam, 0); // the packed word sign-extends
}

TEST_F(X11Keys, HeldKeyRepeatsWithThePreviousStateBit)
{
    NativeWindow window = FocusedWindow();
    ASSERT_EQ(Xdo({"keydown", "b", "sleep", "1.5", "keyup", "b"}), 0);
    ASSERT_TRUE(PumpUntil([&] { return Count(window, WM_KEYUP) == 1; }));
    auto downs = Of(window, {WM_KEYDOWN});
    ASSERT_GE(downs.size(), 2u) << "the server did not repeat the key";
    EXPECT_EQ(Bits(downs[0].lParam), 0x00300001u); // scan code 0x30, first press
    for (size_t i = 1; i < downs.size(); ++i)
        EXPECT_EQ(Bits(downs[i].lParam), 0x40300001u); // repeats: the key was down
    EXPECT_EQ(Count(window, WM_CHAR), downs.size());
    EXPECT_EQ(Of(window, {WM_KEYDOWN, WM_KEYUP}).back().message, WM_KEYUP); // one release, at the end
}

TEST_F(X11Keys, ShiftDigitsFunctionAndExtendedKeys)
{
    NativeWindow window = FocusedWindow();
    ASSERT_EQ(Xdo({"key", "shift+a", "7", "F5", "Left", "Return", "KP_Enter"}), 0);
    ASSERT_TRUE(PumpUntil([&] { return Count(window, WM_KEYUP) == 7; }));
    auto downs = Of(window, {WM_KEYDOWN});
    ASSERT_EQ(downs.size(), 7u);
    std::vector<WParam> codes;
    for (const Message& m : downs)
        codes.push_back(m.wParam);
    EXPECT_EQ(codes, (std::vector<WParam>{0x10, 'A', '7', 0x74, 0x25, 0x0D, 0x0D}));
    EXPECT_EQ(Bits(downs[4].lParam), 0x014B0001u); // Left: scan 0x4B, extended
    EXPECT_EQ(Bits(downs[5].lParam), 0x001C0001u); // Return: not extended
    EXPECT_EQ(Bits(downs[6].lParam), 0x011C0001u); // keypad Enter: extended
    std::u16string typed;
    for (const Message& m : Of(window, {WM_CHAR}))
        typed += static_cast<char16_t>(m.wParam);
    EXPECT_EQ(typed, u"A7\r\r");
}

TEST_F(X11Keys, AltCombinationsAreSystemKeys)
{
    NativeWindow window = FocusedWindow();
    ASSERT_EQ(Xdo({"keydown", "alt", "key", "x", "keyup", "alt", "key", "F10"}), 0);
    ASSERT_TRUE(PumpUntil([&] { return Count(window, WM_SYSKEYUP) + Count(window, WM_KEYUP) == 3; }));
    // Bits 29-31 of lParam: Alt held, previous state, transition. Alt's own release no longer
    // counts as Alt held; F10 is a system key without Alt.
    std::vector<Key> top;
    for (const Key& key : Summary(window))
        top.push_back({key.message, key.code, key.bits >> 29});
    EXPECT_EQ(top, (std::vector<Key>{{WM_SYSKEYDOWN, 0x12, 1}, {WM_SYSKEYDOWN, 'X', 1}, {WM_SYSCHAR, 'x', 1},
                                     {WM_SYSKEYUP, 'X', 7}, {WM_SYSKEYUP, 0x12, 6}, {WM_SYSKEYDOWN, 0x79, 0},
                                     {WM_SYSKEYUP, 0x79, 6}}));
}

} // namespace
} // namespace vesk::test
