#pragma once

namespace vesk::platform {

// Lowers the calling thread's scheduling priority by one step (its own nice value plus one, at
// most 19), for background work that must not slow the user interface.
void LowerCurrentThreadPriority();

} // namespace vesk::platform
