// The profile parser on arbitrary bytes: no crash, an unedited UTF-8 file is written back
// byte for byte, every listed key is found, and an edit reads back after a rewrite.
#include "platform/profile_document.hpp"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using vesk::platform::ProfileDocument;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    ProfileDocument doc = ProfileDocument::Parse(bytes);
    bool utf16 = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
    if (!utf16 && doc.Serialize() != bytes)
        std::abort();
    for (std::string_view name : doc.KeyNames("s")) {
        if (!doc.Find("S", name))
            std::abort();
    }
    doc.SetValue("s", "fuzz", "value");
    doc.SetValue("new", "k", "v");
    ProfileDocument again = ProfileDocument::Parse(doc.Serialize());
    if (again.Find("s", "fuzz") != "value" || again.Find("new", "k") != "v")
        std::abort();
    again.DeleteKey("s", "fuzz");
    again.DeleteSection("new");
    if (again.Find("s", "fuzz") || again.Find("new", "k"))
        std::abort();
    return 0;
}
