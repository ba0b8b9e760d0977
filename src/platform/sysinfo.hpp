#pragma once


#include <cstdint>
#include <string>
#include <string_view>

// What the library learns from the display and the desktop at start.
namespace vesk::platform {

struct ScreenSize
{
    int32_t cx;
    int32_t cy;
};

// The display backends derive from this; the base answers for a machine without a display:
// resolution 96 (or VESK_DPI), a 1920 x 1080 screen, a US keyboard and the desktop's
// accessibility setting for the screen reader.
class SystemInfo
{
public:
    virtual ~SystemInfo() = default;

    // Pixels per logical inch horizontally and vertically; 0 when the display cannot tell.
    virtual int32_t GetResolutionX();
    virtual int32_t GetResolutionY();
    // Size of the screen in pixels.
    virtual ScreenSize GetScreenSize();
    // Whether a screen reader runs; false, leaving `running` alone, when that is unknown.
    virtual bool GetScreenReader(bool& running);
    // Key that types `ch`: virtual-key code in the low byte, shift state in the high byte,
    // 0xFFFF when no key types it.
    virtual uint16_t KeyScan(char16_t ch);
};

// The system information in effect: the one last installed, else the base.
SystemInfo& GetSystemInfo();
// Installs `info` (not owned; null goes back to the base) and returns the one it replaces.
SystemInfo* SetSystemInfo(SystemInfo* info);

// Whether the high-resolution counter of this machine is reliable across its processors;
// the calling thread's affinity is the same afterwards.
bool TestMachineHiResTimer();

// Code of the registered message `name`, from 0xC000 to 0xFFFF: the same name (ignoring
// ASCII case) always gives the same code in the process. 0 for an empty name or when the
// range is used up.
uint32_t RegisterMessage(std::u16string_view name);

// Name of the window class with class style `style` and background brush `background`: equal
// attributes give the same name.
std::u16string WindowClassName(uint32_t style, uint32_t background);

} // namespace vesk::platform
