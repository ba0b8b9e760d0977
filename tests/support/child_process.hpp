#pragma once

#include <functional>

#include <sys/types.h>

namespace vesk::test {

// Runs body in a forked child process, which ends with body's result as its exit status.
pid_t StartChild(const std::function<int()>& body);

// Waits for a child; its exit status, or -1 when it did not exit normally (killed, crashed).
int WaitChild(pid_t pid);

// Runs body in a child process and waits for it.
inline int RunInChild(const std::function<int()>& body)
{
    return WaitChild(StartChild(body));
}

} // namespace vesk::test
