#include "text/SString_p.hpp"

#include <cstdarg>
#include <cstdio>

namespace vesk {
namespace {

// The formatted text in a new private record, or null when the C library reports an error.
SStringData* FormatRecord(const char* format, va_list args)
{
    if (!format)
        return nullptr;
    va_list measure;
    va_copy(measure, args);
    const int n = std::vsnprintf(nullptr, 0, format, measure);
    va_end(measure);
    if (n < 0)
        return nullptr;
    if (n == 0)
        return SStringData::Empty();
    SStringData* rec = SStringData::Make(uint32_t(n));
    std::vsnprintf(rec->Text(), size_t(n) + 1, format, args);
    return rec;
}

// Formats, catching every exception: a failure gives null.
SStringData* TryFormat(const char* format, va_list args) noexcept
{
    try {
        return FormatRecord(format, args);
    } catch (...) {
        return nullptr;
    }
}

} // namespace

SString SString::F(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    SStringData* rec = TryFormat(format, args);
    va_end(args);
    if (!rec)
        return SString();
    if (!rec->IsEmptyRecord() && MayBeUTF8(rec->Text(), STRING_LEN))
        rec->SetUTF8(true);
    return SString(Adopt{}, rec);
}

void SString::Format(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    // Formatted into a new record first, so the arguments may point into this string.
    SStringData* rec = TryFormat(format, args);
    va_end(args);
    if (!rec)
        return;
    SStringLock lock(*this);
    SStringSetRecord(m_pData, rec);
}

} // namespace vesk
