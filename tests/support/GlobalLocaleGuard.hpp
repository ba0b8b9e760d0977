#pragma once

#include <clocale>
#include <string>

namespace vesk::test {

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

} // namespace vesk::test
