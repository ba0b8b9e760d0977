#include <vesk/frame/VeskData.hpp>

#include "platform/keyboard.hpp"
#include "platform/settings.hpp"
#include "platform/sysinfo.hpp"
#include "platform/system_colors.hpp"

namespace vesk {

namespace {

constexpr int32_t kDefaultResolution = 96;
constexpr uint32_t kClassStyleDoubleClicks = 8;   // double clicks reach the window
constexpr uint32_t kWindowColorBrush = 5 + 1;     // window colour as a class background

// Product and quotient in 64 bits, rounded to nearest with halves away from zero; -1 when
// the divisor is 0 or the result leaves the 32-bit range.
int MulDiv(int value, int numerator, int denominator)
{
    if (denominator == 0)
        return -1;
    int64_t product = int64_t{value} * numerator;
    int64_t divisor = denominator;
    if (divisor < 0) {
        product = -product;
        divisor = -divisor;
    }
    int64_t half = divisor / 2;
    int64_t result = (product >= 0 ? product + half : product - half) / divisor;
    return (result > INT32_MAX || result < -INT32_MAX) ? -1 : static_cast<int>(result);
}

int32_t ResolutionOrDefault(int32_t resolution)
{
    return resolution == 0 ? kDefaultResolution : resolution;
}

} // namespace

VeskData::VeskData()
{
    platform::SystemInfo& info = platform::GetSystemInfo();
    m_sWindowClassName = platform::WindowClassName(kClassStyleDoubleClicks, kWindowColorBrush);
    InitColorTable();

    const char16_t keys[VESKKEY_COUNT] = {u'+', u'-', u'*', u'/', u'.', u',', u'<', u'>', u'='};
    for (int i = 0; i < VESKKEY_COUNT; ++i)
        m_aKeyCodes[i] = info.KeyScan(keys[i]);
    const uint16_t mediaKeys[VESKMEDIA_COUNT] = {VK_MEDIA_NEXT_TRACK, VK_MEDIA_PREV_TRACK,
                                                 VK_MEDIA_STOP, VK_MEDIA_PLAY_PAUSE};
    for (int i = 0; i < VESKMEDIA_COUNT; ++i)
        m_aMediaKeyCodes[i] = mediaKeys[i];

    m_aUserMessageCodes[USERMSG_DRAG_RENDER] = platform::RegisterMessage(u"VeskMFCDragRender");
    m_aUserMessageCodes[USERMSG_DROP] = platform::RegisterMessage(u"VeskMFCDrop");
    m_aUserMessageCodes[USERMSG_QUERY_DROP] = platform::RegisterMessage(u"VeskMFCQueryDrop");

    m_pTranscriptData = std::make_shared<TranscriptData>();
    m_pTranscriptData->SetToCyrillic();

    bool screenReader = false;
    if (info.GetScreenReader(screenReader))
        m_bScreenReader = screenReader;

    m_nResolutionX = ResolutionOrDefault(info.GetResolutionX());
    m_nResolutionY = ResolutionOrDefault(info.GetResolutionY());

    uint32_t textScale = 0;
    if (platform::settings::ReadDword(u"Software\\Microsoft\\Accessibility", u"TextScaleFactor", textScale) &&
        textScale > 100)
        m_fTextScaleFactor = textScale / 100.0;

    m_bHiResTimer = platform::TestMachineHiResTimer();
}

VeskData::~VeskData() = default;

int VeskData::ScaleX(int v) const
{
    return MulDiv(v, m_nResolutionX, kDefaultResolution);
}

int VeskData::ScaleY(int v) const
{
    return MulDiv(v, m_nResolutionY, kDefaultResolution);
}

int VeskData::UnScaleX(int v) const
{
    return MulDiv(v, kDefaultResolution, m_nResolutionX);
}

int VeskData::UnScaleY(int v) const
{
    return MulDiv(v, kDefaultResolution, m_nResolutionY);
}

uint32_t VeskData::GetUserMessageCode(UserMessageCode code) const
{
    int i = code;
    return (i >= 0 && i < 3) ? m_aUserMessageCodes[i] : 0;
}

uint32_t VeskData::GetKeyCode(VeskKey key) const
{
    int i = key;
    return (i >= 0 && i < VESKKEY_COUNT) ? m_aKeyCodes[i] : 0;
}

uint32_t VeskData::GetMediaKeyCode(VeskMediaKey key) const
{
    int i = key;
    return (i >= 0 && i < VESKMEDIA_COUNT) ? m_aMediaKeyCodes[i] : 0;
}

} // namespace vesk
