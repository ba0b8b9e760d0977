#include "support/XServer.hpp"

#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace vesk::test {

namespace {

// Starts a program with the given environment and its output sent to /dev/null; -1 on failure.
pid_t Spawn(const std::vector<std::string>& args, char** env)
{
    std::vector<char*> argv;
    for (const std::string& arg : args)
        argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    pid_t pid = -1;
    if (posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), env) != 0)
        pid = -1;
    posix_spawn_file_actions_destroy(&actions);
    return pid;
}

int Wait(pid_t pid)
{
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0)
        if (errno != EINTR)
            return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

std::unique_ptr<XServer> XServer::Start()
{
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0)
        return nullptr;
    // Xvfb picks a free display number itself and writes it to the pipe once it accepts
    // connections. It dies with the test program, even one that crashes.
    std::string fd = std::to_string(fds[1]);
    const char* argv[] = {"Xvfb", "-displayfd", fd.c_str(), "-screen", "0", "1280x1024x24", "-nolisten", "tcp",
                          "-noreset", nullptr};
    pid_t parent = ::getpid();
    pid_t pid = ::fork();
    if (pid == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != parent)
            ::_exit(127);
        int null = ::open("/dev/null", O_WRONLY);
        ::dup2(null, 1);
        ::dup2(null, 2);
        ::fcntl(fds[1], F_SETFD, 0);
        ::execvp(argv[0], const_cast<char**>(argv));
        ::_exit(127);
    }
    ::close(fds[1]);
    std::string number;
    if (pid > 0) {
        pollfd ready{fds[0], POLLIN, 0};
        char ch;
        while (::poll(&ready, 1, 20000) > 0 && ::read(fds[0], &ch, 1) == 1 && ch != '\n')
            number += ch;
    }
    ::close(fds[0]);
    if (number.empty()) {
        if (pid > 0) {
            ::kill(pid, SIGKILL);
            Wait(pid);
        }
        return nullptr;
    }
    return std::unique_ptr<XServer>(new XServer(pid, ":" + number));
}

XServer::~XServer()
{
    if (m_pid > 0) {
        ::kill(m_pid, SIGTERM);
        Wait(m_pid);
    }
}

void XServer::Kill()
{
    if (m_pid > 0) {
        ::kill(m_pid, SIGKILL);
        Wait(m_pid);
        m_pid = -1;
    }
}

int XServer::Run(const std::vector<std::string>& args) const
{
    std::vector<std::string> variables{"DISPLAY=" + m_display};
    for (char** entry = environ; *entry; ++entry)
        if (std::string_view(*entry).substr(0, 8) != "DISPLAY=")
            variables.emplace_back(*entry);
    std::vector<char*> env;
    for (std::string& variable : variables)
        env.push_back(variable.data());
    env.push_back(nullptr);
    pid_t pid = Spawn(args, env.data());
    return pid > 0 ? Wait(pid) : -1;
}

} // namespace vesk::test
