#pragma once

#include <locale.h>

namespace vesk::test {

// A locale made with newlocale for every category and freed with the object; Get() is null
// when the machine lacks it.
class OwnedLocale {
public:
    explicit OwnedLocale(const char* name) : m_locale(newlocale(LC_ALL_MASK, name, locale_t(0))) {}
    ~OwnedLocale()
    {
        if (m_locale)
            freelocale(m_locale);
    }
    OwnedLocale(const OwnedLocale&) = delete;
    OwnedLocale& operator=(const OwnedLocale&) = delete;
    locale_t Get() const { return m_locale; }

private:
    locale_t m_locale;
};

// Makes a locale the calling thread's locale for the object's lifetime.
class ThreadLocale {
public:
    explicit ThreadLocale(const char* name) : m_locale(name), m_previous(uselocale(m_locale.Get())) {}
    ~ThreadLocale() { uselocale(m_previous); }
    ThreadLocale(const ThreadLocale&) = delete;
    ThreadLocale& operator=(const ThreadLocale&) = delete;

private:
    OwnedLocale m_locale;
    locale_t m_previous;
};

} // namespace vesk::test
