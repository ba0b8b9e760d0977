#include "text/CLocale_p.hpp"

namespace vesk {

locale_t CLocale() noexcept
{
    // "C" is built into the C library, so this cannot fail.
    static const locale_t c = newlocale(LC_ALL_MASK, "C", locale_t(0));
    return c;
}

} // namespace vesk
