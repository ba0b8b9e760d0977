// The profile engine and Config against GLib's GKeyFile: reading every key of a 10,000-key
// file (load and look-ups), look-ups in an already loaded file, and 1,000 single-key writes,
// each of which the engine makes durable and GKeyFile saves with g_key_file_save_to_file.
#include "platform/file_watch.hpp"
#include "platform/profile.hpp"

#include <vesk/files.hpp>

#include <benchmark/benchmark.h>
#include <glib.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

constexpr int kSections = 10, kKeysPerSection = 1000;

struct Names {
    std::vector<std::string> sections, keys;
    std::vector<std::u16string> wideSections, wideKeys;
};

const Names& TheNames()
{
    static const Names names = [] {
        Names n;
        for (int s = 0; s < kSections; ++s)
            n.sections.push_back("Section" + std::to_string(s));
        for (int k = 0; k < kKeysPerSection; ++k)
            n.keys.push_back("Key" + std::to_string(k));
        for (const auto& s : n.sections)
            n.wideSections.emplace_back(s.begin(), s.end());
        for (const auto& k : n.keys)
            n.wideKeys.emplace_back(k.begin(), k.end());
        return n;
    }();
    return names;
}

// A scratch folder for the run's files.
const std::string& Folder()
{
    static const std::string folder = [] {
        char name[] = "/tmp/vesk-bench-XXXXXX";
        if (!::mkdtemp(name))
            std::abort();
        return std::string(name);
    }();
    return folder;
}

std::string TenThousandKeys()
{
    std::string text;
    for (int s = 0; s < kSections; ++s) {
        text += "[" + TheNames().sections[s] + "]\n";
        for (int k = 0; k < kKeysPerSection; ++k)
            text += TheNames().keys[k] + "=value of key " + std::to_string(s * kKeysPerSection + k) + "\n";
    }
    return text;
}

// Writes the file anew under a new inode, so that the engine's cache must parse it again
// (once its file watcher has taken the kernel's report, which Settle makes sure of).
void WriteFresh(const std::string& path, const std::string& text)
{
    std::string temp = path + ".new";
    std::FILE* file = std::fopen(temp.c_str(), "wb");
    if (!file || std::fwrite(text.data(), 1, text.size(), file) != text.size() || std::fclose(file) != 0
        || std::rename(temp.c_str(), path.c_str()) != 0)
        std::abort();
    vesk::platform::file_watch::Settle();
}

void ReadAllKeysEngine(const std::string& path)
{
    char16_t buffer[1024];
    const Names& n = TheNames();
    for (int s = 0; s < kSections; ++s) {
        for (int k = 0; k < kKeysPerSection; ++k) {
            benchmark::DoNotOptimize(vesk::platform::GetPrivateProfileString(
                n.wideSections[s].c_str(), n.wideKeys[k].c_str(), u"", buffer, 1024, path));
        }
    }
}

void ReadAllKeysConfig(const std::string& path)
{
    static const std::vector<vesk::SString> keys = [] {
        std::vector<vesk::SString> k;
        for (const std::string& key : TheNames().keys)
            k.emplace_back(key.c_str());
        return k;
    }();
    vesk::Config config{vesk::SString(path.c_str())};
    for (int s = 0; s < kSections; ++s) {
        config.SetGroup(TheNames().sections[s].c_str());
        for (const vesk::SString& key : keys)
            benchmark::DoNotOptimize(config.ReadKey(key));
    }
}

void ReadAllKeysGKeyFile(GKeyFile* keys)
{
    const Names& n = TheNames();
    for (int s = 0; s < kSections; ++s) {
        for (int k = 0; k < kKeysPerSection; ++k) {
            gchar* value = g_key_file_get_string(keys, n.sections[s].c_str(), n.keys[k].c_str(), nullptr);
            benchmark::DoNotOptimize(value);
            g_free(value);
        }
    }
}

// Times readAll on a file written anew before each iteration, which the first read parses.
// The file ends in a comment that differs each time, so that no reader can tell it is the same.
void TimeFreshReads(benchmark::State& state, const char* name, void (*readAll)(const std::string& path))
{
    const std::string path = Folder() + "/" + name, text = TenThousandKeys();
    int round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        WriteFresh(path, text + "; round " + std::to_string(++round) + "\n");
        state.ResumeTiming();
        readAll(path);
    }
}

