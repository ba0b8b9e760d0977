#pragma once

#include <vesk/text/SString.hpp>

#include <string>

namespace vesk::test {

// The bytes of a string, for comparisons that show them on failure.
inline std::string Text(const SString& s)
{
    return std::string(static_cast<const char*>(s), s.Len());
}

} // namespace vesk::test
