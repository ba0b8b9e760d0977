#include "platform/display/x11/backend.hpp"

#include "platform/message_box.hpp"

namespace vesk::display::x11 {

int X11Backend::MessageBox(NativeWindow, const std::string& text, const std::string& caption, uint32_t)
{
    platform::StderrMessageBox(text.c_str(), caption.c_str());
    return 1;
}

} // namespace vesk::display::x11
