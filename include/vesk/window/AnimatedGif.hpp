#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/GifAnimation.hpp>
#include <vesk/graphics/GifPlayer.hpp>
#include <vesk/graphics/Texture.hpp>
#include <vesk/window/CWnd.hpp>
#include <vesk/window/OwnedWindow.hpp>

#include <cstdint>

namespace vesk {

class DirEntry;

// A child window that plays an animated GIF. The file is read once into memory and decoded a
// frame at a time; while playing, a thread of its own composes the frames and copies them into
// the window through a window device of its own. When it is not playing, painting shows the
// first frame. A border of `borderWidth` pixels with a sunken edge surrounds the picture.
class VESK_API AnimatedGif : public OwnedWindow
{
public:
    // Makes the child window of `parent` at `pos` (hidden until shown through GetCWnd()).
    AnimatedGif(Window* parent, int32_t borderWidth, const TamPoint& pos = TamPoint(0, 0));
    ~AnimatedGif() override;

    // Stops a running player and reads the file of the entry with its extension changed to
    // "anm"; 1 on success, 0 on failure. The window is sized to the first frame plus the border.
    int Load(const DirEntry& entry);
    bool IsLoaded() const { return m_aGif.IsLoaded(); }
    // Starts the player thread; false while its loop is still running (playing or stopping).
    // Without a loaded animation or a native window it does nothing and returns true.
    bool Play();
    // Requests the player to stop and waits for it.
    void Stop() { m_aPlayer.Stop(); }
    // Stops a running player, waits until it has left its loop, takes the texture and plays
    // again if it was playing.
    void SetBackgroundTexture(const Texture& texture) { m_aPlayer.SetBackgroundTexture(texture); }
    const Texture& GetBackgroundTexture() const { return m_aPlayer.GetBackgroundTexture(); }
    bool IsPlaying() const { return m_aPlayer.IsPlaying(); }
    GifAnimation::PlayerState GetState() const { return m_aPlayer.GetState(); }
    int32_t GetBorderWidth() const { return m_nBorder; }
    // The animation itself (frames, timing, the clock the player waits with).
    GifAnimation& GetAnimation() { return m_aGif; }

protected:
    // The border, and the first frame unless the player is running.
    void Paint(const CRectangle& rect) override;
    // Paints the first frame at (border, border) over the background texture.
    bool DrawFirstFrame();

private:
    // Copies the player's canvas into the window from the player thread.
    class Presenter final : public GifPresenter
    {
    public:
        Presenter(CWnd& wnd, int32_t border);
        void Present(OutputDevice& canvas, const TamSize& size) override;

    private:
        Window m_aDevice; // a second, unregistered device of the same native window
        int32_t m_nBorder;
    };

    int32_t m_nBorder;
    GifAnimation m_aGif;
    Presenter m_aPresenter;
    GifPlayer m_aPlayer;
};

} // namespace vesk
