#include "platform/settings.hpp"

#include "platform/cached_profile.hpp"
#include "platform/settings_codec.hpp"
#include "platform/user_paths.hpp"

namespace vesk::platform::settings {

namespace {

template <class Decode>
bool ReadValue(std::u16string_view keyPath, std::u16string_view name, Decode decode)
{
    std::string section = SectionOf(keyPath), key = KeyOf(name);
    return CachedProfile::For(FilePath()).Get([&](const ProfileDocument& doc) {
        std::optional<std::string_view> text = doc.Find(section, key);
        return text && decode(*text);
    });
}

// Applies edit to the settings file, creating its folder first.
bool Update(const std::function<bool(ProfileDocument&)>& edit)
{
    std::string path = FilePath();
    return MakeDirectories(path.substr(0, path.find_last_of('/'))) && CachedProfile::For(path).Update(edit);
}

bool WriteValue(std::u16string_view keyPath, std::u16string_view name, const std::string& text)
{
    std::string section = SectionOf(keyPath), key = KeyOf(name);
    if (section.empty() || key.empty())
        return false;
    return Update([&](ProfileDocument& doc) { return doc.SetValue(section, key, text); });
}

} // namespace

std::string FilePath()
{
    return ConfigDirectory() + "/vesk/settings.ini";
}

bool ReadDword(std::u16string_view keyPath, std::u16string_view name, uint32_t& value)
{
    return ReadValue(keyPath, name, [&](std::string_view text) { return DecodeDword(text, value); });
}

bool ReadString(std::u16string_view keyPath, std::u16string_view name, std::u16string& value)
{
    return ReadValue(keyPath, name, [&](std::string_view text) { return DecodeString(text, value); });
}

bool ReadBinary(std::u16string_view keyPath, std::u16string_view name, std::vector<uint8_t>& value)
{
    return ReadValue(keyPath, name, [&](std::string_view text) { return DecodeBinary(text, value); });
}

bool WriteDword(std::u16string_view keyPath, std::u16string_view name, uint32_t value)
{
    return WriteValue(keyPath, name, EncodeDword(value));
}

bool WriteString(std::u16string_view keyPath, std::u16string_view name, std::u16string_view value)
{
    return WriteValue(keyPath, name, EncodeString(value));
}

bool WriteBinary(std::u16string_view keyPath, std::u16string_view name, std::span<const uint8_t> value)
{
    return WriteValue(keyPath, name, EncodeBinary(value));
}

bool DeleteValue(std::u16string_view keyPath, std::u16string_view name)
{
    std::string section = SectionOf(keyPath), key = KeyOf(name);
    return Update([&](ProfileDocument& doc) { return doc.DeleteKey(section, key); });
}

bool DeleteKey(std::u16string_view keyPath)
{
    std::string section = SectionOf(keyPath);
    if (section.empty())
        return false;
    return Update([&](ProfileDocument& doc) {
        return doc.DeleteSections([&](std::string_view name) {
            return ProfileDocument::SameName(name.substr(0, section.size()), section)
                && (name.size() == section.size() || name[section.size()] == '\\');
        });
    });
}

} // namespace vesk::platform::settings
