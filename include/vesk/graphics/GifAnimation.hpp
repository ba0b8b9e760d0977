#pragma once

#include <vesk/export.hpp>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace vesk {

class DirEntry;
class GifReader;

// One decoded frame in a single allocation: a 40-byte bitmap-information header (rows
// top-down, 8 bits per pixel, 256 colours), a palette of 256 entries (blue, green, red, 0), the
// pixels (one palette index each, rows of GetStride() bytes, top row first) and the decoder's
// table area. An empty frame stands for "no bitmap".
class VESK_API GifFrame {
public:
    GifFrame();
    GifFrame(GifFrame&&) noexcept;
    GifFrame& operator=(GifFrame&&) noexcept;
    ~GifFrame();

    bool IsEmpty() const { return !m_pBuffer; }
    // The bitmap-information header (40 bytes), the palette (1024 bytes), the pixels.
    const uint8_t* GetHeader() const { return m_pBuffer.get(); }
    const uint8_t* GetPalette() const { return m_pBuffer.get() + HEADER_BYTES; }
    const uint8_t* GetPixels() const { return m_pBuffer.get() + HEADER_BYTES + PALETTE_BYTES; }
    uint16_t GetLeft() const { return m_nLeft; }
    uint16_t GetTop() const { return m_nTop; }
    uint16_t GetWidth() const { return m_nWidth; }
    uint16_t GetHeight() const { return m_nHeight; }
    // Bytes per row: the width rounded up to a multiple of 4.
    uint32_t GetStride() const { return m_nStride; }

    static constexpr size_t HEADER_BYTES = 40;
    static constexpr size_t PALETTE_BYTES = 1024;
    static constexpr size_t TABLE_BYTES = 24576; // 4096 entries of three 16-bit fields
    // Header, palette and table: what a frame buffer holds besides its pixels.
    static constexpr size_t FIXED_BYTES = HEADER_BYTES + PALETTE_BYTES + TABLE_BYTES;
    // Frames whose buffer would be larger are refused (no bitmap) before anything is allocated.
    static constexpr uint64_t MAX_BUFFER_BYTES = uint64_t{256} << 20;

private:
    friend class GifReader;
    std::unique_ptr<uint8_t[]> m_pBuffer;
    uint32_t m_nStride = 0;
    uint16_t m_nLeft = 0, m_nTop = 0, m_nWidth = 0, m_nHeight = 0;
};

// The player's time source: a millisecond tick count and a sleep. Tests substitute their own.
class VESK_API GifClock {
public:
    virtual ~GifClock();
    virtual uint64_t GetTicks() = 0;
    virtual void Sleep(uint32_t milliseconds) = 0;
    // The steady clock of the system.
    static GifClock& System();
};

// An animated GIF (87a or 89a) read by the library's own reader and LZW decoder. The whole file
// is held in memory; frames are decoded one at a time on demand, with the values of the
// graphic control extension met before each frame.
class VESK_API GifAnimation {
public:
    GifAnimation();
    virtual ~GifAnimation();
    GifAnimation(const GifAnimation&) = delete;
    GifAnimation& operator=(const GifAnimation&) = delete;

    // Reads the file of the entry with its extension changed to "anm" (where animations are
    // kept, whatever the entry's extension). 1 on success; 0 when the file cannot be read, its
    // header does not start with "GIF87a" or "GIF89a", or its global colour table is cut short.
    // Damaged blocks after a valid header end the scan early and still succeed.
    int Load(const DirEntry& entry);
    bool IsLoaded() const { return m_bLoaded; }

    // Moves back to the first frame without decoding it.
    void Rewind();
    // Rewinds and decodes the first frame.
    GifFrame FirstImage();
    // Decodes the next frame; after the last one the animation starts again at the first. An
    // unknown block, a corrupt frame or a file without frames gives an empty frame.
    GifFrame NextImage();

    // The logical screen.
    uint16_t GetScreenWidth() const;
    uint16_t GetScreenHeight() const;
    uint8_t GetBackgroundIndex() const;
    // Entries of the global colour table (0 when there is none), and its red, green, blue bytes.
    uint32_t GetGlobalColorCount() const;
    const uint8_t* GetGlobalColorTable() const;
    // Whether a canvas of the logical screen (32 bits a pixel) stays within the buffer limit.
    bool IsScreenDrawable() const;

    // The frame last met: position and size (10 x 10 before any frame), packed flags byte.
    uint16_t GetFrameLeft() const;
    uint16_t GetFrameTop() const;
    uint16_t GetFrameWidth() const;
    uint16_t GetFrameHeight() const;
    uint8_t GetFrameFlags() const;

    // Graphic control values of the frame to come. Disposal keeps its bits in place: 0, 4
    // (leave), 8 (restore background), 12 (restore previous).
    uint8_t GetDisposal() const;
    // The player clears the disposal before it takes a frame, so that a frame without a graphic
    // control extension does not inherit one.
    void ClearDisposal();
    bool IsTransparent() const;
    // Delay in hundredths of a second, as stored.
    uint16_t GetDelay() const;
    uint8_t GetTransparentIndex() const;
    // The transparent index's colour in the table of the last frame, red | green << 8 | blue << 16.
    uint32_t GetTransparentColor() const;
    // The delay in milliseconds, or the default of 50 ms when the frame's delay is 0.
    uint32_t GetFrameDelayMs() const;

    // The clock the player uses (the system clock unless replaced; not owned).
    void SetClock(GifClock* clock) { m_pClock = clock; }
    GifClock& GetClock() const { return *m_pClock; }

    // Player state words: idle, playing, stop requested, stopped.
    enum PlayerState : int { STATE_IDLE = 0, STATE_STOP_REQUESTED = 1, STATE_STOPPED = 2, STATE_PLAYING = 5 };
    // Waits the frame delay counted from `startTicks` in steps of 100 ms, checking for a stop
    // request (state STATE_STOP_REQUESTED) after each; the first step is always slept, so the
    // wait is rounded up to a multiple of 100 ms. Returns the ticks waited.
    static uint64_t WaitFrameDelay(GifClock& clock, uint64_t startTicks, uint32_t delayMs, const std::atomic<int>& state);

private:
    std::unique_ptr<GifReader> m_pReader;
    GifClock* m_pClock;
    bool m_bLoaded = false;
};

} // namespace vesk
