#pragma once

#include <optional>
#include <string>

namespace vesk::test {

// Sets an environment variable (or removes it, for a null value) for a scope and restores
// its earlier state at the end.
class EnvGuard {
public:
    EnvGuard(const char* name, const char* value);
    ~EnvGuard();
    EnvGuard(const EnvGuard&) = delete;
    EnvGuard& operator=(const EnvGuard&) = delete;

private:
    std::string m_name;
    std::optional<std::string> m_saved;
};

} // namespace vesk::test
