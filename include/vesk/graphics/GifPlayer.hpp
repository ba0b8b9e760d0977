#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/GifAnimation.hpp>
#include <vesk/graphics/Texture.hpp>
#include <vesk/values/TamPoint.hpp>
#include <vesk/values/TamSize.hpp>

#include <atomic>
#include <thread>

namespace vesk {

class OutputDevice;

// Where a player shows its canvas. Called on the player thread after every frame; the canvas
// belongs to that thread, and the presenter copies `size` pixels of `canvas` from (0, 0) onto
// its own device before it returns.
class VESK_API GifPresenter {
public:
    virtual ~GifPresenter();
    virtual void Present(OutputDevice& canvas, const TamSize& size) = 0;
};

// Plays an GifAnimation from a thread of its own: frames are composed on a canvas of the
// logical screen, following each frame's disposal and delay, and the canvas is handed to the
// presenter after every frame. The animation repeats until Stop. Stopping is a handshake: the
// requester writes STATE_STOP_REQUESTED and blocks until the player writes STATE_STOPPED.
class VESK_API GifPlayer {
public:
    // Plays `gif` (not owned; it must outlive the player and not be loaded while it plays).
    explicit GifPlayer(GifAnimation& gif);
    ~GifPlayer();
    GifPlayer(const GifPlayer&) = delete;
    GifPlayer& operator=(const GifPlayer&) = delete;

    // Starts the player thread; false while its loop is still running (playing or stopping).
    // Without a loaded animation or a presenter it does nothing and returns true.
    bool Play(GifPresenter* presenter);
    // Requests a stop and waits until the player has stopped.
    void Stop();
    // Stops a running player, takes the texture the canvas is cleared with, and plays again
    // if it was playing.
    void SetBackgroundTexture(const Texture& texture);
    const Texture& GetBackgroundTexture() const { return m_aBackground; }

    GifAnimation::PlayerState GetState() const { return GifAnimation::PlayerState(m_nState.load()); }
    // True while the player thread runs its loop.
    bool IsPlaying() const { return m_bPlaying.load(); }

    // Paints the first frame at `at` on `device`: over the background texture with the
    // frame's transparent colour left out, or opaque when the frame has none. False when the
    // animation has no first frame.
    bool DrawFirstFrame(OutputDevice& device, const TamPoint& at);

private:
    void Run(GifPresenter* presenter);
    void WaitUntilLeft();

    GifAnimation& m_rGif;
    Texture m_aBackground;
    std::atomic<int> m_nState{GifAnimation::STATE_IDLE};
    std::atomic<bool> m_bPlaying{false};
    GifPresenter* m_pPresenter = nullptr;
    std::thread m_aThread;
};

} // namespace vesk
