#include <vesk/graphics/CommandIds.hpp>
#include <vesk/graphics/VirtualDevice.hpp>

#include "graphics/ColorMath_p.hpp"
#include "graphics/ScreenScale_p.hpp"

#include <algorithm>
#include <cmath>

namespace vesk {

CommandIds::CommandIds(uint32_t capacity)
    : m_aCommands(capacity, NONE), m_aImageIndexes(capacity, NONE), m_aTexts(capacity), m_aToolTips(capacity),
      m_nCapacity(capacity), m_fScale(ScreenScaleFactor())
{
}

CommandIds::CommandIds(const CommandIds& other)
    : m_aCommands(other.m_aCommands), m_aImageIndexes(other.m_aImageIndexes), m_aTexts(other.m_aTexts),
      m_aToolTips(other.m_aToolTips), m_aImageList(other.m_aImageList), m_nCount(other.m_nCount),
      m_nImageCount(other.m_nImageCount), m_nCapacity(other.m_nCapacity), m_bToolTips(other.m_bToolTips),
      m_bVertical(other.m_bVertical), m_fScale(other.m_fScale)
{
}

CommandIds& CommandIds::operator=(const CommandIds& other)
{
    if (this == &other)
        return *this;
    m_aCommands = other.m_aCommands;
    m_aImageIndexes = other.m_aImageIndexes;
    m_aTexts = other.m_aTexts;
    m_aToolTips = other.m_aToolTips;
    m_pStringList.reset();
    m_aImageList = other.m_aImageList;
    m_nCount = other.m_nCount;
    m_nImageCount = other.m_nImageCount;
    m_nCapacity = other.m_nCapacity;
    m_bToolTips = other.m_bToolTips;
    m_bVertical = other.m_bVertical;
    m_fScale = other.m_fScale;
    return *this;
}

CommandIds::~CommandIds() = default;

void CommandIds::Add(uint32_t command, const UString& text, const Bitmap& image, const UString& toolTip)
{
    if (m_nCount >= m_nCapacity)
        return;
    m_aCommands[m_nCount] = command;
    m_aTexts[m_nCount] = text;
    m_aToolTips[m_nCount] = toolTip.Len() == 0 ? text : toolTip;
    const TamSize size = image.GetSize();
    m_aImageIndexes[m_nCount] = size.Width() != 0 && size.Height() != 0 ? AddReserve(image) - 1 : NONE;
    ++m_nCount;
}

void CommandIds::AddSeparator()
{
    if (m_nCount >= m_nCapacity)
        return;
    m_aCommands[m_nCount] = NONE;
    m_aImageIndexes[m_nCount] = NONE;
    m_aTexts[m_nCount] = u"$sep$";
    m_aToolTips[m_nCount] = UString();
    ++m_nCount;
}

uint32_t CommandIds::AddReserve(const Bitmap& image)
{
    if (image.Empty())
        return 0;
    const bool picture = image.IsGdiplusBitmap();
    Bitmap added = image;
    if (m_fScale > 1.2) {
        // Stretch scales a picture in high quality and an opaque view pixel by pixel.
        const TamSize size = image.GetSize();
        VirtualDevice display(TamSize(1, 1));
        added = image.Stretch(&display,
                              TamSize(TruncToInt32(std::round(size.Width() * m_fScale)),
                                      TruncToInt32(std::round(size.Height() * m_fScale))),
                              false, false);
    }
    // Pictures carry their own transparency and are keyed on white; opaque views on magenta.
    m_nImageCount = m_aImageList.Add(added, TamColor(picture ? COL_WHITE : COL_LIGHTMAGENTA));
    return m_nImageCount;
}

const char16_t* CommandIds::GetPWinStringList()
{
    size_t length = 10;
    for (uint32_t i = 0; i < m_nCount; ++i)
        length += m_aTexts[i].Len() + 3;
    m_pStringList = std::make_unique<char16_t[]>(length); // zeroed: an empty list
    for (uint32_t i = 0; i < m_nCount; ++i)
        m_aTexts[i].AddToStringListBuffer(m_pStringList.get());
    return m_pStringList.get();
}

bool CommandIds::HasTexts() const
{
    return std::any_of(m_aTexts.begin(), m_aTexts.begin() + m_nCount, [](const UString& s) { return s.Len() != 0; });
}

bool CommandIds::HasToolTips() const
{
    return m_bToolTips &&
           std::any_of(m_aToolTips.begin(), m_aToolTips.begin() + m_nCount, [](const UString& s) { return s.Len() != 0; });
}

uint32_t CommandIds::operator[](uint32_t index) const
{
    return index < m_nCount ? m_aCommands[index] : NONE;
}

uint32_t CommandIds::GetBitmapId(uint32_t index) const
{
    return index < m_nCount ? m_aImageIndexes[index] : NONE;
}

UString CommandIds::GetString(uint32_t index) const
{
    return index < m_nCount ? m_aTexts[index] : UString();
}

UString CommandIds::GetToolTipText(uint32_t index) const
{
    return index < m_nCount ? m_aToolTips[index] : UString();
}

void CommandIds::SetString(uint32_t index, const UString& text)
{
    if (index < m_nCount)
        m_aTexts[index] = text;
}

} // namespace vesk
