#pragma once

#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

namespace vesk::test {

// An Xvfb server of its own for a test: started on a free display number with one
// 1280x1024 24-bit screen, stopped (and waited for) when the object goes.
class XServer {
public:
    // Null when Xvfb cannot be started or does not accept connections.
    static std::unique_ptr<XServer> Start();
    ~XServer();
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    // ":N"
    const std::string& Display() const { return m_display; }
    // Kills the server at once, as a crash would.
    void Kill();
    // Runs a program (xdotool...) on this display and waits for it; its exit status.
    int Run(const std::vector<std::string>& args) const;

private:
    XServer(pid_t pid, std::string display) : m_pid(pid), m_display(std::move(display)) { }

    pid_t m_pid;
    std::string m_display;
};

} // namespace vesk::test
