#include "platform/codepage.hpp"
#include "text/TranscriptData_p.hpp"
#include "text/UString_p.hpp"

#include <algorithm>
#include <string_view>

namespace vesk {

using platform::CODEPAGE_SYSTEM;
using platform::CODEPAGE_UTF8;

namespace {

using Locked = UStringAccess::Locked;

// Replaces the text with n bytes (cut to USTRING_MAXLEN) decoded in codePage; a failed
// decoding leaves the string empty. A private record with room enough is reused.
void Decode(const Locked& self, unsigned int codePage, const char* bytes, uint32_t n)
{
    n = std::min(n, USTRING_MAXLEN);
    if (n == 0) {
        self.Adopt(detail::EmptyURecord());
        return;
    }
    if (!self.IsPrivate() || self.Rec()->m_aText.capacity() <= n)
        self.Adopt(detail::NewURecord(n));
    UStringData* rec = self.Rec();
    rec->m_aText.resize(static_cast<size_t>(n) + 1);
    // Every byte gives at most one unit, and a four-byte sequence two.
    const int units = platform::MultiByteToWide(codePage, bytes, static_cast<int>(n),
        rec->m_aText.data(), static_cast<int>(n));
    self.Truncate(static_cast<uint32_t>(units));
}

// The bytes (cut to USTRING_MAXLEN) decoded as UTF-8 when MayBeUTF8 finds UTF-8 in them, else
// in the system code page.
void DecodeGuessing(const Locked& self, std::string_view bytes)
{
    const uint32_t n = static_cast<uint32_t>(std::min<size_t>(bytes.size(), USTRING_MAXLEN));
    Decode(self, SString::MayBeUTF8(bytes.data(), n) ? CODEPAGE_UTF8 : CODEPAGE_SYSTEM,
        bytes.data(), n);
}

std::string_view BytesOf(const SString& s)
{
    return {static_cast<const char*>(s), s.Len()};
}

// The record's text ends in a zero, which the conversions read up to.
const char16_t* Terminated(const Locked& self)
{
    return self.View().data();
}

// The range [index, index + length) of the bytes, cut to them.
std::string_view Range(std::string_view bytes, uint32_t index, uint32_t length)
{
    return index < bytes.size() ? bytes.substr(index, length) : std::string_view();
}

} // namespace

UString::UString(const SString& s) : UString()
{
    const SString hold(s);
    DecodeGuessing(Locked(*this), BytesOf(hold));
}

UString::UString(const SString& s, unsigned int index, unsigned int length) : UString()
{
    const SString hold(s);
    DecodeGuessing(Locked(*this), Range(BytesOf(hold), index, length));
}

UString::UString(const char* text) : UString()
{
    DecodeGuessing(Locked(*this), detail::RangeView(text, 0, USTRING_MAXLEN));
}

UString::UString(const char* text, unsigned int index, unsigned int length) : UString()
{
    DecodeGuessing(Locked(*this), detail::RangeView(text, index, length));
}

UString::UString(char c) : UString()
{
    Decode(Locked(*this), CODEPAGE_SYSTEM, &c, c != 0 ? 1 : 0);
}

void UString::InitStringRes(const char* data, unsigned int n)
{
    DecodeGuessing(Locked(*this), std::string_view(data, data != nullptr ? n : 0));
}

void UString::InitStringRes(const char16_t* data, unsigned int n)
{
    Locked(*this).Assign(std::u16string_view(data, data != nullptr ? n : 0));
}

void UString::AppendStringRes(const char* data, unsigned int n)
{
    UString part;
    part.InitStringRes(data, n);
    *this += part;
}

void UString::AppendStringRes(const char16_t* data, unsigned int n)
{
    Locked(*this).Append(std::u16string_view(data, data != nullptr ? n : 0));
}

void UString::SetUTF8(const SString& s)
{
    const SString hold(s);
    DecodeGuessing(Locked(*this), BytesOf(hold));
}

void UString::SetUTF8(const char* text, unsigned int length)
{
    Decode(Locked(*this), CODEPAGE_UTF8, text, text != nullptr ? length : 0);
}

void UString::SetTranscript(const SString& text, unsigned int index, unsigned int length)
{
    const TranscriptData* data = detail::CurrentTranscriptData();
    const SString hold(text);
    const std::string_view bytes = Range(BytesOf(hold), index, length);
    Decode(Locked(*this), data != nullptr ? data->GetCodePage() : CODEPAGE_SYSTEM, bytes.data(),
        static_cast<uint32_t>(bytes.size()));
}

void UString::SetTranscript(const std::u16string& text, unsigned int index, unsigned int length)
{
    const std::u16string_view chars(text);
    Locked(*this).Assign(index < chars.size() ? chars.substr(index, length) : std::u16string_view());
}

SString UString::GetUTF8() const
{
    Locked self(*this);
    return SString(Terminated(self), CODEPAGE_UTF8);
}

UString::operator SString() const
{
    return GetUTF8();
}

unsigned int UString::GetUTF8(char* buffer, unsigned int size) const
{
    if (size == 0)
        return 0;
    Locked self(*this);
    buffer[0] = 0;
    const int n = self.Len() == 0 ? 0
        : platform::WideToMultiByte(CODEPAGE_UTF8, Terminated(self), -1, buffer, static_cast<int>(size));
    buffer[size - 1] = 0;
    return static_cast<unsigned int>(n);
}

char* UString::CreateCharArr() const
{
    Locked self(*this);
    const uint32_t len = self.Len();
    auto* bytes = new char[len + 1];
    // Without a default character, text the code page cannot hold gives the empty text.
    if (platform::WideToMultiByte(CODEPAGE_SYSTEM, Terminated(self), -1, bytes, static_cast<int>(len + 1)) == 0)
        bytes[0] = 0;
    return bytes;
}

bool UString::IsTranscript() const
{
    Locked self(*this);
    return detail::IsTranscriptWide(detail::CurrentTranscriptData(), self.View());
}

bool UString::IsTranscript(const char* text)
{
    return SString::IsTranscript(text);
}

} // namespace vesk
