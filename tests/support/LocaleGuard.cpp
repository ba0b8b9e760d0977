#include "support/LocaleGuard.hpp"

#include <clocale>
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

ProcessLocaleGuard::ProcessLocaleGuard(int category, const char* name) : m_category(category)
{
    const char* previous = std::setlocale(category, nullptr);
    m_previous = previous ? previous : "C";
    m_available = std::setlocale(category, name) != nullptr;
}

ProcessLocaleGuard::~ProcessLocaleGuard()
{
    std::setlocale(m_category, m_previous.c_str());
}

} // namespace vesk::test
