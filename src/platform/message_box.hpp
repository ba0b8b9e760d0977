#pragma once

// The message box of a display without one: the message goes to standard error.

namespace vesk::platform {

// Writes "<title>: <text>" and a line end to standard error.
void StderrMessageBox(const char* text, const char* title);

} // namespace vesk::platform
