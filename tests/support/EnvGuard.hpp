#pragma once

#include <optional>
#include <string>

namespace vesk::test {

// Sets an environment variable (nullptr unsets it) for the guard's lifetime and restores the
// previous state afterwards. tzset() runs after every change, so a TZ guard takes effect at once.
class EnvGuard {
public:
    EnvGuard(const char* name, const char* value);
    ~EnvGuard();
    EnvGuard(const EnvGuard&) = delete;
    EnvGuard& operator=(const EnvGuard&) = delete;

private:
    std::string m_name;
    std::optional<std::string> m_previous;
};

} // namespace vesk::test
