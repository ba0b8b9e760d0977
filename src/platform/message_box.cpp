#include "platform/message_box.hpp"

#include <cstdio>

namespace vesk::platform {

void StderrMessageBox(const char* text, const char* title)
{
    std::fprintf(stderr, "%s: %s\n", title, text);
}

} // namespace vesk::platform
