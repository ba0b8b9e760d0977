#include "text/UString_p.hpp"

#include <algorithm>

namespace vesk {

using detail::EmptyURecord;
using detail::NewURecord;

UString UString::Locked::Copy(uint32_t index, uint32_t length) const
{
    const uint32_t len = Len();
    if (index >= len || length == 0)
        return UString();
    length = std::min(length, len - index);
    if (length == len)
        return UStringAccess::FromRecord(Reference());
    return UStringAccess::FromRecord(NewURecord(View().substr(index, length)));
}

void UString::Locked::Erase(uint32_t index, uint32_t length) const
{
    const uint32_t len = Len();
    if (index >= len || length == 0)
        return;
    length = std::min(length, len - index);
    if (index + length == len) {
        // A tail is cut off in place; cutting everything leaves the empty record.
        if (Unique() != nullptr)
            Truncate(index);
        return;
    }
    const std::u16string_view text = View();
    Adopt(NewURecord({text.substr(0, index), text.substr(index + length)}));
}

void UString::Locked::Insert(std::u16string_view text, uint32_t position) const
{
    const std::u16string_view old = View();
    position = std::min<uint32_t>(position, Len());
    const size_t room = USTRING_MAXLEN - std::min<size_t>(position, USTRING_MAXLEN);
    text = text.substr(0, room);
    if (text.empty())
        return;
    const std::u16string_view tail = old.substr(position, room - text.size());
    Adopt(NewURecord({old.substr(0, position), text, tail}));
}

UString UString::Copy(unsigned int index, unsigned int length) const
{
    return Locked(*this).Copy(index, length);
}

UString UString::Cut(unsigned int index, unsigned int length)
{
    Locked self(*this);
    UString part = self.Copy(index, length);
    self.Erase(index, length);
    return part;
}

UString UString::CopyToLastChar(char16_t c) const
{
    Locked self(*this);
    const size_t last = self.View().rfind(c);
    return self.Copy(0, last == std::u16string_view::npos ? self.Len() : static_cast<uint32_t>(last));
}

void UString::Erase(unsigned int index, unsigned int length)
{
    Locked(*this).Erase(index, length);
}

void UString::EraseAllChars(char16_t c)
{
    Locked self(*this);
    const std::u16string_view text = self.View();
    if (text.find(c) == std::u16string_view::npos)
        return;
    std::u16string kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept), [c](char16_t x) { return x != c; });
    self.Assign(kept);
}

void UString::EraseLeadingChars(char16_t c)
{
    Locked self(*this);
    const size_t first = self.View().find_first_not_of(c);
    self.Erase(0, first == std::u16string_view::npos ? self.Len() : static_cast<uint32_t>(first));
}

void UString::EraseTrailingChars(char16_t c)
{
    Locked self(*this);
    const size_t last = self.View().find_last_not_of(c);
    const uint32_t keep = last == std::u16string_view::npos ? 0 : static_cast<uint32_t>(last + 1);
    self.Erase(keep, self.Len() - keep);
}

void UString::Trim(char16_t c)
{
    Locked self(*this);
    const size_t first = self.View().find_first_not_of(c);
    if (first == std::u16string_view::npos) {
        self.Erase(0, self.Len());
        return;
    }
    const uint32_t keep = static_cast<uint32_t>(self.View().find_last_not_of(c) + 1);
    self.Erase(keep, self.Len() - keep);
    self.Erase(0, static_cast<uint32_t>(first));
}

void UString::Expand(unsigned int length, char16_t c)
{
    Locked self(*this);
    if (length > self.Len())
        self.Adopt(NewURecord({self.View(), std::u16string(length - self.Len(), c)}));
}

void UString::Fill(unsigned int length, char16_t c)
{
    Locked self(*this);
    if (length > self.Len())
        self.Assign(std::u16string(std::min(length, USTRING_MAXLEN), c));
    else if (char16_t* text = self.Unique())
        std::fill_n(text, length, c);
}

void UString::Insert(const UString& text, unsigned int position)
{
    const UStringRef added(text);
    Locked self(*this);
    if (self.Len() == 0)
        self.Adopt(added.Share());
    else
        self.Insert(added.View(), position);
}

void UString::Insert(const UString& text, unsigned int index, unsigned int length,
    unsigned int position)
{
    const UStringRef added(text);
    if (index < added.Len())
        Locked(*this).Insert(added.View().substr(index, length), position);
}

void UString::Insert(const char16_t* text, unsigned int position)
{
    Locked(*this).Insert(detail::TerminatedView(text, USTRING_MAXLEN), position);
}

void UString::Insert(char16_t c, unsigned int position)
{
    if (c != 0)
        Locked(*this).Insert(std::u16string_view(&c, 1), position);
}

void UString::Replace(const UString& text, unsigned int position)
{
    const UStringRef source(text);
    Locked self(*this);
    if (position >= self.Len() || source.Len() == 0)
        return;
    const std::u16string_view part = source.View().substr(0, self.Len() - position);
    std::copy(part.begin(), part.end(), self.Unique() + position);
}

void UString::Replace(char16_t c, unsigned int position)
{
    Locked self(*this);
    if (position < self.Len())
        self.Unique()[position] = c;
}

void UString::ReplaceAllChars(char16_t from, char16_t to)
{
    Locked self(*this);
    if (self.View().find(from) != std::u16string_view::npos) {
        char16_t* text = self.Unique();
        std::replace(text, text + self.Len(), from, to);
    }
}

void UString::ReplaceAllChars(char16_t from, char to)
{
    ReplaceAllChars(from, static_cast<char16_t>(static_cast<unsigned char>(to)));
}

void UString::Reverse()
{
    Locked self(*this);
    if (char16_t* text = self.Unique())
        std::reverse(text, text + self.Len());
}

namespace {

// Both stop at the first zero character.
void Swap(char16_t* text, uint32_t len, char16_t from, char16_t to)
{
    for (uint32_t i = 0; i < len && text[i] != 0; ++i)
        if (text[i] == from)
            text[i] = to;
}

} // namespace

void UString::SpaceToZero()
{
    Locked self(*this);
    if (char16_t* text = self.Unique())
        Swap(text, self.Len(), u' ', u'0');
}

void UString::ZeroToSpace()
{
    Locked self(*this);
    if (char16_t* text = self.Unique())
        Swap(text, self.Len(), u'0', u' ');
}

} // namespace vesk
