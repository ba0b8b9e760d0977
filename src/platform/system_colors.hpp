#pragma once

// The desktop's system colours, kept in the settings store under "Control Panel\Colors" as
// text "red green blue" (decimal 0 to 255) per colour name.


#include <cstdint>

namespace vesk::platform {

// The system colour of a colour index (COLOR_* numbering) as 0x00BBGGRR. A colour that is
// absent or damaged in the store gives the classic desktop scheme's colour; an index the store
// does not hold gives 0. Held: scroll bar 0, menu 4, window 5, menu text 7, window text 8,
// highlight 13, highlighted text 14, button face 15, button shadow 16, button text 18, button
// highlight 20.
uint32_t SystemColor(int index);

} // namespace vesk::platform
