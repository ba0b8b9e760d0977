#pragma once

namespace vesk::platform {

// Lowers the calling thread's scheduling priority one step below its process's (a nice value
// one higher), for background work that must not slow the user interface.
void LowerCurrentThreadPriority();

} // namespace vesk::platform
