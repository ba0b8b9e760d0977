#include <vesk/frame/VeskData.hpp>

#include "platform/system_colors.hpp"

namespace vesk {

namespace {

struct FixedRow
{
    ColorName name;
    uint8_t red, green, blue;
};

constexpr FixedRow kFixedRows[] = {
    {COL_BLACK, 0, 0, 0},          {COL_BLUE, 0, 0, 128},          {COL_GREEN, 0, 128, 0},
    {COL_CYAN, 0, 128, 128},       {COL_RED, 128, 0, 0},           {COL_MAGENTA, 128, 0, 128},
    {COL_BROWN, 133, 69, 0},       {COL_GRAY, 128, 128, 128},      {COL_LIGHTGRAY, 192, 192, 192},
    {COL_LIGHTBLUE, 0, 0, 255},    {COL_LIGHTGREEN, 0, 255, 0},    {COL_LIGHTCYAN, 0, 255, 255},
    {COL_LIGHTRED, 255, 0, 0},     {COL_LIGHTMAGENTA, 255, 0, 255}, {COL_YELLOW, 255, 255, 0},
    {COL_WHITE, 255, 255, 255},    {COL_LIGHTORANGE, 240, 191, 140}, {COL_ORANGE, 255, 160, 0},
    {COL_DARKGRAY, 64, 64, 64},
};

// Rows that follow the desktop, with the platform's system colour index.
struct SystemRow
{
    ColorName name;
    int sysColor;
};

constexpr SystemRow kSystemRows[] = {
    {COL_MENU, 4},       {COL_MENUTEXT, 7},      {COL_MENUBAR, 4},       {COL_MENUBARTEXT, 7},
    {COL_WINDOWTEXT, 8}, {COL_WINDOW, 5},        {COL_HIGHLIGHT, 13},    {COL_HIGHLIGHTTEXT, 14},
    {COL_BTNTEXT, 18},   {COL_BTNFACE, 15},      {COL_BTNHIGHLIGHT, 20}, {COL_BTNSHADOW, 16},
    {COL_SCROLLBAR, 0},
};

// An 8-bit channel in 16-bit scale: full intensity becomes 65535, not 65280.
uint16_t TableChannel(uint8_t c)
{
    return c == 255 ? 65535 : static_cast<uint16_t>(c * 256);
}

ColorTableEntry TableEntry(uint8_t red, uint8_t green, uint8_t blue)
{
    return {TableChannel(red), TableChannel(green), TableChannel(blue)};
}

} // namespace

void VeskData::InitColorTable()
{
    if (!m_pColorTable)
        m_pColorTable = std::make_shared<ColorTableEntry[]>(COLOR_TABLE_SIZE);
    for (const FixedRow& row : kFixedRows)
        m_pColorTable[row.name] = TableEntry(row.red, row.green, row.blue);
    for (const SystemRow& row : kSystemRows) {
        uint32_t c = platform::SystemColor(row.sysColor);
        m_pColorTable[row.name] = TableEntry(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
    }
}

ColorTableEntry VeskData::GetColorTableEntry(ColorName name) const
{
    int row = name;
    if (!m_pColorTable || row < 0 || row >= COLOR_TABLE_SIZE)
        return {0, 0, 0};
    return m_pColorTable[row];
}

} // namespace vesk
