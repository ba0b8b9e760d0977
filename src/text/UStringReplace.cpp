#include "text/UStringText_p.hpp"
#include "text/UString_p.hpp"

#include <algorithm>
#include <limits>

namespace vesk {

namespace {

constexpr int64_t kToTheEnd = std::numeric_limits<int64_t>::max();

char16_t AsciiLower(char16_t c)
{
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}

// Replaces the occurrences of `what` found from the positions in [start, end) of the changing
// text whose character equals the pattern's first one, continuing after each inserted `with`.
// The search from such a position runs to the end of the text, so a match may start beyond
// `end`; a text past USTRING_MAXLEN is cut. The result is built in one pass over the original:
// everything before the position reached is final, everything after it is still original.
std::u16string ReplacePhrases(std::u16string_view text, std::u16string_view what,
    std::u16string_view with, int start, int64_t end, bool noCase)
{
    // Case-insensitive matches are found in lowered copies, which keep every position.
    const std::u16string lowered = noCase ? detail::Lowered(text) : std::u16string();
    const std::u16string_view searched = noCase ? std::u16string_view(lowered) : text;
    const std::u16string loweredWhat = noCase ? detail::Lowered(what) : std::u16string();
    const std::u16string_view pattern = noCase ? std::u16string_view(loweredWhat) : what;
    const char16_t first = noCase ? AsciiLower(what[0]) : what[0];

    std::u16string out;
    size_t copied = 0;         // text before this is in `out`
    size_t kept = text.size(); // text from this on was cut off
    for (int64_t i = start; i < std::min<int64_t>(end, out.size() + kept - copied);) {
        const size_t k = copied + static_cast<size_t>(i - static_cast<int64_t>(out.size()));
        if ((noCase ? AsciiLower(text[k]) : text[k]) != first) {
            ++i;
            continue;
        }
        const uint32_t p = detail::FindText(searched.substr(0, kept), pattern,
            static_cast<uint32_t>(k), false);
        if (p == STRING_NOTFOUND)
            break;
        out.append(text.substr(copied, p - copied)).append(with);
        copied = p + what.size();
        if (out.size() >= USTRING_MAXLEN) {
            out.resize(USTRING_MAXLEN);
            kept = copied;
        } else {
            kept = std::min(kept, copied + (USTRING_MAXLEN - out.size()));
        }
        i = static_cast<int64_t>(out.size());
    }
    return out.append(text.substr(copied, kept - copied));
}

// The record is replaced only when the text changed.
void AssignChanged(const UStringAccess::Locked& self, const std::u16string& text)
{
    if (text != self.View())
        self.Assign(text);
}

void ReplaceAll(UString& target, const UString& what, const UString& with, int start,
    int64_t end, bool noCase)
{
    const UStringRef pattern(what);
    const UStringRef replacement(with);
    // A negative start changes nothing.
    if (pattern.Len() == 0 || start < 0)
        return;
    const UStringAccess::Locked self(target);
    AssignChanged(self,
        ReplacePhrases(self.View(), pattern.View(), replacement.View(), start, end, noCase));
}

} // namespace

void UString::ReplaceAllPhrases(const UString& what, const UString& with, int start, int count)
{
    ReplaceAll(*this, what, with, start, static_cast<int64_t>(start) + count, false);
}

void UString::ReplaceAllPhrases(const UString& what, const UString& with, int start)
{
    ReplaceAll(*this, what, with, start, kToTheEnd, false);
}

void UString::ReplaceAllPhrasesI(const UString& what, const UString& with, int start)
{
    ReplaceAll(*this, what, with, start, kToTheEnd, true);
}

void UString::ReplaceAllPhrases2(const UString& what, const UString& with)
{
    const UStringRef pattern(what);
    const UStringRef replacement(with);
    if (pattern.Len() == 0)
        return;
    Locked self(*this);
    const std::u16string_view text = self.View();
    std::u16string result;
    uint32_t from = 0;
    uint32_t p = detail::FindText(text, pattern.View(), from, false);
    while (p != STRING_NOTFOUND) {
        result.append(text.substr(from, p - from)).append(replacement.View());
        from = p + pattern.Len();
        p = detail::FindText(text, pattern.View(), from, false);
    }
    result.append(text.substr(std::min<size_t>(from, text.size())));
    AssignChanged(self, result);
}

void UString::ConvertLineEnd(LineEnd lineEnd)
{
    const std::u16string_view target = lineEnd == LINEEND_CR ? u"\r"
        : lineEnd == LINEEND_LF                              ? u"\n"
                                                             : u"\r\n";
    Locked self(*this);
    const std::u16string_view text = self.View();
    // CR LF and LF CR are one line end; CR CR and LF LF are two.
    std::u16string result;
    bool differs = false;
    for (size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (c != u'\r' && c != u'\n') {
            result += c;
            continue;
        }
        const size_t n = i + 1 < text.size() && (text[i + 1] == u'\r' || text[i + 1] == u'\n')
                && text[i + 1] != c ? 2 : 1;
        differs = differs || text.substr(i, n) != target;
        result += target;
        i += n - 1;
    }
    if (differs && result.size() < USTRING_MAXLEN)
        self.Assign(result);
}

} // namespace vesk
