#include "text/UStringText_p.hpp"
#include "text/UString_p.hpp"

#include <algorithm>
#include <locale.h>
#include <wctype.h>

namespace vesk {

namespace {

std::atomic<locale_t> g_caseLocale{nullptr};

bool IsSurrogate(char16_t c)
{
    return c >= 0xD800 && c <= 0xDFFF;
}

// A mapping that leaves the basic plane is not taken: a character stays one unit.
char16_t OneUnit(char16_t c, wint_t mapped)
{
    return mapped <= 0xFFFF && !IsSurrogate(static_cast<char16_t>(mapped))
        ? static_cast<char16_t>(mapped) : c;
}

} // namespace

namespace detail {

char16_t LowerCase(char16_t c) noexcept
{
    if (IsSurrogate(c))
        return c;
    const locale_t locale = g_caseLocale.load(std::memory_order_acquire);
    return OneUnit(c, locale ? towlower_l(c, locale) : towlower(c));
}

char16_t UpperCase(char16_t c) noexcept
{
    if (IsSurrogate(c))
        return c;
    const locale_t locale = g_caseLocale.load(std::memory_order_acquire);
    return OneUnit(c, locale ? towupper_l(c, locale) : towupper(c));
}

std::u16string Lowered(std::u16string_view text)
{
    std::u16string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), LowerCase);
    return lower;
}

int CompareTexts(std::u16string_view a, std::u16string_view b, size_t n, bool noCase) noexcept
{
    for (size_t i = 0; i < n; ++i) {
        const char16_t ra = i < a.size() ? a[i] : 0;
        const char16_t rb = i < b.size() ? b[i] : 0;
        const char16_t ca = noCase ? LowerCase(ra) : ra;
        const char16_t cb = noCase ? LowerCase(rb) : rb;
        if (ca != cb)
            return ca < cb ? -1 : 1;
        if (ca == 0)
            break;
    }
    return 0;
}

} // namespace detail

void UString::SetLocale(void* locale)
{
    g_caseLocale.store(static_cast<locale_t>(locale), std::memory_order_release);
}

void UString::ToLower()
{
    Locked self(*this);
    if (char16_t* text = self.Unique())
        std::transform(text, text + self.Len(), text, detail::LowerCase);
}

void UString::ToUpper()
{
    Locked self(*this);
    if (char16_t* text = self.Unique())
        std::transform(text, text + self.Len(), text, detail::UpperCase);
}

UString UString::Lower() const
{
    UString copy(*this);
    copy.ToLower();
    return copy;
}

UString UString::Upper() const
{
    UString copy(*this);
    copy.ToUpper();
    return copy;
}

} // namespace vesk
