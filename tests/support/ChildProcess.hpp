#pragma once

#include <functional>
#include <random>

#include <sys/types.h>

namespace vesk::test {

// Runs body in a forked child process, which ends with body's result as its exit status.
pid_t StartChild(const std::function<int()>& body);

// Waits for a child and lets the process's file watcher take the child's file changes; its exit status, or -1 when it did not exit normally (killed, crashed).
int WaitChild(pid_t pid);

// Runs body in a child process and waits for it.
inline int RunInChild(const std::function<int()>& body)
{
    return WaitChild(StartChild(body));
}

// Runs body in a child process as an unprivileged user when started as root, so that file
// permissions apply; 2 when the rights cannot be dropped.
int RunUnprivileged(const std::function<int()>& body);

// Runs write(0), write(1), ... in a child process and kills it with SIGKILL at a random
// moment (up to maxDelayUs microseconds) after its first write has completed, so that the
// kill lands inside a later write whatever the machine's speed. False when the child was not
// killed (it ended by itself or could not start).
bool KillWhileWriting(const std::function<void(int round)>& write, std::mt19937& random, unsigned maxDelayUs = 20000);

} // namespace vesk::test
