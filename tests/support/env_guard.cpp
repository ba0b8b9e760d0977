#include "support/env_guard.hpp"

#include <cstdlib>

namespace vesk::test {

namespace {

void Set(const std::string& name, const char* value)
{
    if (value)
        ::setenv(name.c_str(), value, 1);
    else
        ::unsetenv(name.c_str());
}

} // namespace

EnvGuard::EnvGuard(const char* name, const char* value) : m_name(name)
{
    if (const char* saved = std::getenv(name))
        m_saved = saved;
    Set(m_name, value);
}

EnvGuard::~EnvGuard()
{
    Set(m_name, m_saved ? m_saved->c_str() : nullptr);
}

} // namespace vesk::test
