#include "text/SString_p.hpp"

#include <memory>

namespace vesk {
namespace {

bool IsLineEndChar(char c)
{
    return c == '\r' || c == '\n';
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

    // One pass into a scratch buffer of the largest possible size: the new length and whether
    // anything differs are only known at the end, and a second scan would cost more than the
    // final copy.
    const std::unique_ptr<char[]> scratch(new char[size_t(len) * width]);
    char* out = scratch.get();
    bool differs = false;
    for (uint32_t i = 0; i < len;) {
        const char c = text[i];
        // Most bytes pass with the first comparison.
        if (static_cast<unsigned char>(c) > '\r' || !IsLineEndChar(c)) {
            *out++ = c;
            ++i;
            continue;
        }
        // CR LF and LF CR (two different line-end characters) form one line end; CR CR and
        // LF LF are two.
        const char next = i + 1 < len ? text[i + 1] : 0;
        const uint32_t n = IsLineEndChar(next) && next != c ? 2 : 1;
        differs = differs || !IsTarget(text + i, n, target);
        for (uint32_t k = 0; k < width; ++k)
            *out++ = replacement[k];
        i += n;
    }
    const auto newLen = uint64_t(out - scratch.get());
    if (!differs || newLen >= STRING_MAXLEN)
        return;
    SStringSetRecord(m_pData, SStringData::Make(scratch.get(), uint32_t(newLen), rec->IsUTF8()));
}

} // namespace vesk
