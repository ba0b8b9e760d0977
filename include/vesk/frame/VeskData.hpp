#pragma once

#include <vesk/export.hpp>
#include <vesk/frame/ColorName.hpp>
#include <vesk/frame/NativeWindow.hpp>
#include <vesk/text/TranscriptData.hpp>

#include <cstdint>
#include <memory>
#include <string>

namespace vesk {

// State of higher families that the library state owns without knowing it: each family reaches
// its slot through an access struct of its own and makes the object on first use.
struct LocaleRegistries;
class DCManager;
class TamColor;
class WinMsgRouter;

// The library's own registered window messages.
enum UserMessageCode : int
{
    USERMSG_DRAG_RENDER = 0, // "VeskMFCDragRender"
    USERMSG_DROP = 1,        // "VeskMFCDrop"
    USERMSG_QUERY_DROP = 2   // "VeskMFCQueryDrop"
};

// One row of the colour table in 16-bit scale: an 8-bit channel c is kept as c * 256, and 255
// as 65535.
struct ColorTableEntry
{
    uint16_t m_nRed;
    uint16_t m_nGreen;
    uint16_t m_nBlue;
};

// Indexes of VeskData::GetKeyCode: the characters whose keys the library asks for.
enum VeskKey : int
{
    VESKKEY_PLUS = 0, // "+"
    VESKKEY_MINUS,    // "-"
    VESKKEY_MULTIPLY, // "*"
    VESKKEY_DIVIDE,   // "/"
    VESKKEY_PERIOD,   // "."
    VESKKEY_COMMA,    // ","
    VESKKEY_LESS,     // "<"
    VESKKEY_GREATER,  // ">"
    VESKKEY_EQUAL,    // "="
    VESKKEY_COUNT
};

// Indexes of VeskData::GetMediaKeyCode.
enum VeskMediaKey : int
{
    VESKMEDIA_NEXT_TRACK = 0,
    VESKMEDIA_PREV_TRACK,
    VESKMEDIA_STOP,
    VESKMEDIA_PLAY_PAUSE,
    VESKMEDIA_COUNT
};

// The library's process-wide state: what drawing and window classes need to know about the
// display and the desktop. Created by VeskInit, reached through GetPVeskData, destroyed by
// VeskExit. Copies share the owned objects (colour table, transcript data) with the original;
// they are freed with the last holder.
class VESK_API VeskData
{
public:
    // Reads the desktop: window class, colour table, key codes, registered messages,
    // transcript data (Cyrillic), screen reader, resolution, text scale, timer test.
    VeskData();
    VeskData(const VeskData&) = default;
    VeskData& operator=(const VeskData&) = default;
    ~VeskData();

    // v * horizontal (vertical) resolution / 96, rounded to nearest, halves away from zero.
    int ScaleX(int v) const;
    int ScaleY(int v) const;
    // v * 96 / horizontal (vertical) resolution, rounded the same way.
    int UnScaleX(int v) const;
    int UnScaleY(int v) const;
    // Pixels per logical inch.
    int32_t GetResolutionX() const { return m_nResolutionX; }
    int32_t GetResolutionY() const { return m_nResolutionY; }

    // The desktop's text scale factor (1.0 unless the desktop enlarges text).
    double GetTextScaleFactor() const { return m_fTextScaleFactor; }
    void SetTextScaleFactor(double factor) { m_fTextScaleFactor = factor; }
    // Whether themes are in use; set by the application.
    bool HasVisualStyles() const { return m_bVisualStyles; }
    void SetVisualStyles(bool on) { m_bVisualStyles = on; }
    // Whether ClearType text may be used; set by the application.
    bool CanClearType() const { return m_bClearType; }
    void SetCanClearType(bool on) { m_bClearType = on; }
    // Whether the high-resolution counter proved reliable at start.
    bool CanHiResTimer() const { return m_bHiResTimer; }
    // True unless a screen reader was running at start.
    bool CanAccelerator() const { return !m_bScreenReader; }

    // The registered message for code 0, 1 or 2; 0 for any other value.
    uint32_t GetUserMessageCode(UserMessageCode code) const;
    // Key code (virtual key and shift state) of a character of VeskKey; 0 out of range.
    uint32_t GetKeyCode(VeskKey key) const;
    // The platform's media-key code of a VeskMediaKey; 0 out of range.
    uint32_t GetMediaKeyCode(VeskMediaKey key) const;
    // Class of the windows the library creates.
    const std::u16string& GetWindowClassName() const { return m_sWindowClassName; }
    // The application's main window; null until it is set.
    NativeWindow GetMainWnd() const { return m_hMainWnd; }
    void SetMainWnd(NativeWindow window) { m_hMainWnd = window; }

    // The transcript data (Cyrillic from the start).
    TranscriptData* GetTranscriptData() { return m_pTranscriptData.get(); }
    const TranscriptData* GetTranscriptData() const { return m_pTranscriptData.get(); }
    bool HasTranscriptData() const { return m_pTranscriptData != nullptr; }

    // The desktop's window background colour.
    static TamColor GetBackgroundColour();
    // The library follows the desktop's colour scheme.
    static bool UseWinColors() { return true; }
    // Fills the colour table, allocating it when absent; call again to pick up changed
    // system colours.
    void InitColorTable();
    // Row `name` of the colour table; black for a name outside the table.
    ColorTableEntry GetColorTableEntry(ColorName name) const;

private:
    friend struct LocaleRegistriesAccess;
    friend struct WinMsgRouterAccess;
    friend struct DCManagerAccess;

    NativeWindow m_hMainWnd = nullptr;
    std::shared_ptr<ColorTableEntry[]> m_pColorTable;
    uint32_t m_aKeyCodes[VESKKEY_COUNT] = {};
    uint32_t m_aMediaKeyCodes[VESKMEDIA_COUNT] = {};
    uint32_t m_aUserMessageCodes[3] = {};
    std::u16string m_sWindowClassName;
    std::shared_ptr<TranscriptData> m_pTranscriptData;
    std::shared_ptr<LocaleRegistries> m_pLocaleRegistries; // International's, made on first use
    std::shared_ptr<WinMsgRouter> m_pWinMsgRouter;         // the message router, made on first use
    std::shared_ptr<DCManager> m_pDCManager;               // window device contexts, made on first use
    double m_fTextScaleFactor = 1.0;
    int32_t m_nResolutionX = 96;
    int32_t m_nResolutionY = 96;
    bool m_bVisualStyles = false;
    bool m_bClearType = false;
    bool m_bHiResTimer = false;
    bool m_bScreenReader = false;
};

// Starts the library: creates the library state (the message router comes with it). A second
// call while the library runs changes nothing.
VESK_API void VeskInit();
// Ends the library: destroys the state and the router; GetPVeskData() is null afterwards.
VESK_API void VeskExit();
// The library state; null before VeskInit and after VeskExit.
VESK_API VeskData* GetPVeskData();
// Records the application's main window.
VESK_API void SetVeskMainWnd(NativeWindow window);
// Records the application's main frame window.
VESK_API void SetVeskMainFrame(NativeWindow frame);

} // namespace vesk
