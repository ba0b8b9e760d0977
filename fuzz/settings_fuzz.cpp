// The settings store's value decoding on arbitrary text, and its escaping: any key path,
// name and text, stored in a profile document and parsed again, read back unchanged.
#include "platform/profile_document.hpp"
#include "platform/settings_codec.hpp"
#include "platform/utf.hpp"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using vesk::platform::ProfileDocument;
namespace settings = vesk::platform::settings;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::string_view text(reinterpret_cast<const char*>(data), size);
    uint32_t number;
    std::u16string string;
    std::vector<uint8_t> binary;
    settings::DecodeDword(text, number);
    settings::DecodeString(text, string);
    settings::DecodeBinary(text, binary);

    // The input split in three: key path, value name, text.
    std::u16string wide = vesk::platform::Utf8ToUtf16(text);
    size_t a = wide.size() / 3, b = 2 * wide.size() / 3;
    std::u16string_view all = wide;
    std::u16string_view path = all.substr(0, a), name = all.substr(a, b - a), value = all.substr(b);
    std::string section = settings::SectionOf(path), key = settings::KeyOf(name);
    if (section.empty() || key.empty())
        return 0;
    if (!ProfileDocument::IsValidSection(section) || !ProfileDocument::IsValidKey(key))
        std::abort();
    ProfileDocument doc = ProfileDocument::Parse("");
    doc.SetValue(section, key, settings::EncodeString(value));
    ProfileDocument reread = ProfileDocument::Parse(doc.Serialize());
    auto stored = reread.Find(section, key);
    std::u16string read;
    if (!stored || !settings::DecodeString(*stored, read))
        std::abort();
    // Unpaired surrogates cannot be stored as UTF-8 and come back as U+FFFD.
    if (read != vesk::platform::Utf8ToUtf16(vesk::platform::Utf16ToUtf8(value)))
        std::abort();
    return 0;
}
