#pragma once

// The buttons of each message-box type, shared by the displays so that a box offers and
// answers the same on all of them.

#include <vesk/frame/WinMessages.hpp>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace vesk::display {

// The buttons of a message-box type as their result codes, left to right (MB_OK's for
// unknown types).
inline std::vector<int> MessageBoxButtons(uint32_t type)
{
    switch (type & MB_TYPEMASK) {
    case MB_OKCANCEL: return {IDOK, IDCANCEL};
    case MB_ABORTRETRYIGNORE: return {IDABORT, IDRETRY, IDIGNORE};
    case MB_YESNOCANCEL: return {IDYES, IDNO, IDCANCEL};
    case MB_YESNO: return {IDYES, IDNO};
    case MB_RETRYCANCEL: return {IDRETRY, IDCANCEL};
    case MB_CANCELTRYCONTINUE: return {IDCANCEL, IDTRYAGAIN, IDCONTINUE};
    default: return {IDOK};
    }
}

// Index of the default button among `count`: the type's MB_DEFBUTTONn, the last button when
// the box has fewer.
inline int DefaultButtonIndex(uint32_t type, size_t count)
{
    return std::min(static_cast<int>((type & MB_DEFMASK) >> 8), static_cast<int>(count) - 1);
}

// The result of a box nobody answers: its default button.
inline int DefaultMessageBoxResult(uint32_t type)
{
    const std::vector<int> buttons = MessageBoxButtons(type);
    return buttons[static_cast<size_t>(DefaultButtonIndex(type, buttons.size()))];
}

} // namespace vesk::display
