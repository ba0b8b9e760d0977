#include "text/UString_p.hpp"

#include <algorithm>

namespace vesk {

namespace {

// The text of a number is the one SString makes; its ASCII characters widen unchanged.
UStringData* WidenedRecord(const SString& ascii)
{
    const char* text = ascii;
    return detail::NewURecord(std::u16string(text, text + ascii.Len()));
}

// The ASCII characters of the text for the number readers of SString; any other character
// becomes DEL, which no reader takes as part of a number or as a blank.
SString Narrowed(const UString& s)
{
    const UStringRef ref(s);
    const std::u16string_view text = ref.View();
    SString ascii;
    char* out = ascii.AllocStrBuf(static_cast<unsigned int>(text.size()));
    std::transform(text.begin(), text.end(), out,
        [](char16_t c) { return c < 0x80 ? static_cast<char>(c) : '\x7F'; });
    return ascii;
}

} // namespace

UString::UString(short value) : UString(WidenedRecord(SString(value))) {}

UString::UString(int value, int width) : UString(WidenedRecord(SString(value, width))) {}

UString::UString(unsigned int value) : UString(WidenedRecord(SString(value))) {}

UString::UString(double value) : UString(WidenedRecord(SString(value))) {}

UString::UString(int64_t value) : UString(WidenedRecord(SString(value))) {}

UString::UString(uint64_t value) : UString(WidenedRecord(SString(value))) {}

UString& UString::operator+=(short value)
{
    return *this += UString(value);
}

UString& UString::operator+=(int value)
{
    return *this += UString(value);
}

UString& UString::operator+=(unsigned int value)
{
    return *this += UString(value);
}

UString& UString::operator+=(int64_t value)
{
    return *this += UString(value);
}

UString& UString::operator+=(uint64_t value)
{
    return *this += UString(value);
}

UString& UString::operator+=(double value)
{
    return *this += UString(value);
}

UString::operator unsigned char() const
{
    return static_cast<unsigned char>(Narrowed(*this));
}

UString::operator short() const
{
    return static_cast<short>(Narrowed(*this));
}

UString::operator unsigned int() const
{
    return static_cast<unsigned int>(Narrowed(*this));
}

UString::operator int() const
{
    return static_cast<int>(Narrowed(*this));
}

UString::operator double() const
{
    return static_cast<double>(Narrowed(*this));
}

UString::operator int64_t() const
{
    return static_cast<int64_t>(Narrowed(*this));
}

UString::operator uint64_t() const
{
    return static_cast<uint64_t>(Narrowed(*this));
}

bool UString::ToBool() const
{
    return Narrowed(*this).ToBool();
}

} // namespace vesk
