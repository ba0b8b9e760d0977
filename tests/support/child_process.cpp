#include "support/child_process.hpp"

#include <cerrno>

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

int WaitChild(pid_t pid)
{
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR)
            return -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace vesk::test
