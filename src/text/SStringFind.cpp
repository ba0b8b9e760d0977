#include "text/SStringFind_p.hpp"

#include <vesk/text/SString.hpp>

#include <algorithm>
#include <cstring>
#include <string.h>
#include <vector>

namespace vesk {
namespace {

// Windows of candidate starts grow from small (a near match is found at once) to large (few
// windows on long texts); each window is at least twice the pattern, so the overlap that
// every window repeats stays within a constant factor of the text.
constexpr uint32_t kFirstWindow = 256;
constexpr uint32_t kLargestWindow = 64 * 1024;

unsigned char Fold(const unsigned char* fold, char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return fold ? fold[byte] : byte;
}

// The compared bytes of a pattern, folded, and reversed for a backward search.
std::vector<char> Needle(const char* what, uint32_t m, const unsigned char* fold, bool backward)
{
    std::vector<char> needle(m);
    for (uint32_t i = 0; i < m; ++i)
        needle[backward ? m - 1 - i : i] = char(Fold(fold, what[i]));
    return needle;
}

// Searches the starts first..last through folded (and for a backward search reversed)
// copies of the text, window by window, with the C library's linear memmem.
uint32_t FindInWindows(const char* text, uint32_t first, uint32_t last, const char* what, uint32_t m,
                       const unsigned char* fold, bool backward)
{
    const std::vector<char> needle = Needle(what, m, fold, backward);
    const uint32_t total = last - first + 1;
    const uint32_t largest = std::max(kLargestWindow, 2 * m);
    std::vector<char> window;
    uint32_t span = std::max(kFirstWindow, 2 * m);
    for (uint32_t done = 0; done < total; done += span, span = std::min(2 * span, largest)) {
        const uint32_t count = std::min(span, total - done);
        const uint32_t bytes = count + m - 1;
        window.resize(bytes);
        // Forward, window byte i is text[first + done + i]; backward it is text[end - i].
        const uint32_t start = first + done;
        const uint32_t end = last - done + m - 1;
        for (uint32_t i = 0; i < bytes; ++i)
            window[i] = char(Fold(fold, text[backward ? end - i : start + i]));
        const void* hit = memmem(window.data(), bytes, needle.data(), m);
        if (hit) {
            const auto r = uint32_t(static_cast<const char*>(hit) - window.data());
            return backward ? last - done - r : start + r;
        }
    }
    return STRING_NOTFOUND;
}

// Forward search without folding: the first character's candidates are tried directly, which
// is fastest when matches are near; after a few false candidates memmem takes over, keeping
// the search linear.
const char* FindExact(const char* text, size_t bytes, const char* what, uint32_t m)
{
    const char* end = text + bytes;
    for (int tries = 0; tries < 8; ++tries) {
        const char* hit = static_cast<const char*>(std::memchr(text, what[0], size_t(end - text)));
        if (!hit || size_t(end - hit) < m)
            return nullptr;
        if (std::memcmp(hit, what, m) == 0)
            return hit;
        text = hit + 1;
    }
    return static_cast<const char*>(memmem(text, size_t(end - text), what, m));
}

} // namespace

uint32_t FindPattern(const char* text, uint32_t len, const char* what, uint32_t wl, uint32_t from,
                     SearchDirection direction, const unsigned char* fold)
{
    if (wl == 0 || wl > len)
        return STRING_NOTFOUND;
    const uint32_t lastStart = len - wl;
    const bool backward = direction == SearchDirection::Backward;
    if (!backward && from > lastStart)
        return STRING_NOTFOUND;
    const uint32_t first = backward ? 0 : from;
    const uint32_t last = backward ? std::min(from, lastStart) : lastStart;
    const void* zero = std::memchr(what, 0, wl);
    const uint32_t m = zero ? uint32_t(static_cast<const char*>(zero) - what) + 1 : wl;
    if (!fold && !backward) {
        const char* hit = FindExact(text + first, size_t(last - first) + m, what, m);
        return hit ? uint32_t(hit - text) : STRING_NOTFOUND;
    }
    if (!fold && m == 1) {
        const void* hit = memrchr(text, what[0], size_t(last) + 1);
        return hit ? uint32_t(static_cast<const char*>(hit) - text) : STRING_NOTFOUND;
    }
    return FindInWindows(text, first, last, what, m, fold, backward);
}

} // namespace vesk
