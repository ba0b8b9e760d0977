#include "Settings.hpp"

#include <vesk/files.hpp>

#include <charconv>

using namespace vesk;

namespace demo {

namespace {

Config Open(const std::string& path)
{
    Config config = path.empty() ? Config() : Config(SString(path.c_str()));
    config.SetGroup("Demo");
    return config;
}

// A side of the frame; `fallback` for text that is not a number from 200 to 8000.
int32_t ReadSide(const Config& config, const char* key, int32_t fallback, std::vector<std::string>& problems)
{
    const std::string text(static_cast<const char*>(config.ReadKey(key)));
    if (text.empty())
        return fallback;
    int32_t value = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec != std::errc() || end != text.data() + text.size() || value < 200 || value > 8000) {
        problems.push_back(std::string("profile: ") + key + " \"" + text + "\" is not a usable size, using " +
                           std::to_string(fallback));
        return fallback;
    }
    return value;
}

} // namespace

Settings LoadSettings(const std::string& path, std::vector<std::string>& problems)
{
    const Config config = Open(path);
    Settings settings;
    settings.folder = static_cast<const char*>(config.ReadKey("LastFolder"));
    // One statement each, so that the problems are reported in the file's order.
    const int32_t width = ReadSide(config, "Width", settings.size.Width(), problems);
    const int32_t height = ReadSide(config, "Height", settings.size.Height(), problems);
    settings.size = TamSize(width, height);
    settings.layoutSaved = std::string(static_cast<const char*>(config.ReadKey("LayoutSaved"))) == "1";
    return settings;
}

bool SaveSettings(const std::string& path, const Settings& settings)
{
    Config config = Open(path);
    const bool ok = config.WriteKey("LastFolder", SString(settings.folder.c_str())) &&
                    config.WriteKey("Width", SString(std::to_string(settings.size.Width()).c_str())) &&
                    config.WriteKey("Height", SString(std::to_string(settings.size.Height()).c_str())) &&
                    config.WriteKey("LayoutSaved", settings.layoutSaved ? "1" : "0");
    config.Flush();
    return ok;
}

} // namespace demo
