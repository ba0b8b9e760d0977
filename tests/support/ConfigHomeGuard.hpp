#pragma once

#include "support/EnvGuard.hpp"
#include "support/TempDir.hpp"

namespace vesk::test {

// Points XDG_CONFIG_HOME at a fresh temporary directory for a scope, so that tests never
// read or write the user's own config files.
class ConfigHomeGuard {
public:
    ConfigHomeGuard() : m_env("XDG_CONFIG_HOME", m_dir.Path().c_str()) { }

    const std::string& Path() const { return m_dir.Path(); }
    std::string File(std::string_view name) const { return m_dir.File(name); }

private:
    TempDir m_dir;
    EnvGuard m_env;
};

} // namespace vesk::test
