// The settings store's names of saved layouts and the encoding of their values.
#include "docking/frame/DockingRegistry_p.hpp"

#include "common/LittleEndian.hpp"
#include "platform/settings.hpp"
#include "platform/user_paths.hpp"

#include <vesk/docking/TamDockablePane.hpp>
#include <vesk/docking/TamDockingManager.hpp>

#include <array>
#include <cstdio>
#include <mutex>

namespace vesk {

namespace {

std::mutex& BaseLock()
{
    static std::mutex lock;
    return lock;
}

UString& BaseName()
{
    static UString base;
    return base;
}

std::u16string Ascii(const std::string& text)
{
    return std::u16string(text.begin(), text.end());
}

std::u16string Text(const UString& s)
{
    return std::u16string(static_cast<const char16_t*>(s), s.Len());
}

} // namespace

void TamDockingManager::SetRegistryBase(const UString& base)
{
    std::lock_guard<std::mutex> guard(BaseLock());
    BaseName() = base;
}

UString TamDockingManager::GetRegistryBase()
{
    std::lock_guard<std::mutex> guard(BaseLock());
    if (BaseName().Len() == 0) {
        const std::string exe = platform::ModuleFileName();
        const std::string program = exe.substr(exe.find_last_of('/') + 1);
        UString name;
        name.SetUTF8(program.c_str(), static_cast<unsigned int>(program.size()));
        UString base("Software\\Vesk\\");
        base += name.Len() ? name : UString("Application");
        BaseName() = base;
    }
    return BaseName();
}

std::u16string DockingSectionPath(const UString& profile, const char* kind, int32_t index, uint32_t id)
{
    std::u16string path = Text(TamDockingManager::GetRegistryBase()) + u"\\DockingManagers\\" + Text(profile) +
                          Ascii(kind) + u"-" + Ascii(std::to_string(index));
    if (id != PANE_DEFAULT_STATE_ID) {
        char hex[16];
        std::snprintf(hex, sizeof hex, "%x", id);
        path += Ascii(hex);
    }
    return path;
}

bool WriteRectValue(const std::u16string& path, const char16_t* name, const CRectangle& rect)
{
    std::array<uint8_t, 16> bytes{};
    const int32_t fields[4] = {rect.Left(), rect.Top(), rect.Right(), rect.Bottom()};
    for (size_t i = 0; i < 4; ++i)
        StoreLe32(bytes.data() + 4 * i, static_cast<uint32_t>(fields[i]));
    return platform::settings::WriteBinary(path, name, bytes);
}

bool ReadRectValue(const std::u16string& path, const char16_t* name, CRectangle& rect)
{
    std::vector<uint8_t> bytes;
    if (!platform::settings::ReadBinary(path, name, bytes) || bytes.size() != 16)
        return false;
    const auto field = [&](size_t i) { return static_cast<int32_t>(LoadLe32(bytes.data() + 4 * i)); };
    rect = CRectangle(field(0), field(1), field(2), field(3));
    return true;
}

bool WriteIntValue(const std::u16string& path, const char16_t* name, int32_t value)
{
    return platform::settings::WriteDword(path, name, static_cast<uint32_t>(value));
}

bool ReadIntValue(const std::u16string& path, const char16_t* name, int32_t& value)
{
    uint32_t v = 0;
    if (!platform::settings::ReadDword(path, name, v))
        return false;
    value = static_cast<int32_t>(v);
    return true;
}

} // namespace vesk
