#include <vesk/files/Config.hpp>

#include "files/ConfigValue_p.hpp"
#include "files/Config_p.hpp"
#include "platform/profile.hpp"
#include "platform/user_paths.hpp"
#include "platform/utf.hpp"

#include <string>
#include <strings.h>
#include <string_view>
#include <vector>

namespace vesk {

namespace {

std::string_view Bytes(const SString& s)
{
    return {static_cast<const char*>(s), s.Len()};
}

std::u16string Wide(const SString& s)
{
    return platform::Utf8ToUtf16(Bytes(s));
}

SString MakeString(const std::string& bytes)
{
    return SString(bytes.data(), 0, static_cast<unsigned int>(std::min<size_t>(bytes.size(), STRING_MAXLEN)), true);
}

// Reads with a buffer of size characters, grown by 2048 while the result may have been cut.
std::u16string ReadGrowing(const std::u16string& group, const char16_t* key, const char16_t* defaultValue, uint32_t size,
    const SString& file)
{
    std::vector<char16_t> buffer;
    for (;;) {
        buffer.resize(size);
        uint32_t length = platform::GetPrivateProfileString(group.c_str(), key, defaultValue, buffer.data(), size, Bytes(file));
        if (length < size - 2)
            return std::u16string(buffer.data(), length);
        size += 2048;
    }
}

// Walks the names of a key list up to the index-th, which name then points at (null when the
// list is shorter); returns the number of names before it, or all of them. Each zero ends a
// name and an empty name (two zeros in a row) ends the list.
unsigned int WalkKeyList(const std::u16string& list, unsigned int index, const char16_t*& name)
{
    name = nullptr;
    unsigned int count = 0;
    for (size_t at = 0; at < list.size() && list[at] != 0; ++count) {
        if (count == index) {
            name = list.c_str() + at;
            return count;
        }
        size_t end = list.find(u'\0', at);
        at = end == std::u16string::npos ? list.size() : end + 1;
    }
    return count;
}

SString ReadValue(const ConfigData& data, const char16_t* key, const std::u16string& encodedDefault)
{
    std::u16string value = ReadGrowing(data.wideGroup, key, encodedDefault.c_str(), 1024, data.pathName);
    return ImpConfigDecode(value.data(), static_cast<uint32_t>(value.size()));
}

// The default profile in the config directory.
SString DefaultPathName()
{
    std::string name = ImpProfileNameOfModule(platform::ModuleFileName());
    std::string directory = platform::ConfigDirectory();
    if (!directory.empty() && directory.size() < 1024) {
        if (directory.back() != '/')
            directory += '/';
        name.insert(0, directory);
    }
    return MakeString(name);
}

} // namespace

std::string ImpProfileNameOfModule(std::string name)
{
    const bool exe = name.size() >= 4 && strncasecmp(name.c_str() + name.size() - 4, ".exe", 4) == 0;
    if (exe)
        name.resize(name.size() - 3);
    else
        name += '.';
    name += "ini";
    for (size_t i = name.size() - 1; i >= 1; --i) {
        if (name[i] == '/') {
            name.erase(0, i + 1);
            break;
        }
    }
    return name;
}

Config::Config() : Config(DefaultPathName()) { }

Config::Config(const SString& pathName) : m_pData(new ConfigData{pathName, SString(), u"", u"", false}) { }

Config::Config(const Config& config)
    : m_pData(new ConfigData{config.m_pData->pathName, config.m_pData->group, config.m_pData->wideGroup, u"", false})
{
}

Config& Config::operator=(const Config& config)
{
    DeleteGroupBuf();
    m_pData->pathName = config.m_pData->pathName;
    m_pData->group = config.m_pData->group;
    m_pData->wideGroup = config.m_pData->wideGroup;
    return *this;
}

Config::~Config()
{
    delete m_pData;
}

bool Config::operator==(const Config& config) const
{
    return m_pData->pathName == config.m_pData->pathName && m_pData->group == config.m_pData->group;
}

bool Config::operator!=(const Config& config) const
{
    return !(*this == config);
}

SString Config::GetPathName() const
{
    return m_pData->pathName;
}

SString Config::GetGroup() const
{
    return m_pData->group;
}

void Config::SetGroup(const SString& group)
{
    DeleteGroupBuf();
    m_pData->group = group;
    m_pData->wideGroup = Wide(group);
}

SString Config::ReadKey(const SString& key) const
{
    return ReadKey(key, SString());
}

SString Config::ReadKey(const SString& key, const SString& defaultValue) const
{
    // The default goes to the reader encoded, so that decoding gives it back unchanged.
    std::u16string encodedDefault;
    ImpConfigEncode(defaultValue, defaultValue.Len(), encodedDefault);
    return ReadValue(*m_pData, Wide(key).c_str(), encodedDefault);
}

SString Config::ReadKey(unsigned short index) const
{
    const char16_t* name;
    if (!KeyNameAt(index, name))
        return SString();
    return ReadValue(*m_pData, name, u"");
}

unsigned short Config::GetKeyCount() const
{
    const char16_t* name;
    return static_cast<unsigned short>(FillKeyList() ? WalkKeyList(m_pData->keyList, 0xFFFF, name) : 0);
}

SString Config::GetKeyName(unsigned short index) const
{
    const char16_t* name;
    if (!KeyNameAt(index, name))
        return SString();
    SString utf8 = MakeString(platform::Utf16ToUtf8(name));
    if (utf8.MayBeUTF8())
        utf8.SetIsUTF8();
    return utf8;
}

bool Config::WriteKey(const SString& key, const SString& value)
{
    DeleteGroupBuf();
    std::u16string encoded;
    ImpConfigEncode(value, value.Len(), encoded);
    return platform::WritePrivateProfileString(m_pData->wideGroup.c_str(), Wide(key).c_str(), encoded.c_str(),
        Bytes(m_pData->pathName));
}

void Config::DeleteKey(const SString& key)
{
    DeleteGroupBuf();
    platform::WritePrivateProfileString(m_pData->wideGroup.c_str(), Wide(key).c_str(), nullptr, Bytes(m_pData->pathName));
}

void Config::DeleteGroup(const SString& group)
{
    DeleteGroupBuf();
    platform::WritePrivateProfileString(Wide(group).c_str(), nullptr, nullptr, Bytes(m_pData->pathName));
}

void Config::Flush()
{
    platform::WritePrivateProfileString(nullptr, nullptr, nullptr, Bytes(m_pData->pathName));
}

void Config::DeleteGroupBuf()
{
    m_pData->keyList.clear();
    m_pData->hasKeyList = false;
}

bool Config::FillKeyList() const
{
    if (!m_pData->hasKeyList) {
        m_pData->keyList = ReadGrowing(m_pData->wideGroup, nullptr, u"", 4096, m_pData->pathName);
        m_pData->hasKeyList = !m_pData->keyList.empty();
    }
    return m_pData->hasKeyList;
}

bool Config::KeyNameAt(unsigned short index, const char16_t*& name) const
{
    name = nullptr;
    if (FillKeyList())
        WalkKeyList(m_pData->keyList, index, name);
    return name != nullptr;
}

} // namespace vesk
