#pragma once

#include "support/GlobalLocaleGuard.hpp"
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

} // namespace test
} // namespace vesk
