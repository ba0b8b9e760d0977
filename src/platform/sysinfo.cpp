#include "platform/sysinfo.hpp"

#include "platform/hires_timer.hpp"
#include "platform/keyboard.hpp"
#include "platform/screen_reader.hpp"

#include <atomic>
#include <cstdlib>
#include <map>
#include <mutex>

namespace vesk::platform {

namespace {

constexpr int32_t kDefaultResolution = 96;
constexpr uint32_t kFirstMessage = 0xC000;
constexpr uint32_t kLastMessage = 0xFFFF;

// VESK_DPI, when it holds a positive whole number, else 96.
int32_t ConfiguredResolution()
{
    const char* text = std::getenv("VESK_DPI");
    if (text == nullptr || *text == '\0')
        return kDefaultResolution;
    char* end = nullptr;
    long dpi = std::strtol(text, &end, 10);
    return (*end == '\0' && dpi > 0 && dpi <= INT32_MAX) ? static_cast<int32_t>(dpi) : kDefaultResolution;
}

std::atomic<SystemInfo*> g_pInstalled{nullptr};

std::u16string FoldAsciiCase(std::u16string_view name)
{
    std::u16string folded(name);
    for (char16_t& c : folded)
        if (c >= u'a' && c <= u'z')
            c = static_cast<char16_t>(c - u'a' + u'A');
    return folded;
}

} // namespace

int32_t SystemInfo::GetResolutionX()
{
    return ConfiguredResolution();
}

int32_t SystemInfo::GetResolutionY()
{
    return ConfiguredResolution();
}

ScreenSize SystemInfo::GetScreenSize()
{
    return {1920, 1080};
}

bool SystemInfo::GetScreenReader(bool& running)
{
    return ReadScreenReaderSetting(running);
}

uint16_t SystemInfo::KeyScan(char16_t ch)
{
    return UsKeyScan(ch);
}

SystemInfo& GetSystemInfo()
{
    static SystemInfo base;
    SystemInfo* installed = g_pInstalled.load();
    return installed != nullptr ? *installed : base;
}

SystemInfo* SetSystemInfo(SystemInfo* info)
{
    return g_pInstalled.exchange(info);
}

bool TestMachineHiResTimer()
{
    MachineCounterProbe probe;
    return TestHiResTimer(probe);
}

uint32_t RegisterMessage(std::u16string_view name)
{
    if (name.empty())
        return 0;
    static std::mutex mutex;
    static std::map<std::u16string, uint32_t> codes;
    std::lock_guard lock(mutex);
    auto it = codes.try_emplace(FoldAsciiCase(name), kFirstMessage + codes.size()).first;
    if (it->second > kLastMessage) {
        codes.erase(it);
        return 0;
    }
    return it->second;
}

std::u16string WindowClassName(uint32_t style, uint32_t background)
{
    static constexpr char16_t kDigits[] = u"0123456789ABCDEF";
    auto hex = [](uint32_t v) {
        std::u16string text;
        do {
            text.insert(text.begin(), kDigits[v & 0xF]);
            v >>= 4;
        } while (v != 0);
        return text;
    };
    return u"Vesk:" + hex(style) + u":" + hex(background);
}

} // namespace vesk::platform
