#include "text/UStringText_p.hpp"
#include "text/UString_p.hpp"

namespace vesk {

namespace {

using detail::CompareTexts;


// Whether `what` stands at `position` (a zero in both ends the comparison, as in wcsncmp).
bool StandsAt(std::u16string_view text, std::u16string_view what, size_t position, bool noCase)
{
    return CompareTexts(text.substr(position), what, what.size(), noCase) == 0;
}

// Last occurrence starting at or before `start`; positions where it would not fit are skipped.
unsigned int FindBackward(std::u16string_view text, std::u16string_view what, size_t start)
{
    if (what.empty() || what.size() > text.size())
        return STRING_NOTFOUND;
    for (size_t p = std::min(start, text.size() - what.size()) + 1; p-- > 0;)
        if (StandsAt(text, what, p, false))
            return static_cast<unsigned int>(p);
    return STRING_NOTFOUND;
}

} // namespace

uint32_t detail::FindText(std::u16string_view text, std::u16string_view what, uint32_t from,
    bool noCase) noexcept
{
    if (from >= text.size() || what.empty() || what.size() > text.size() - from)
        return STRING_NOTFOUND;
    for (size_t p = from; p + what.size() <= text.size(); ++p)
        if (StandsAt(text, what, p, noCase))
            return static_cast<uint32_t>(p);
    return STRING_NOTFOUND;
}

unsigned int UString::Search(const UString& what, unsigned int from) const
{
    const UStringRef pattern(what);
    Locked self(*this);
    return detail::FindText(self.View(), pattern.View(), from, false);
}

unsigned int UString::Search(const char16_t* what, unsigned int from) const
{
    Locked self(*this);
    return detail::FindText(self.View(), detail::TerminatedView(what, self.Len() + 1), from, false);
}

unsigned int UString::Search(char16_t c, unsigned int from) const
{
    Locked self(*this);
    return detail::FindText(self.View(), std::u16string_view(&c, 1), from, false);
}

unsigned int UString::NoCaseSearch(const UString& what, unsigned int from) const
{
    const UStringRef pattern(what);
    Locked self(*this);
    return detail::FindText(self.View(), pattern.View(), from, true);
}

unsigned int UString::SearchBackward(const UString& what, unsigned int from) const
{
    const UStringRef pattern(what);
    Locked self(*this);
    if (from >= self.Len())
        return STRING_NOTFOUND;
    return FindBackward(self.View(), pattern.View(), from);
}

unsigned int UString::SearchFromEnd(const UString& what) const
{
    const UStringRef pattern(what);
    Locked self(*this);
    return FindBackward(self.View(), pattern.View(), self.Len());
}

unsigned int UString::SearchFromEnd(char16_t c) const
{
    Locked self(*this);
    return FindBackward(self.View(), std::u16string_view(&c, 1), self.Len());
}

} // namespace vesk
