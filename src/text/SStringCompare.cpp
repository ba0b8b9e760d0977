#include "text/SString_p.hpp"

namespace vesk {
namespace {

const SStringData* Rec(const SString& s)
{
    return SStringAccess::Record(s);
}

// Equal texts: same length, and the bytes agree up to the first zero (texts compare as
// zero-terminated strings, so bytes after an inner zero take no part).
bool EqualRecords(const SStringData* a, const SStringData* b)
{
    if (a == b)
        return true;
    const uint32_t len = a->nLen;
    if (len != b->nLen)
        return false;
    if (std::memcmp(a->Text(), b->Text(), len) == 0)
        return true;
    const void* zero = std::memchr(a->Text(), 0, len);
    if (!zero)
        return false;
    const size_t head = size_t(static_cast<const char*>(zero) - a->Text()) + 1;
    return std::memcmp(a->Text(), b->Text(), head) == 0;
}

bool Equal(const SString& a, const SString& b)
{
    SStringPairLock lock(a, b);
    return EqualRecords(Rec(a), Rec(b));
}

// Not called with a null text.
bool Equal(const SString& a, const char* b)
{
    SStringLock lock(a);
    const uint32_t len = Rec(a)->nLen;
    return strnlen(b, size_t(len) + 1) == len && std::memcmp(Rec(a)->Text(), b, len) == 0;
}

bool IsEmpty(const SString& a)
{
    SStringLock lock(a);
    return Rec(a)->nLen == 0;
}

// Unsigned byte order up to the first difference or zero (strcmp compares unsigned bytes).
int Order(const SString& a, const SString& b)
{
    SStringPairLock lock(a, b);
    return std::strcmp(Rec(a)->Text(), Rec(b)->Text());
}

int Order(const SString& a, const char* b)
{
    SStringLock lock(a);
    return std::strcmp(Rec(a)->Text(), b);
}

int OrderN(const char* a, const char* b, unsigned int n)
{
    return n == STRING_LEN ? std::strcmp(a, b) : std::strncmp(a, b, n);
}

} // namespace

bool operator==(const SString& a, const SString& b) { return Equal(a, b); }
bool operator!=(const SString& a, const SString& b) { return !Equal(a, b); }
bool operator<(const SString& a, const SString& b) { return Order(a, b) < 0; }
bool operator<=(const SString& a, const SString& b) { return Order(a, b) <= 0; }
bool operator>(const SString& a, const SString& b) { return Order(a, b) > 0; }
bool operator>=(const SString& a, const SString& b) { return Order(a, b) >= 0; }

// A null text on the right keeps the interface's fixed answers, odd ones included.
bool operator==(const SString& a, const char* b) { return b ? Equal(a, b) : IsEmpty(a); }
bool operator!=(const SString& a, const char* b) { return b ? !Equal(a, b) : IsEmpty(a); }
bool operator<(const SString& a, const char* b) { return b && Order(a, b) < 0; }
bool operator<=(const SString& a, const char* b) { return b ? Order(a, b) <= 0 : IsEmpty(a); }
bool operator>(const SString& a, const char* b) { return b ? Order(a, b) > 0 : IsEmpty(a); }
bool operator>=(const SString& a, const char* b) { return b ? Order(a, b) >= 0 : !IsEmpty(a); }

bool operator==(const char* a, const SString& b) { return b == a; }
bool operator!=(const char* a, const SString& b) { return b != a; }
bool operator<(const char* a, const SString& b) { return b > a; }
bool operator<=(const char* a, const SString& b) { return b >= a; }
bool operator>(const char* a, const SString& b) { return b < a; }
bool operator>=(const char* a, const SString& b) { return b <= a; }

StringCompare SString::Compare(const SString& s, unsigned int n) const
{
    SStringPairLock lock(*this, s);
    return SStringToCompare(OrderN(m_pData->Text(), s.m_pData->Text(), n));
}

StringCompare SString::Compare(const char* text, unsigned int n) const
{
    SStringLock lock(*this);
    return SStringToCompare(OrderN(m_pData->Text(), text ? text : "", n));
}

} // namespace vesk
