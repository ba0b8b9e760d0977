#include <vesk/graphics/GifPlayer.hpp>

#include "graphics/gif/GifCanvas_p.hpp"
#include "platform/thread_priority.hpp"

#include <vesk/frame/ColorName.hpp>
#include <vesk/graphics/VirtualDevice.hpp>

#include <memory>

namespace vesk {

GifPresenter::~GifPresenter() = default;

namespace {

constexpr int kButtonFace = 25; // the colour the canvas starts in

bool RestoresArea(uint8_t disposal)
{
    // Both restore-to-background (8) and restore-to-previous (12) put back what was under
    // the frame before it was drawn.
    return disposal == 8 || disposal == 12;
}

} // namespace

GifPlayer::GifPlayer(GifAnimation& gif)
    : m_rGif(gif), m_aBackground(TamColor(static_cast<ColorName>(kButtonFace)))
{
}

GifPlayer::~GifPlayer()
{
    Stop();
    WaitUntilLeft();
}

bool GifPlayer::Play(GifPresenter* presenter)
{
    if (m_bPlaying.load())
        return false;
    if (!m_rGif.IsLoaded() || !presenter || m_nState.load() == GifAnimation::STATE_PLAYING)
        return true;
    if (m_aThread.joinable())
        m_aThread.join(); // a player that has left its loop
    m_rGif.Rewind();
    m_pPresenter = presenter;
    m_nState.store(GifAnimation::STATE_PLAYING);
    m_bPlaying.store(true);
    m_aThread = std::thread([this, presenter] { Run(presenter); });
    return true;
}

void GifPlayer::Stop()
{
    int state = GifAnimation::STATE_PLAYING;
    if (!m_nState.compare_exchange_strong(state, GifAnimation::STATE_STOP_REQUESTED))
        return;
    // The player notifies after it writes STATE_STOPPED; until then the state only changes
    // from the value just read to STATE_STOPPED.
    while ((state = m_nState.load()) != GifAnimation::STATE_STOPPED)
        m_nState.wait(state);
}

void GifPlayer::WaitUntilLeft()
{
    if (m_aThread.joinable())
        m_aThread.join();
}

void GifPlayer::SetBackgroundTexture(const Texture& texture)
{
    const bool wasPlaying = m_nState.load() == GifAnimation::STATE_PLAYING;
    GifPresenter* presenter = m_pPresenter;
    Stop();
    WaitUntilLeft();
    m_aBackground = texture;
    if (wasPlaying)
        Play(presenter);
}

void GifPlayer::Run(GifPresenter* presenter)
{
    platform::LowerCurrentThreadPriority();
    const TamSize screen(m_rGif.GetScreenWidth(), m_rGif.GetScreenHeight());
    // The canvas lives on this thread only; the presenter copies from it during Present.
    std::unique_ptr<VirtualDevice> canvas;
    if (m_rGif.IsScreenDrawable()) {
        canvas = std::make_unique<VirtualDevice>(screen);
        canvas->ChangeBackgroundTexture(m_aBackground);
        canvas->Erase(CRectangle(TamPoint(0, 0), screen));
    }
    uint8_t previousDisposal = 4; // leave in place
    TamPoint previousAt;
    std::unique_ptr<VirtualDevice> saved;
    GifClock& clock = m_rGif.GetClock();
    while (m_nState.load() != GifAnimation::STATE_STOP_REQUESTED) {
        const uint64_t ticks = clock.GetTicks();
        if (RestoresArea(previousDisposal) && saved && canvas) {
            canvas->DrawOutDev(previousAt, saved->GetOutputSize(), *saved, TamPoint(0, 0));
            saved.reset();
        }
        m_rGif.ClearDisposal();
        const GifFrame frame = m_rGif.NextImage();
        previousDisposal = m_rGif.GetDisposal();
        if (!frame.IsEmpty() && canvas) {
            previousAt = TamPoint(frame.GetLeft(), frame.GetTop());
            const TamSize size(frame.GetWidth(), frame.GetHeight());
            if (RestoresArea(previousDisposal)) {
                saved = std::make_unique<VirtualDevice>(size);
                saved->DrawOutDev(TamPoint(0, 0), size, *canvas, previousAt);
            }
            DrawFrame(*canvas, frame, previousAt, true);
        }
        if (canvas)
            presenter->Present(*canvas, screen);
        GifAnimation::WaitFrameDelay(clock, ticks, m_rGif.GetFrameDelayMs(), m_nState);
    }
    m_nState.store(GifAnimation::STATE_STOPPED);
    m_nState.notify_all();
    m_bPlaying.store(false); // the last touch of this object by the player thread
}

bool GifPlayer::DrawFirstFrame(OutputDevice& device, const TamPoint& at)
{
    const GifFrame frame = m_rGif.FirstImage();
    if (frame.IsEmpty())
        return false;
    if (m_rGif.IsTransparent()) {
        const Texture previous = device.GetBackgroundTexture();
        device.ChangeBackgroundTexture(m_aBackground);
        device.Erase(CRectangle(at, TamSize(frame.GetWidth(), frame.GetHeight())));
        device.ChangeBackgroundTexture(previous);
        DrawFrame(device, frame, at, false, m_rGif.GetTransparentColor());
    } else {
        DrawFrame(device, frame, at, true);
    }
    return true;
}

} // namespace vesk
