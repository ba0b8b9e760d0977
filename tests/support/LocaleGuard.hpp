#pragma once

#include "support/EnvGuard.hpp"

#include <string>

namespace vesk::test {

// Names a POSIX locale for every category through LC_ALL in the environment for the guard's
// lifetime (the process's own locale, as setlocale sets it, is left alone). Available() tells
// whether the machine has that locale.
class LocaleGuard {
public:
    explicit LocaleGuard(const char* name);
    bool Available() const { return m_available; }

private:
    EnvGuard m_env;
    bool m_available;
};

// Sets one category of the process's locale with setlocale for the guard's lifetime.
class ProcessLocaleGuard {
public:
    ProcessLocaleGuard(int category, const char* name);
    ~ProcessLocaleGuard();
    ProcessLocaleGuard(const ProcessLocaleGuard&) = delete;
    ProcessLocaleGuard& operator=(const ProcessLocaleGuard&) = delete;
    bool Available() const { return m_available; }

private:
    int m_category;
    std::string m_previous;
    bool m_available;
};

} // namespace vesk::test
