#include "text/UString_p.hpp"

#include <algorithm>

namespace vesk {

namespace {

// Position just after the index-th separator; npos when there are fewer.
size_t AfterSeparator(std::u16string_view text, uint32_t index, char16_t sep)
{
    size_t position = 0;
    for (uint32_t i = 0; i < index; ++i) {
        const size_t found = text.find(sep, position);
        if (found == std::u16string_view::npos)
            return std::u16string_view::npos;
        position = found + 1;
    }
    return position;
}

bool IsAsciiLetter(char16_t c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

bool IsAsciiDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

} // namespace

unsigned int UString::GetTokenCount(char16_t sep) const
{
    Locked self(*this);
    const std::u16string_view text = self.View();
    return text.empty() ? 0 : 1 + static_cast<unsigned int>(std::count(text.begin(), text.end(), sep));
}

UString UString::GetToken(unsigned int index, char16_t sep) const
{
    Locked self(*this);
    const std::u16string_view text = self.View();
    const size_t start = AfterSeparator(text, index, sep);
    if (start == std::u16string_view::npos)
        return UString();
    const size_t end = text.find(sep, start);
    return self.Copy(static_cast<uint32_t>(start),
        end == std::u16string_view::npos ? USTRING_LEN : static_cast<uint32_t>(end - start));
}

unsigned int UString::GetTokenPos(unsigned int index, char16_t sep) const
{
    Locked self(*this);
    const size_t start = AfterSeparator(self.View(), index, sep);
    // An empty last token has no position.
    return start == std::u16string_view::npos || start >= self.Len() ? 0 : static_cast<unsigned int>(start);
}

std::vector<UString> UString::GetAllTokens(char16_t sep) const
{
    Locked self(*this);
    const std::u16string_view text = self.View();
    std::vector<UString> tokens;
    if (text.empty())
        return tokens;
    for (size_t start = 0;;) {
        const size_t end = std::min(text.find(sep, start), text.size());
        std::u16string_view token = text.substr(start, end - start);
        token.remove_prefix(std::min(token.find_first_not_of(u' '), token.size()));
        token.remove_suffix(token.size() - (token.find_last_not_of(u' ') + 1));
        tokens.push_back(UStringAccess::FromRecord(detail::NewURecord(token)));
        if (end == text.size())
            return tokens;
        start = end + 1;
    }
}

bool UString::IsAlpha() const
{
    Locked self(*this);
    return std::all_of(self.View().begin(), self.View().end(), IsAsciiLetter);
}

bool UString::IsAlphaNumeric() const
{
    Locked self(*this);
    return std::all_of(self.View().begin(), self.View().end(),
        [](char16_t c) { return IsAsciiLetter(c) || IsAsciiDigit(c); });
}

bool UString::IsNumeric() const
{
    Locked self(*this);
    return std::all_of(self.View().begin(), self.View().end(), IsAsciiDigit);
}

bool UString::IsNumber() const
{
    Locked self(*this);
    std::u16string_view text = self.View();
    if (!text.empty() && text[0] == u'-')
        text.remove_prefix(1);
    return std::all_of(text.begin(), text.end(), IsAsciiDigit);
}

bool UString::IsLower() const
{
    Locked self(*this);
    return std::none_of(self.View().begin(), self.View().end(),
        [](char16_t c) { return c >= u'A' && c <= u'Z'; });
}

bool UString::IsUpper() const
{
    Locked self(*this);
    return std::none_of(self.View().begin(), self.View().end(),
        [](char16_t c) { return c >= u'a' && c <= u'z'; });
}

void UString::AddToStringListBuffer(char16_t* buffer) const
{
    Locked self(*this);
    // The list ends where two zeros follow each other; a non-empty list gets the new string
    // after the zero of its last one.
    size_t end = 0;
    while (buffer[end] != 0 || buffer[end + 1] != 0)
        ++end;
    char16_t* out = end == 0 ? buffer : buffer + end + 1;
    const std::u16string_view text = self.View();
    out = std::copy(text.begin(), text.end(), out);
    out[0] = 0;
    out[1] = 0;
}

} // namespace vesk
