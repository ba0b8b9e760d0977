#include "platform/thread_priority.hpp"

#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

namespace vesk::platform {

void LowerCurrentThreadPriority()
{
    // On Linux the nice value belongs to the thread, addressed by its thread id.
    const id_t tid = static_cast<id_t>(syscall(SYS_gettid));
    errno = 0;
    const int nice = getpriority(PRIO_PROCESS, tid);
    if (errno == 0 && nice < 19)
        setpriority(PRIO_PROCESS, tid, nice + 1); // failure leaves the priority as it is
}

} // namespace vesk::platform
