#include "platform/intl_profile.hpp"

#include "platform/profile.hpp"
#include "platform/user_paths.hpp"
#include "platform/utf.hpp"

#include <vector>

namespace vesk::platform {

namespace {

constexpr char16_t kSection[] = u"intl";

// A value or, without a key, the zero-separated key list of the section; the buffer grows
// while the reader reports that the text was cut.
std::u16string ReadProfile(const char16_t* key, const std::string& file)
{
    std::vector<char16_t> buffer(256);
    for (;;) {
        auto size = static_cast<uint32_t>(buffer.size());
        uint32_t length = GetPrivateProfileString(kSection, key, u"", buffer.data(), size, file);
        if (length + 2 < size)
            return std::u16string(buffer.data(), length);
        buffer.resize(buffer.size() * 2);
    }
}

} // namespace

std::string UserProfilePath()
{
    return ConfigDirectory() + "/vesk/profile.ini";
}

IntlKeys ReadIntlKeys()
{
    IntlKeys keys = IntlKeysFromLocale();
    const std::string file = UserProfilePath();
    std::u16string names = ReadProfile(nullptr, file);
    for (size_t begin = 0; begin < names.size();) {
        size_t end = names.find(u'\0', begin);
        if (end == std::u16string::npos)
            end = names.size();
        std::u16string name = names.substr(begin, end - begin);
        if (!name.empty())
            keys[Utf16ToUtf8(name)] = Utf16ToUtf8(ReadProfile(name.c_str(), file));
        begin = end + 1;
    }
    return keys;
}

} // namespace vesk::platform
