#include "text/UStringText_p.hpp"
#include "text/UString_p.hpp"

#include <algorithm>
#include <functional>
#include <string>

namespace vesk {

namespace {

enum class Direction { Forward, Backward };

// wcsncmp stops at a zero in both texts, so only the pattern up to its first zero must match.
std::u16string_view ComparedPart(std::u16string_view what)
{
    const size_t zero = what.find(u'\0');
    return zero == std::u16string_view::npos ? what : what.substr(0, zero + 1);
}

// First start of needle in hay, or npos.
size_t Locate(std::u16string_view hay, std::u16string_view needle)
{
    const auto hit = std::search(hay.begin(), hay.end(),
        std::boyer_moore_horspool_searcher(needle.begin(), needle.end()));
    return hit == hay.end() ? std::u16string_view::npos : static_cast<size_t>(hit - hay.begin());
}

// Searches the starts first..last (all of which leave room for the whole pattern).
uint32_t FindInStarts(std::u16string_view text, std::u16string_view what, size_t first,
    size_t last, Direction direction, bool noCase)
{
    const std::u16string_view needle = ComparedPart(what);
    const std::u16string_view hay = text.substr(first, last - first + needle.size());
    size_t at = std::u16string_view::npos;
    if (direction == Direction::Backward) {
        // The last match is the first one in the reversed texts.
        const std::u16string reversedHay(hay.rbegin(), hay.rend());
        const std::u16string reversedNeedle(needle.rbegin(), needle.rend());
        at = Locate(reversedHay, reversedNeedle);
        if (at != std::u16string_view::npos)
            at = hay.size() - at - needle.size();
    } else if (noCase) {
        at = Locate(detail::Lowered(hay), detail::Lowered(needle));
    } else {
        at = Locate(hay, needle);
    }
    return at == std::u16string_view::npos ? STRING_NOTFOUND : static_cast<uint32_t>(first + at);
}

// Last occurrence starting at or before `start`; starts where it would not fit are skipped.
uint32_t FindBackward(std::u16string_view text, std::u16string_view what, size_t start)
{
    if (what.empty() || what.size() > text.size())
        return STRING_NOTFOUND;
    return FindInStarts(text, what, 0, std::min(start, text.size() - what.size()),
        Direction::Backward, false);
}

} // namespace

uint32_t detail::FindText(std::u16string_view text, std::u16string_view what, uint32_t from,
    bool noCase)
{
    if (from >= text.size() || what.empty() || what.size() > text.size() - from)
        return STRING_NOTFOUND;
    return FindInStarts(text, what, from, text.size() - what.size(), Direction::Forward, noCase);
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
