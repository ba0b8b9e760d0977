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

// Replaces the occurrences of `what` found from the positions in [start, end) whose character
// equals the pattern's first one. The search from such a position runs to the end of the
// text, so a match may start beyond `end`; a result past USTRING_MAXLEN is cut.
std::u16string ReplacePhrases(std::u16string text, std::u16string_view what,
    std::u16string_view with, int start, int64_t end, bool noCase)
{
    const char16_t first = noCase ? AsciiLower(what[0]) : what[0];
    for (int64_t i = std::max(start, 0); i < std::min<int64_t>(end, text.size());) {
        const char16_t c = noCase ? AsciiLower(text[i]) : text[i];
        if (c != first) {
            ++i;
            continue;
        }
        const uint32_t p = detail::FindText(text, what, static_cast<uint32_t>(i), noCase);
        if (p == STRING_NOTFOUND)
            break;
        text.replace(p, what.size(), with);
        if (text.size() > USTRING_MAXLEN)
            text.resize(USTRING_MAXLEN);
        i = static_cast<int64_t>(p) + static_cast<int64_t>(with.size());
    }
    return text;
}

// The record is replaced only when the text changed.
void AssignChanged(const UStringAccess::Locked& self, const std::u16string& text)
{
    if (text != self.View())
        self.Assign(text);
}

} // namespace

void UString::ReplaceAllPhrases(const UString& what, const UString& with, int start, int count)
{
    const UStringRef pattern(what);
    const UStringRef replacement(with);
    if (pattern.Len() == 0)
        return;
    Locked self(*this);
    AssignChanged(self, ReplacePhrases(std::u16string(self.View()), pattern.View(), replacement.View(),
        start, static_cast<int64_t>(start) + count, false));
}

void UString::ReplaceAllPhrases(const UString& what, const UString& with, int start)
{
    const UStringRef pattern(what);
    const UStringRef replacement(with);
    if (pattern.Len() == 0)
        return;
    Locked self(*this);
    AssignChanged(self, ReplacePhrases(std::u16string(self.View()), pattern.View(), replacement.View(),
        start, kToTheEnd, false));
}

void UString::ReplaceAllPhrasesI(const UString& what, const UString& with, int start)
{
    const UStringRef pattern(what);
    const UStringRef replacement(with);
    if (pattern.Len() == 0)
        return;
    Locked self(*this);
    AssignChanged(self, ReplacePhrases(std::u16string(self.View()), pattern.View(), replacement.View(),
        start, kToTheEnd, true));
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
