#include "support/LocaleGuard.hpp"

#include <locale.h>

namespace vesk::test {

namespace {

bool Exists(const char* name)
{
    locale_t probe = newlocale(LC_ALL_MASK, name, locale_t(0));
    if (probe)
        freelocale(probe);
    return probe != locale_t(0);
}

} // namespace

LocaleGuard::LocaleGuard(const char* name) : m_env("LC_ALL", name), m_available(Exists(name)) { }

} // namespace vesk::test
