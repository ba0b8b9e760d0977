#pragma once

#include <cstdint>

namespace vesk {

// Rows of the library's colour table. Rows 16 to 28 follow the desktop's colour scheme and
// are refreshed by VeskData::InitColorTable; the others are fixed. The fixed underlying type
// makes every 32-bit value a valid ColorName, so out-of-range rows are defined behaviour.
enum ColorName : int32_t
{
    COL_BLACK = 0,
    COL_BLUE,
    COL_GREEN,
    COL_CYAN,
    COL_RED,
    COL_MAGENTA,
    COL_BROWN,
    COL_GRAY,
    COL_LIGHTGRAY,
    COL_LIGHTBLUE,
    COL_LIGHTGREEN,
    COL_LIGHTCYAN,
    COL_LIGHTRED,
    COL_LIGHTMAGENTA,
    COL_YELLOW,
    COL_WHITE,
    COL_MENU,            // menu background
    COL_MENUTEXT,        // menu text
    COL_MENUBAR,         // menu background again
    COL_MENUBARTEXT,     // menu text again
    COL_WINDOWTEXT,
    COL_WINDOW,
    COL_HIGHLIGHT,       // selection background
    COL_HIGHLIGHTTEXT,   // selection text
    COL_BTNTEXT,
    COL_BTNFACE,
    COL_BTNHIGHLIGHT,
    COL_BTNSHADOW,
    COL_SCROLLBAR,
    COL_LIGHTORANGE,
    COL_ORANGE,
    COL_DARKGRAY
};

// Slots in the colour table: one more than the names, the last one is never filled.
inline constexpr int COLOR_TABLE_SIZE = 33;

} // namespace vesk
