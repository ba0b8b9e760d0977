// HTML colour texts: any bytes must give a colour without crashing, and a text of seven
// characters whose last six are hexadecimal digits must come back from GetHTMLStr unchanged
// up to the case of its digits.
#include <vesk/graphics.hpp>

#include <cctype>
#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    vesk::SString text(reinterpret_cast<const char*>(data), 0, static_cast<unsigned int>(size), true);
    vesk::TamColor color(text);
    vesk::SString html = color.GetHTMLStr();
    (void)color.GetTestStr();

    if (text.Len() != 7 || text[0] != '#')
        return 0;
    for (unsigned int i = 1; i < 7; ++i)
        if (!std::isxdigit(static_cast<unsigned char>(text[i])))
            return 0;
    for (unsigned int i = 0; i < 7; ++i)
        if (std::toupper(static_cast<unsigned char>(text[i])) != html[i])
            std::abort();
    return 0;
}
