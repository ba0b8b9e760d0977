#include "support/ChildProcess.hpp"

#include "platform/file_watch.hpp"

#include <cerrno>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace vesk::test {

pid_t StartChild(const std::function<int()>& body)
{
    pid_t pid = ::fork();
    if (pid == 0)
        ::_exit(body()); // no exit handlers: they belong to the parent's test run
    return pid;
}

int RunUnprivileged(const std::function<int()>& body)
{
    return RunInChild([&] {
        if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0))
            return 2;
        return body();
    });
}

int WaitChild(pid_t pid)
{
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR)
            return -1;
    }
    // What the child wrote is read back next, as by a reader that knows the writer is done.
    vesk::platform::file_watch::Settle();
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool KillWhileWriting(const std::function<void(int round)>& write, std::mt19937& random, unsigned maxDelayUs)
{
    int ready[2];
    if (::pipe(ready) != 0)
        return false;
    pid_t writer = StartChild([&] {
        for (int i = 0;; ++i) {
            write(i);
            if (i == 0 && ::write(ready[1], "x", 1) != 1)
                return 1;
        }
    });
    ::close(ready[1]);
    char started;
    bool running = ::read(ready[0], &started, 1) == 1;
    ::close(ready[0]);
    if (running)
        ::usleep(std::uniform_int_distribution<unsigned>(0, maxDelayUs)(random));
    ::kill(writer, SIGKILL);
    return WaitChild(writer) == -1 && running;
}

} // namespace vesk::test
