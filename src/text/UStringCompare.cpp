#include "text/UStringText_p.hpp"
#include "text/UString_p.hpp"

#include <algorithm>

namespace vesk {

namespace {

using detail::CompareTexts;
using detail::TerminatedView;

constexpr size_t kWhole = SIZE_MAX;

size_t Limit(unsigned int n)
{
    return n == USTRING_LEN ? kWhole : n;
}

StringCompare ToCompare(int order)
{
    return order < 0 ? COMPARE_LESS : order > 0 ? COMPARE_GREATER : COMPARE_EQUAL;
}

using Locked = UStringAccess::Locked;

// Equal texts: the same length, and the units agree up to the first zero.
bool Equal(const UString& a, const UString& b)
{
    const UStringRef other(b);
    Locked self(a);
    const std::u16string_view text = self.View();
    return self.Rec() == other.Rec()
        || (text.size() == other.Len() && CompareTexts(text, other.View(), kWhole, false) == 0);
}

// Not called with a null text.
bool Equal(const UString& a, const char16_t* b)
{
    Locked self(a);
    return TerminatedView(b, self.Len() + 1) == self.View();
}

bool IsEmpty(const UString& a)
{
    return a.Len() == 0;
}

int Order(const UString& a, const UString& b)
{
    const UStringRef other(b);
    Locked self(a);
    return CompareTexts(self.View(), other.View(), kWhole, false);
}

int Order(const UString& a, const char16_t* b)
{
    Locked self(a);
    return CompareTexts(self.View(), TerminatedView(b, self.Len() + 1), kWhole, false);
}

StringCompare CompareWith(const UString& a, const UString& b, unsigned int n, bool noCase)
{
    const UStringRef other(b);
    Locked self(a);
    return ToCompare(CompareTexts(self.View(), other.View(), Limit(n), noCase));
}

StringCompare CompareWith(const UString& a, const char16_t* b, unsigned int n, bool noCase)
{
    Locked self(a);
    return ToCompare(CompareTexts(self.View(), TerminatedView(b, UINT32_MAX), Limit(n), noCase));
}

// Index of the first unit of text that differs from other, where the end of other counts as a
// difference; STRING_MATCH when text is a prefix of other.
unsigned int FirstDifference(std::u16string_view text, std::u16string_view other)
{
    const auto diff = std::mismatch(text.begin(), text.end(), other.begin(), other.end());
    return diff.first == text.end() ? STRING_MATCH
                                    : static_cast<unsigned int>(diff.first - text.begin());
}

} // namespace

bool operator==(const UString& a, const UString& b) { return Equal(a, b); }
bool operator!=(const UString& a, const UString& b) { return !Equal(a, b); }
bool operator<(const UString& a, const UString& b) { return Order(a, b) < 0; }
bool operator<=(const UString& a, const UString& b) { return Order(a, b) <= 0; }
bool operator>(const UString& a, const UString& b) { return Order(a, b) > 0; }
bool operator>=(const UString& a, const UString& b) { return Order(a, b) >= 0; }

// A null text on the right keeps the fixed answers of SString, odd ones included.
bool operator==(const UString& a, const char16_t* b) { return b ? Equal(a, b) : IsEmpty(a); }
bool operator!=(const UString& a, const char16_t* b) { return b ? !Equal(a, b) : IsEmpty(a); }
bool operator<(const UString& a, const char16_t* b) { return b && Order(a, b) < 0; }
bool operator<=(const UString& a, const char16_t* b) { return b ? Order(a, b) <= 0 : IsEmpty(a); }
bool operator>(const UString& a, const char16_t* b) { return b ? Order(a, b) > 0 : IsEmpty(a); }
bool operator>=(const UString& a, const char16_t* b) { return b ? Order(a, b) >= 0 : !IsEmpty(a); }

bool operator==(const char16_t* a, const UString& b) { return b == a; }
bool operator!=(const char16_t* a, const UString& b) { return b != a; }
bool operator<(const char16_t* a, const UString& b) { return b > a; }
bool operator<=(const char16_t* a, const UString& b) { return b >= a; }
bool operator>(const char16_t* a, const UString& b) { return b < a; }
bool operator>=(const char16_t* a, const UString& b) { return b <= a; }

StringCompare UString::Compare(const UString& s, unsigned int n) const
{
    return CompareWith(*this, s, n, false);
}

StringCompare UString::Compare(const char16_t* text, unsigned int n) const
{
    return CompareWith(*this, text, n, false);
}

StringCompare UString::ICompare(const UString& s, unsigned int n) const
{
    return CompareWith(*this, s, n, true);
}

StringCompare UString::ICompare(const char16_t* text, unsigned int n) const
{
    return CompareWith(*this, text, n, true);
}

bool UString::NoCaseEqual(const UString& s) const
{
    const UStringRef other(s);
    Locked self(*this);
    return self.Rec() == other.Rec()
        || (self.Len() == other.Len() && CompareTexts(self.View(), other.View(), kWhole, true) == 0);
}

bool UString::EndsOn(const UString& s) const
{
    const UStringRef tail(s);
    Locked self(*this);
    return tail.Len() != 0 && self.View().ends_with(tail.View());
}

unsigned int UString::Match(const UString& s) const
{
    const UStringRef other(s);
    Locked self(*this);
    return self.Rec() == other.Rec() ? STRING_MATCH : FirstDifference(self.View(), other.View());
}

unsigned int UString::Match(const char16_t* s) const
{
    Locked self(*this);
    return FirstDifference(self.View(), TerminatedView(s, self.Len()));
}

unsigned int UString::IMatch(const UString& s) const
{
    const UStringRef other(s);
    Locked self(*this);
    const size_t n = std::min(self.Len(), other.Len());
    return self.Rec() == other.Rec() || CompareTexts(self.View(), other.View(), n, true) == 0
        ? STRING_MATCH : 0;
}

} // namespace vesk
