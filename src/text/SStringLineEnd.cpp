#include "text/SString_p.hpp"

#include <algorithm>
#include <cstring>

namespace vesk {
namespace {

// Position of the next CR or LF at or after i, or len (strcspn stops at inner zeros too).
uint32_t NextLineEnd(const char* text, uint32_t i, uint32_t len)
{
    while (i < len) {
        i += uint32_t(std::strcspn(text + i, "\r\n"));
        if (i >= len || text[i] != 0)
            break;
        ++i;
    }
    return std::min(i, len);
}

// Calls stretch(from, to) for every run of other characters and lineEnd(at, n) for every
// line end: CR LF and LF CR (two different line-end characters) form one, CR CR and LF LF
// are two.
template <typename Stretch, typename LineEndFound>
void WalkLines(const char* text, uint32_t len, Stretch stretch, LineEndFound lineEnd)
{
    for (uint32_t i = 0;;) {
        const uint32_t at = NextLineEnd(text, i, len);
        stretch(i, at);
        if (at == len)
            return;
        const char next = at + 1 < len ? text[at + 1] : 0;
        const uint32_t n = (next == '\r' || next == '\n') && next != text[at] ? 2 : 1;
        lineEnd(at, n);
        i = at + n;
    }
}

bool IsTarget(const char* end, uint32_t n, LineEnd target)
{
    switch (target) {
    case LINEEND_CR:
        return n == 1 && end[0] == '\r';
    case LINEEND_LF:
        return n == 1 && end[0] == '\n';
    case LINEEND_CRLF:
        return n == 2 && end[0] == '\r';
    }
    return false;
}

} // namespace

void SString::ConvertLineEnd(LineEnd target)
{
    SStringLock lock(*this);
    const SStringData* rec = m_pData;
    const char* text = rec->Text();
    const uint32_t len = rec->nLen;
    const char* replacement = target == LINEEND_CR ? "\r" : target == LINEEND_LF ? "\n" : "\r\n";
    const uint32_t width = target == LINEEND_CRLF ? 2 : 1;

    uint64_t newLen = 0;
    bool differs = false;
    WalkLines(
        text, len, [&](uint32_t from, uint32_t to) { newLen += to - from; },
        [&](uint32_t at, uint32_t n) {
            differs = differs || !IsTarget(text + at, n, target);
            newLen += width;
        });
    if (!differs || newLen >= STRING_MAXLEN)
        return;

    SStringData* result = SStringData::Make(uint32_t(newLen));
    char* out = result->Text();
    WalkLines(
        text, len,
        [&](uint32_t from, uint32_t to) {
            std::memcpy(out, text + from, to - from);
            out += to - from;
        },
        [&](uint32_t, uint32_t) {
            std::memcpy(out, replacement, width);
            out += width;
        });
    result->SetUTF8(rec->IsUTF8());
    SStringSetRecord(m_pData, result);
}

} // namespace vesk
