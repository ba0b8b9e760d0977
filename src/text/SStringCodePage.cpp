// The members of SString that convert through code pages, character sets and transcript data.

#include "platform/codepage.hpp"
#include "text/SString_p.hpp"
#include "text/TranscriptData_p.hpp"

#include <vesk/text/CharSet.hpp>
#include <vesk/text/UString.hpp>

#include <algorithm>
#include <memory>

namespace vesk {

using platform::CODEPAGE_THREAD;
using platform::CODEPAGE_UTF8;

namespace {

bool HasUpperHalfByte(const SStringData* rec)
{
    const auto* text = reinterpret_cast<const unsigned char*>(rec->Text());
    return std::any_of(text, text + rec->nLen, [](unsigned char c) { return c >= 0x80; });
}

// Set 9 stands for the system's set.
CharSet Resolved(CharSet set)
{
    return set == CHARSET_SYSTEM ? GetSystemCharSet() : set;
}

// Whether Convert leaves text alone: an unknown or no set, or the same set on both sides.
bool SkipsConversion(CharSet from, CharSet to)
{
    return from == CHARSET_DONTKNOW || from == CHARSET_NONE || to == CHARSET_DONTKNOW
        || to == CHARSET_NONE || Resolved(from) == Resolved(to);
}

} // namespace

SString::SString(const char16_t* text, unsigned int codePage) : m_pData(SStringData::Empty()), m_nLock(0)
{
    const size_t count = text != nullptr ? std::char_traits<char16_t>::length(text) : 0;
    if (count == 0)
        return;
    const uint32_t n = static_cast<uint32_t>(std::min<size_t>(count, STRING_MAXLEN));
    const uint32_t bytes = codePage == CODEPAGE_UTF8 ? 4 * n : n;
    std::unique_ptr<SStringData, void (*)(SStringData*)> rec(SStringData::Make(bytes),
        SStringData::Release);
    rec->SetUTF8(codePage == CODEPAGE_UTF8);
    // The whole text is converted: one cut to STRING_MAXLEN does not fit and gives length 0.
    const int written = platform::WideToMultiByte(codePage, text, -1, rec->Text(),
        static_cast<int>(bytes + 1));
    const bool endsInZero = written > 0 && rec->Text()[written - 1] == 0;
    rec->SetLength(static_cast<uint32_t>(endsInZero ? written - 1 : written));
    m_pData = rec.release();
}

SString::SString(const std::u16string& text) : SString(text.c_str(), CODEPAGE_UTF8) {}

SString& SString::operator+=(char16_t c)
{
    if (c < 0x80)
        return *this += static_cast<char>(c);
    return *this += UString(c).GetUTF8();
}

SString& SString::operator+=(wchar_t c)
{
    const auto code = static_cast<uint32_t>(c);
    if (code <= 0xFFFF)
        return *this += static_cast<char16_t>(code);
    if (code > 0x10FFFF)
        return *this;
    const char16_t pair[] = {static_cast<char16_t>(0xD7C0 + (code >> 10)),
        static_cast<char16_t>(0xDC00 + (code & 0x3FF)), 0};
    return *this += UString(pair).GetUTF8();
}

char16_t* SString::CreateWCHARArr(unsigned int codePage) const
{
    SStringLock lock(*this);
    const uint32_t len = m_pData->nLen;
    auto* chars = new char16_t[len + 1];
    // Text the code page cannot decode gives the empty text.
    if (platform::MultiByteToWide(codePage, m_pData->Text(), -1, chars, static_cast<int>(len + 1)) == 0)
        chars[0] = 0;
    return chars;
}

SString SString::AnsiToUTF8() const
{
    return AnsiToUTF8(CODEPAGE_THREAD);
}

SString SString::AnsiToUTF8(unsigned int codePage) const
{
    SStringRef source(*this);
    if (source->IsUTF8() || !HasUpperHalfByte(source.Get()))
        return SString(Adopt{}, source.Take());
    const uint32_t len = source->nLen;
    // Decoding to UTF-16 and encoding that as UTF-8 in 4 * (len + 1) bytes never runs out of
    // room, so converting in one pass gives the same result and the same failures.
    const uint32_t room = 4 * (len + 1);
    std::unique_ptr<SStringData, void (*)(SStringData*)> rec(SStringData::Make(room - 1),
        SStringData::Release);
    const int written = platform::MultiByteToMultiByte(codePage, source->Text(), -1, CODEPAGE_UTF8,
        rec->Text(), static_cast<int>(room));
    if (written == 0)
        return SString();
    rec->SetLength(static_cast<uint32_t>(written - 1));
    rec->SetUTF8(true);
    return SString(Adopt{}, rec.release());
}

SString SString::UTF8ToLanguage(unsigned int codePage) const
{
    SStringRef source(*this);
    const uint32_t len = source->nLen;
    std::unique_ptr<char16_t[]> wide(new char16_t[len + 1]);
    if (platform::MultiByteToWide(CODEPAGE_UTF8, source->Text(), -1, wide.get(), static_cast<int>(len + 1)) == 0)
        return SString();
    std::unique_ptr<SStringData, void (*)(SStringData*)> rec(SStringData::Make(len),
        SStringData::Release);
    const int written = platform::WideToMultiByte(codePage, wide.get(), -1, rec->Text(),
        static_cast<int>(len + 1));
    if (written == 0)
        return SString(Adopt{}, source.Take());
    rec->SetLength(static_cast<uint32_t>(written - 1));
    return SString(Adopt{}, rec.release());
}

SString SString::UTF8ToAnsi() const
{
    return UTF8ToLanguage(CODEPAGE_THREAD);
}

SString SString::UTF8ToAnsi(unsigned int codePage) const
{
    return UTF8ToLanguage(codePage);
}

SString SString::UTF8ToCzech() const
{
    return UTF8ToLanguage(1250);
}

SString SString::UTF8ToRussian() const
{
    return UTF8ToLanguage(1251);
}

SString SString::UTF8ToEnglish() const
{
    return UTF8ToLanguage(1252);
}

SString SString::UTF8ToGreek() const
{
    return UTF8ToLanguage(1253);
}

SString SString::UTF8ToTurkish() const
{
    return UTF8ToLanguage(1254);
}

void SString::Convert(CharSet from, CharSet to)
{
    if (SkipsConversion(from, to))
        return;
    SStringLock lock(*this);
    if (m_pData->nLen == 0)
        return;
    SStringMakeUnique(m_pData);
    ImpStringConvert(m_pData->Text(), Resolved(from), Resolved(to));
}

char SString::Convert(char c, CharSet from, CharSet to)
{
    if (SkipsConversion(from, to))
        return c;
    char text[] = {c, 0};
    ImpStringConvert(text, Resolved(from), Resolved(to));
    return text[0];
}

bool SString::IsTranscript() const
{
    SStringLock lock(*this);
    return detail::IsTranscriptText(detail::CurrentTranscriptData(), m_pData->Text(), m_pData->nLen);
}

bool SString::IsTranscript(const char* text)
{
    return text != nullptr
        && detail::IsTranscriptText(detail::CurrentTranscriptData(), text,
            static_cast<uint32_t>(strnlen(text, STRING_MAXLEN)));
}

} // namespace vesk
