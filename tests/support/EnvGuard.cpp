#include "support/EnvGuard.hpp"

#include <cstdlib>
#include <ctime>

namespace vesk::test {

namespace {

void SetOrUnset(const std::string& name, const char* value)
{
    if (value)
        setenv(name.c_str(), value, 1);
    else
        unsetenv(name.c_str());
    tzset();
}

} // namespace

EnvGuard::EnvGuard(const char* name, const char* value) : m_name(name)
{
    if (const char* old = std::getenv(name))
        m_previous = old;
    SetOrUnset(m_name, value);
}

EnvGuard::~EnvGuard()
{
    SetOrUnset(m_name, m_previous ? m_previous->c_str() : nullptr);
}

} // namespace vesk::test