void LoadAndRead_Engine(benchmark::State& state)
{
    TimeFreshReads(state, "engine-read.ini", ReadAllKeysEngine);
}
BENCHMARK(LoadAndRead_Engine)->Unit(benchmark::kMillisecond);

void LoadAndRead_Config(benchmark::State& state)
{
    TimeFreshReads(state, "config-read.ini", ReadAllKeysConfig);
}
BENCHMARK(LoadAndRead_Config)->Unit(benchmark::kMillisecond);

void LoadAndRead_GKeyFile(benchmark::State& state)
{
    const std::string path = Folder() + "/glib-read.ini";
    WriteFresh(path, TenThousandKeys());
    for (auto _ : state) {
        GKeyFile* keys = g_key_file_new();
        if (!g_key_file_load_from_file(keys, path.c_str(), G_KEY_FILE_NONE, nullptr))
            std::abort();
        ReadAllKeysGKeyFile(keys);
        g_key_file_free(keys);
    }
}
BENCHMARK(LoadAndRead_GKeyFile)->Unit(benchmark::kMillisecond);

void CachedReads_Engine(benchmark::State& state)
{
    const std::string path = Folder() + "/engine-cached.ini";
    WriteFresh(path, TenThousandKeys());
    ReadAllKeysEngine(path);
    for (auto _ : state)
        ReadAllKeysEngine(path);
}
BENCHMARK(CachedReads_Engine)->Unit(benchmark::kMillisecond);

void CachedReads_GKeyFile(benchmark::State& state)
{
    const std::string path = Folder() + "/glib-cached.ini";
    WriteFresh(path, TenThousandKeys());
    GKeyFile* keys = g_key_file_new();
    if (!g_key_file_load_from_file(keys, path.c_str(), G_KEY_FILE_NONE, nullptr))
        std::abort();
    for (auto _ : state)
        ReadAllKeysGKeyFile(keys);
    g_key_file_free(keys);
}
BENCHMARK(CachedReads_GKeyFile)->Unit(benchmark::kMillisecond);

constexpr int kWrites = 1000;

// Times writeAll, which writes kWrites keys to a file that does not exist before.
template <class WriteAll>
void TimeWrites(benchmark::State& state, const char* name, WriteAll writeAll)
{
    const std::string path = Folder() + "/" + name;
    for (auto _ : state) {
        writeAll(path);
        state.PauseTiming();
        ::unlink(path.c_str());
        state.ResumeTiming();
    }
}

void Writes_Engine(benchmark::State& state)
{
    TimeWrites(state, "engine-write.ini", [](const std::string& path) {
        const Names& n = TheNames();
        for (int i = 0; i < kWrites; ++i) {
            std::u16string value = u"value " + n.wideKeys[i];
            if (!vesk::platform::WritePrivateProfileString(n.wideSections[i % kSections].c_str(), n.wideKeys[i].c_str(),
                    value.c_str(), path))
                std::abort();
        }
    });
}
BENCHMARK(Writes_Engine)->Unit(benchmark::kMillisecond)->Iterations(2);

void Writes_Config(benchmark::State& state)
{
    TimeWrites(state, "config-write.ini", [](const std::string& path) {
        const Names& n = TheNames();
        vesk::Config config{vesk::SString(path.c_str())};
        for (int i = 0; i < kWrites; ++i) {
            config.SetGroup(n.sections[i % kSections].c_str());
            if (!config.WriteKey(n.keys[i].c_str(), ("value " + n.keys[i]).c_str()))
                std::abort();
        }
    });
}
BENCHMARK(Writes_Config)->Unit(benchmark::kMillisecond)->Iterations(2);

void Writes_GKeyFile(benchmark::State& state)
{
    TimeWrites(state, "glib-write.ini", [](const std::string& path) {
        const Names& n = TheNames();
        GKeyFile* keys = g_key_file_new();
        for (int i = 0; i < kWrites; ++i) {
            std::string value = "value " + n.keys[i];
            g_key_file_set_string(keys, n.sections[i % kSections].c_str(), n.keys[i].c_str(), value.c_str());
            if (!g_key_file_save_to_file(keys, path.c_str(), nullptr))
                std::abort();
        }
        g_key_file_free(keys);
    });
}
BENCHMARK(Writes_GKeyFile)->Unit(benchmark::kMillisecond)->Iterations(2);

} // namespace
