#include "text/UString_p.hpp"

#include <algorithm>

namespace vesk {

namespace detail {

namespace {

// Never destroyed, so that strings in other static objects may still point at it at exit.
union EmptyHolder {
    UStringData record;
    constexpr EmptyHolder() : record() {}
    ~EmptyHolder() {}
};
constinit EmptyHolder g_emptyRecord;

bool Overlaps(const UStringData* rec, std::u16string_view text) noexcept
{
    if (rec->m_aText.empty() || text.empty())
        return false;
    const auto* begin = rec->m_aText.data();
    const auto* end = begin + rec->m_aText.size();
    return std::less_equal<>()(begin, text.data()) && std::less<>()(text.data(), end);
}

} // namespace

UStringData* EmptyURecord() noexcept
{
    return &g_emptyRecord.record;
}

UStringData* NewURecord(std::u16string_view text)
{
    return NewURecord({text});
}

UStringData* NewURecord(std::initializer_list<std::u16string_view> parts)
{
    size_t n = 0;
    for (const auto part : parts)
        n += part.size();
    if (n == 0)
        return EmptyURecord();
    auto* rec = new UStringData;
    rec->m_aText.reserve(n + 1);
    for (const auto part : parts)
        rec->m_aText.insert(rec->m_aText.end(), part.begin(), part.end());
    rec->m_aText.push_back(0);
    rec->m_nLen = static_cast<uint32_t>(n);
    return rec;
}

UStringData* NewURecord(uint32_t n)
{
    auto* rec = new UStringData;
    rec->m_aText.resize(static_cast<size_t>(n) + 1);
    rec->m_nLen = n;
    return rec;
}

UStringData* ReferenceURecord(UStringData* rec)
{
    if (rec == EmptyURecord())
        return rec;
    if (rec->m_nRefCount < kSaturatedCount) {
        ++rec->m_nRefCount;
        return rec;
    }
    return NewURecord(ViewOf(rec));
}

void ReleaseURecord(UStringData* rec) noexcept
{
    if (rec == EmptyURecord())
        return;
    if (rec->m_nRefCount != 0)
        --rec->m_nRefCount;
    else
        delete rec;
}

} // namespace detail

using detail::EmptyURecord;
using detail::NewURecord;
using detail::ReleaseURecord;

void UString::Locked::Adopt(UStringData* rec) const noexcept
{
    UStringData* old = m_rString.m_pData;
    m_rString.m_pData = rec;
    ReleaseURecord(old);
}

char16_t* UString::Locked::Unique() const
{
    UStringData* rec = Rec();
    if (rec == EmptyURecord())
        return nullptr;
    if (rec->m_nRefCount != 0) {
        UStringData* copy = NewURecord(View());
        Adopt(copy);
        rec = copy;
    }
    return rec->m_nLen == 0 ? nullptr : rec->m_aText.data();
}

void UString::Locked::Assign(std::u16string_view text) const
{
    text = text.substr(0, USTRING_MAXLEN);
    if (text.empty()) {
        Adopt(EmptyURecord());
    } else if (detail::Overlaps(Rec(), text)) {
        Assign(std::u16string(text));
    } else if (IsPrivate()) {
        UStringData* rec = Rec();
        rec->m_aText.assign(text.begin(), text.end());
        rec->m_aText.push_back(0);
        rec->m_nLen = static_cast<uint32_t>(text.size());
    } else {
        Adopt(NewURecord(text));
    }
}

void UString::Locked::Append(std::u16string_view text) const
{
    const uint32_t len = Len();
    text = text.substr(0, USTRING_MAXLEN - std::min(len, USTRING_MAXLEN));
    if (text.empty())
        return;
    if (detail::Overlaps(Rec(), text))
        return Append(std::u16string(text));
    if (IsPrivate()) {
        std::vector<char16_t>& chars = Rec()->m_aText;
        chars.resize(len);
        chars.insert(chars.end(), text.begin(), text.end());
        chars.push_back(0);
        Rec()->m_nLen = static_cast<uint32_t>(len + text.size());
        return;
    }
    Adopt(NewURecord({View(), text}));
}

void UString::Locked::Truncate(uint32_t n) const
{
    if (n == 0) {
        Adopt(EmptyURecord());
        return;
    }
    Rec()->m_aText.resize(static_cast<size_t>(n) + 1);
    Rec()->m_aText[n] = 0;
    Rec()->m_nLen = n;
}

UStringData* UString::Locked::Reference() const
{
    UStringData* rec = Rec();
    if (rec == EmptyURecord())
        return rec;
    if (rec->m_nRefCount < detail::kSaturatedCount) {
        ++rec->m_nRefCount;
        return rec;
    }
    // A saturated count cannot grow: this string moves to a copy and the reference goes there.
    UStringData* copy = NewURecord(View());
    copy->m_nRefCount = 1;
    Adopt(copy);
    return copy;
}

UString::UString() noexcept : m_pData(EmptyURecord()), m_nLock(0) {}

UString::UString(UStringData* rec) noexcept : m_pData(rec), m_nLock(0) {}

UString::UString(const UString& s) : m_pData(Locked(s).Reference()), m_nLock(0) {}

UString::UString(UString&& s) noexcept : m_pData(EmptyURecord()), m_nLock(0)
{
    Locked source(s);
    std::swap(m_pData, s.m_pData);
}

UString::UString(const UString& s, unsigned int index, unsigned int length)
    : m_pData(EmptyURecord()), m_nLock(0)
{
    const UStringRef ref(s);
    const std::u16string_view text = ref.View();
    if (index == 0 && length >= text.size())
        m_pData = ref.Share();
    else if (index <= text.size())
        m_pData = NewURecord(text.substr(index, length));
}

UString::UString(const std::u16string& text)
    : m_pData(NewURecord(std::u16string_view(text).substr(0, USTRING_MAXLEN))), m_nLock(0)
{
}

UString::UString(const char16_t* text)
    : m_pData(NewURecord(detail::TerminatedView(text, USTRING_MAXLEN))), m_nLock(0)
{
}

UString::UString(const char16_t* text, unsigned int index, unsigned int length)
    : m_pData(NewURecord(detail::RangeView(text, index, length).substr(0, USTRING_MAXLEN))),
      m_nLock(0)
{
}

UString::UString(char16_t c) : m_pData(NewURecord(std::u16string_view(&c, c != 0 ? 1 : 0))), m_nLock(0)
{
}

UString::~UString()
{
    Locked self(*this);
    ReleaseURecord(m_pData);
}

UString& UString::operator=(const UString& s)
{
    UStringData* rec = Locked(s).Reference();
    Locked self(*this);
    if (self.Rec() == rec)
        ReleaseURecord(rec);
    else
        self.Adopt(rec);
    return *this;
}

UString& UString::operator=(UString&& s) noexcept
{
    if (this == &s)
        return *this;
    UStringData* rec = EmptyURecord();
    {
        Locked source(s);
        std::swap(rec, s.m_pData);
    }
    Locked(*this).Adopt(rec);
    return *this;
}

UString& UString::operator=(const char16_t* text)
{
    Locked(*this).Assign(detail::TerminatedView(text, USTRING_MAXLEN));
    return *this;
}

char16_t* UString::AllocStrBuf(unsigned int n)
{
    UStringData* rec = NewURecord(n);
    Locked(*this).Adopt(rec);
    return rec->m_aText.data();
}

char16_t* UString::AllocStrCapBuf(unsigned int n)
{
    UStringData* rec = NewURecord(n);
    rec->m_nLen = 0;
    Locked(*this).Adopt(rec);
    return rec->m_aText.data();
}

void UString::Clear()
{
    Locked(*this).Adopt(EmptyURecord());
}

char16_t* UString::CreateWCHARArr() const
{
    Locked self(*this);
    const std::u16string_view text = self.View();
    auto* chars = new char16_t[text.size() + 1];
    std::copy(text.begin(), text.end(), chars);
    chars[text.size()] = 0;
    return chars;
}

unsigned int UString::Len() const
{
    return Locked(*this).Len();
}

bool UString::operator!() const
{
    return Len() == 0;
}

UString::operator const char16_t*() const
{
    Locked self(*this);
    return self.Rec() == EmptyURecord() ? u"" : self.Rec()->m_aText.data();
}

UString::operator char16_t() const
{
    return (*this)[0];
}

char16_t UString::operator[](int index) const
{
    Locked self(*this);
    return index >= 0 && static_cast<uint32_t>(index) < self.Len() ? self.View()[index] : 0;
}

char16_t UString::operator[](short index) const
{
    return (*this)[static_cast<int>(index)];
}

char16_t UString::operator[](unsigned short index) const
{
    return (*this)[static_cast<int>(index)];
}

} // namespace vesk
