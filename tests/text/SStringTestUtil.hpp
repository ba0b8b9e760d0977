#pragma once

#include "text/SString_p.hpp"

#include <gtest/gtest.h>

#include <clocale>
#include <ostream>
#include <string>

namespace vesk {

// Lets GoogleTest show a string's text in failure messages.
inline void PrintTo(const SString& s, std::ostream* os)
{
    *os << '"' << std::string(static_cast<const char*>(s), s.Len()) << '"';
}

namespace test {

inline const SStringData* Record(const SString& s)
{
    return SStringAccess::Record(s);
}

inline bool SharesRecord(const SString& a, const SString& b)
{
    return Record(a) == Record(b);
}

inline bool IsSharedEmpty(const SString& s)
{
    return Record(s) == Record(SString());
}

inline uint32_t Capacity(const SString& s)
{
    return Record(s)->nCap;
}

inline uint32_t Owners(const SString& s)
{
    return Record(s)->nRefs.load() + 1;
}

// The whole text with its inner zeros.
inline std::string Bytes(const SString& s)
{
    return std::string(static_cast<const char*>(s), s.Len());
}

// Sets one category of the global C locale for the guard's lifetime; Active() tells whether
// the locale exists on this machine.
class GlobalLocaleGuard {
public:
    GlobalLocaleGuard(int category, const char* name) : m_category(category)
    {
        const char* previous = std::setlocale(category, nullptr);
        m_previous = previous ? previous : "C";
        m_active = std::setlocale(category, name) != nullptr;
    }
    ~GlobalLocaleGuard() { std::setlocale(m_category, m_previous.c_str()); }
    GlobalLocaleGuard(const GlobalLocaleGuard&) = delete;
    GlobalLocaleGuard& operator=(const GlobalLocaleGuard&) = delete;
    bool Active() const { return m_active; }

private:
    int m_category;
    std::string m_previous;
    bool m_active;
};

} // namespace test
} // namespace vesk
