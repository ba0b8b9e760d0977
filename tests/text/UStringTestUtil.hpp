#pragma once

#include <vesk/text.hpp>

#include <string>

namespace vesk::test {

// The characters of a string, its inner zeros included.
inline std::u16string Text(const UString& s)
{
    return std::u16string(static_cast<const char16_t*>(s), s.Len());
}

inline std::string Bytes(const SString& s)
{
    return std::string(static_cast<const char*>(s), s.Len());
}

} // namespace vesk::test
