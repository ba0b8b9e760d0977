#include <vesk/window/Events.hpp>

#include <vesk/frame/WinMessages.hpp>

#include <cstdio>

namespace vesk {

void MouseEvent::Fill(uintptr_t wParam, intptr_t lParam)
{
    m_aPos = TamPoint(LoWordSigned(lParam), HiWordSigned(lParam));
    m_nButtons = (wParam & MK_LBUTTON ? MOUSE_LEFT : 0) | (wParam & MK_RBUTTON ? MOUSE_RIGHT : 0) |
                 (wParam & MK_MBUTTON ? MOUSE_MIDDLE : 0);
    m_nModifier = (wParam & MK_SHIFT ? KEY_SHIFT : 0) | (wParam & MK_CONTROL ? KEY_MOD1 : 0);
}

namespace {

const char* SpecialKeyName(uint16_t vk)
{
    switch (vk) {
    case VK_BACK: return "Backspace";
    case VK_TAB: return "Tab";
    case VK_RETURN: return "Enter";
    case VK_PAUSE: return "Pause";
    case VK_ESCAPE: return "Esc";
    case VK_SPACE: return "Space";
    case VK_PRIOR: return "Page Up";
    case VK_NEXT: return "Page Down";
    case VK_END: return "End";
    case VK_HOME: return "Home";
    case VK_LEFT: return "Left";
    case VK_UP: return "Up";
    case VK_RIGHT: return "Right";
    case VK_DOWN: return "Down";
    case VK_SNAPSHOT: return "Print";
    case VK_INSERT: return "Insert";
    case VK_DELETE: return "Delete";
    case VK_APPS: return "Menu";
    case VK_MULTIPLY: return "Num *";
    case VK_ADD: return "Num +";
    case VK_SUBTRACT: return "Num -";
    case VK_DECIMAL: return "Num Del";
    case VK_DIVIDE: return "Num /";
    case VK_NUMLOCK: return "Num Lock";
    case VK_SCROLL: return "Scroll Lock";
    case VK_OEM_1: return ";";
    case VK_OEM_PLUS: return "+";
    case VK_OEM_COMMA: return ",";
    case VK_OEM_MINUS: return "-";
    case VK_OEM_PERIOD: return ".";
    case VK_OEM_2: return "/";
    case VK_OEM_3: return "`";
    case VK_OEM_4: return "[";
    case VK_OEM_5: return "\\";
    case VK_OEM_6: return "]";
    case VK_OEM_7: return "'";
    default: return nullptr;
    }
}

} // namespace

SString KeyCode::GetName() const
{
    const uint16_t vk = GetCode();
    char buffer[16] = {};
    const char* key = SpecialKeyName(vk);
    if (!key) {
        if ((vk >= '0' && vk <= '9') || (vk >= 'A' && vk <= 'Z'))
            std::snprintf(buffer, sizeof buffer, "%c", static_cast<char>(vk));
        else if (vk >= VK_F1 && vk <= VK_F24)
            std::snprintf(buffer, sizeof buffer, "F%d", vk - VK_F1 + 1);
        else if (vk >= VK_NUMPAD0 && vk <= VK_NUMPAD0 + 9)
            std::snprintf(buffer, sizeof buffer, "Num %d", vk - VK_NUMPAD0);
        else
            return SString();
        key = buffer;
    }
    SString name;
    if (IsMod1())
        name += "Ctrl+";
    if (IsShift())
        name += "Shift+";
    if (IsMod2())
        name += "Alt+";
    name += key;
    return name;
}

} // namespace vesk
