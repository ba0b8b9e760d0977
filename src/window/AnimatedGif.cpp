#include <vesk/window/AnimatedGif.hpp>

#include <vesk/files/DirEntry.hpp>

namespace vesk {

AnimatedGif::Presenter::Presenter(CWnd& wnd, int32_t border) : m_nBorder(border)
{
    m_aDevice.SetAsParentWrap(&wnd, false);
}

void AnimatedGif::Presenter::Present(OutputDevice& canvas, const TamSize& size)
{
    m_aDevice.DrawOutDev(TamPoint(m_nBorder, m_nBorder), size, canvas, TamPoint(0, 0));
    m_aDevice.ReleaseDevice(); // hand the window's surface back after every frame
}

namespace {

// A frame no smaller than the default size of a frame, for a window that has nothing to show.
constexpr int32_t kDefaultSide = 10;

CWnd* ParentOf(Window* parent)
{
    return parent ? parent->GetCWnd() : nullptr;
}

} // namespace

AnimatedGif::AnimatedGif(Window* parent, int32_t borderWidth, const TamPoint& pos)
    : m_nBorder(borderWidth), m_aPresenter(Wnd(), borderWidth), m_aPlayer(m_aGif)
{
    const int32_t side = kDefaultSide + 2 * borderWidth;
    CreateOwned(ParentOf(parent) ? WndKind::Child : WndKind::TopLevel, ParentOf(parent), pos, TamSize(side, side));
}

AnimatedGif::~AnimatedGif()
{
    m_aPlayer.Stop(); // the player draws into the window, which goes with the base
}

int AnimatedGif::Load(const DirEntry& entry)
{
    m_aPlayer.Stop();
    if (!m_aGif.Load(entry))
        return 0;
    const GifFrame first = m_aGif.FirstImage();
    CWnd& wnd = Wnd();
    if (!first.IsEmpty() && wnd.GetSafeHwnd()) {
        // Keep the position within the parent; windows have no frame of their own here.
        const CRectangle box = wnd.GetWindowRect();
        const CRectangle parent = wnd.GetParent() ? wnd.GetParent()->GetWindowRect() : CRectangle(0, 0, 0, 0);
        wnd.MoveWindow(box.Left() - parent.Left(), box.Top() - parent.Top(), first.GetWidth() + 2 * m_nBorder,
                       first.GetHeight() + 2 * m_nBorder);
    }
    Invalidate();
    return 1;
}

bool AnimatedGif::Play()
{
    if (!GetHandle())
        return true;
    return m_aPlayer.Play(&m_aPresenter);
}

void AnimatedGif::Paint(const CRectangle&)
{
    const TamSize size = GetOutputSizePixel();
    if (size.Width() <= 0 || size.Height() <= 0)
        return;
    const CRectangle all(0, 0, size.Width() - 1, size.Height() - 1);
    if (m_nBorder > 0)
        Draw3DFrame(all, m_nBorder, TamColor(0xFFFFFFu), TamColor(0x808080u), true);
    if (!m_aPlayer.IsPlaying())
        DrawFirstFrame();
}

bool AnimatedGif::DrawFirstFrame()
{
    return m_aPlayer.DrawFirstFrame(*this, TamPoint(m_nBorder, m_nBorder));
}

} // namespace vesk
