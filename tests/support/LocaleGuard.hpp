#pragma once

#include "support/EnvGuard.hpp"

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

} // namespace vesk::test
