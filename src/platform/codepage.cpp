#include "platform/codepage.hpp"

#include <iconv.h>
#include <string>

namespace vesk::platform {

namespace {

struct PageName {
    unsigned int codePage;
    const char* iconvName;
};

// Code pages 0 and 3 share the descriptors of 1252.
constexpr PageName kPages[] = {
    {1250, "WINDOWS-1250"}, {1251, "WINDOWS-1251"}, {1252, "WINDOWS-1252"},
    {1253, "WINDOWS-1253"}, {1254, "WINDOWS-1254"}, {65001, "UTF-8"},
};
constexpr int kPageCount = sizeof(kPages) / sizeof(kPages[0]);
// The encodings a descriptor converts between: the pages, then UTF-16 in native byte order.
constexpr int kUtf16 = kPageCount;
constexpr int kEncodingCount = kPageCount + 1;

const char* IconvName(int encoding)
{
    if (encoding == kUtf16)
        return __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ ? "UTF-16LE" : "UTF-16BE";
    return kPages[encoding].iconvName;
}

const iconv_t kNoDescriptor = reinterpret_cast<iconv_t>(-1);

int PageIndex(unsigned int codePage)
{
    if (codePage == CODEPAGE_SYSTEM || codePage == CODEPAGE_THREAD)
        codePage = 1252;
    for (int i = 0; i < kPageCount; ++i)
        if (kPages[i].codePage == codePage)
            return i;
    return -1;
}

// Descriptors are opened on first use in each thread and closed when the thread ends; iconv
// descriptors carry shift state, so they cannot be shared between threads.
class DescriptorCache {
public:
    DescriptorCache() = default;
    DescriptorCache(const DescriptorCache&) = delete;
    DescriptorCache& operator=(const DescriptorCache&) = delete;
    ~DescriptorCache()
    {
        for (auto& row : m_entries)
            for (auto& entry : row)
                if (entry.descriptor != kNoDescriptor)
                    iconv_close(entry.descriptor);
    }

    iconv_t Get(int from, int to)
    {
        Entry& entry = m_entries[from][to];
        if (!entry.opened) {
            // A descriptor that cannot be opened is not tried again in this thread.
            entry.opened = true;
            entry.descriptor = iconv_open(IconvName(to), IconvName(from));
        }
        return entry.descriptor;
    }

private:
    struct Entry {
        iconv_t descriptor = kNoDescriptor;
        bool opened = false;
    };
    Entry m_entries[kEncodingCount][kEncodingCount];
};

thread_local DescriptorCache t_descriptors;

// Converts inBytes bytes in one call; returns the bytes written or -1.
long Run(iconv_t descriptor, const char* in, size_t inBytes, char* out, size_t outBytes)
{
    // Each call starts from the initial shift state, whatever an earlier failure left behind.
    iconv(descriptor, nullptr, nullptr, nullptr, nullptr);
    char* inCursor = const_cast<char*>(in);
    char* outCursor = out;
    size_t outLeft = outBytes;
    // A non-zero count of irreversible conversions would mean a substituted character.
    if (iconv(descriptor, &inCursor, &inBytes, &outCursor, &outLeft) != 0 || inBytes != 0)
        return -1;
    if (iconv(descriptor, nullptr, nullptr, &outCursor, &outLeft) != 0)
        return -1;
    return outCursor - out;
}

template <typename From, typename To>
int Convert(int from, int to, const From* src, int srcLength, To* dst, int dstSize)
{
    if (from < 0 || to < 0 || src == nullptr || dst == nullptr || dstSize <= 0 || srcLength < -1)
        return 0;
    const size_t units = srcLength == -1 ? std::char_traits<From>::length(src) + 1
                                         : static_cast<size_t>(srcLength);
    if (units == 0)
        return 0;
    const iconv_t descriptor = t_descriptors.Get(from, to);
    if (descriptor == kNoDescriptor)
        return 0;
    const long written = Run(descriptor, reinterpret_cast<const char*>(src), units * sizeof(From),
        reinterpret_cast<char*>(dst), static_cast<size_t>(dstSize) * sizeof(To));
    if (written <= 0)
        return 0;
    return static_cast<int>(written / static_cast<long>(sizeof(To)));
}

} // namespace

int MultiByteToWide(unsigned int codePage, const char* src, int srcLength, char16_t* dst,
    int dstSize)
{
    return Convert(PageIndex(codePage), kUtf16, src, srcLength, dst, dstSize);
}

int WideToMultiByte(unsigned int codePage, const char16_t* src, int srcLength, char* dst,
    int dstSize)
{
    return Convert(kUtf16, PageIndex(codePage), src, srcLength, dst, dstSize);
}

int MultiByteToMultiByte(unsigned int fromPage, const char* src, int srcLength,
    unsigned int toPage, char* dst, int dstSize)
{
    return Convert(PageIndex(fromPage), PageIndex(toPage), src, srcLength, dst, dstSize);
}

} // namespace vesk::platform
