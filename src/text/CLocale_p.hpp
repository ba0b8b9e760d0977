#pragma once

#include <locale.h>

namespace vesk {

// The "C" locale, made once: number texts are read and written as a program that never
// changes its locale would, whatever locale the application has set.
locale_t CLocale() noexcept;

// Makes the "C" locale the calling thread's locale for its lifetime.
class CLocaleScope {
public:
    CLocaleScope() noexcept : m_previous(uselocale(CLocale())) {}
    ~CLocaleScope() { uselocale(m_previous); }
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;

private:
    locale_t m_previous;
};

} // namespace vesk
