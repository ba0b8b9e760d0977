#include "platform/profile.hpp"

#include "platform/cached_profile.hpp"
#include "platform/user_paths.hpp"
#include "platform/utf.hpp"

#include <algorithm>
#include <string>

namespace vesk::platform {

namespace {

CachedProfile& ProfileAt(std::string_view file)
{
    if (file.find('/') != std::string_view::npos)
        return CachedProfile::For(file);
    return CachedProfile::For(ConfigDirectory() + "/" + std::string(file));
}

std::string ToUtf8(const char16_t* text)
{
    return Utf16ToUtf8(text ? std::u16string_view(text) : std::u16string_view());
}

uint32_t CopyValue(std::u16string_view text, char16_t* buffer, uint32_t size)
{
    if (size == 0)
        return 0;
    auto length = static_cast<uint32_t>(std::min<size_t>(text.size(), size - 1));
    std::copy_n(text.data(), length, buffer);
    buffer[length] = 0;
    return length;
}

// list holds names each ended by a zero; the list's own final zero is added here.
uint32_t CopyList(std::u16string_view list, char16_t* buffer, uint32_t size)
{
    if (list.size() < size)
        return CopyValue(list, buffer, size);
    if (size < 2)
        return CopyValue({}, buffer, size);
    std::copy_n(list.data(), size - 2, buffer);
    buffer[size - 2] = buffer[size - 1] = 0;
    return size - 2;
}

} // namespace

uint32_t GetPrivateProfileString(const char16_t* section, const char16_t* key, const char16_t* defaultValue,
    char16_t* buffer, uint32_t size, std::string_view file)
{
    if (!section)
        return CopyValue({}, buffer, size);
    std::string sectionName = ToUtf8(section);
    CachedProfile& profile = ProfileAt(file);
    std::u16string text;
    if (!key) {
        profile.Get([&](const ProfileDocument& doc) {
            for (std::string_view name : doc.KeyNames(sectionName)) {
                AppendUtf8AsUtf16(name, text);
                text += u'\0';
            }
        });
        return CopyList(text, buffer, size);
    }
    std::string keyName = ToUtf8(key);
    std::optional<uint32_t> copied = profile.Get([&](const ProfileDocument& doc) -> std::optional<uint32_t> {
        std::optional<std::string_view> value = doc.Find(sectionName, keyName);
        if (!value)
            return std::nullopt;
        if (value->size() < size) { // fits whole: a byte gives one unit at most
            auto length = static_cast<uint32_t>(Utf8ToUtf16Units(*value, buffer) - buffer);
            buffer[length] = 0;
            return length;
        }
        AppendUtf8AsUtf16(*value, text);
        return CopyValue(text, buffer, size);
    });
    if (copied)
        return *copied;
    if (defaultValue) {
        text = defaultValue;
        text.erase(text.find_last_not_of(u" \t") + 1);
    }
    return CopyValue(text, buffer, size);
}

bool WritePrivateProfileString(const char16_t* section, const char16_t* key, const char16_t* value,
    std::string_view file)
{
    CachedProfile& profile = ProfileAt(file);
    if (!section)
        return profile.Flush();
    std::string sectionName = ToUtf8(section);
    if (!ProfileDocument::IsValidSection(sectionName))
        return false;
    if (!key) {
        return profile.Update([&](ProfileDocument& doc) { return doc.DeleteSection(sectionName); });
    }
    std::string keyName = ToUtf8(key);
    if (!ProfileDocument::IsValidKey(keyName))
        return false;
    if (!value)
        return profile.Update([&](ProfileDocument& doc) { return doc.DeleteKey(sectionName, keyName); });
    std::string text = ToUtf8(value);
    if (!ProfileDocument::IsValidValue(text))
        return false;
    return profile.Update([&](ProfileDocument& doc) { return doc.SetValue(sectionName, keyName, text); });
}

} // namespace vesk::platform

