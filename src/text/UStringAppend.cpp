#include "text/UString_p.hpp"

namespace vesk {

void UString::Locked::AppendString(const UStringRef& text) const
{
    // An empty string takes the other's record instead of copying it.
    if (Len() == 0)
        Adopt(text.Share());
    else
        Append(text.View());
}

UString& UString::operator+=(const UString& s)
{
    const UStringRef text(s);
    Locked(*this).AppendString(text);
    return *this;
}

UString& UString::operator+=(const char16_t* text)
{
    Locked(*this).Append(detail::TerminatedView(text, USTRING_MAXLEN));
    return *this;
}

UString& UString::operator+=(char16_t c)
{
    if (c != 0)
        Locked(*this).Append(std::u16string_view(&c, 1));
    return *this;
}

void UString::AddSeparated(const UString& text, const UString& separator)
{
    const UStringRef added(text);
    const UStringRef between(separator);
    Locked self(*this);
    if (self.Len() != 0 && between.Len() != 0 && added.Len() != 0)
        self.Append(between.View());
    self.AppendString(added);
}

void UString::AddSeparated(const UString& text, char16_t separator)
{
    const UStringRef added(text);
    Locked self(*this);
    if (self.Len() != 0 && separator != 0 && added.Len() != 0)
        self.Append(std::u16string_view(&separator, 1));
    self.AppendString(added);
}

} // namespace vesk
