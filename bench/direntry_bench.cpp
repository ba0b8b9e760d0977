// DirEntry against std::filesystem::path on the same work: splitting paths into directory,
// base name and extension, and putting the full text back together.
#include <vesk/files.hpp>

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

using vesk::DirEntry;
using vesk::SString;

namespace {

const std::vector<std::string>& Paths()
{
    static const std::vector<std::string> paths = {
        "/home/user/projects/vesk/src/env/DirEntry.cpp",
        "/usr/share/icons/hicolor/48x48/apps/org.example.Viewer.png",
        "relative/dir/archive.tar.gz",
        "/tmp/x",
        "/var/log/journal/0123456789abcdef/system@0005f1a2b3c4d5e6-0123456789abcdef.journal~",
    };
    return paths;
}

void SplitDirEntry(benchmark::State& state)
{
    std::vector<SString> texts;
    for (const std::string& p : Paths())
        texts.emplace_back(p.c_str());
    for (auto _ : state)
        for (const SString& text : texts) {
            const DirEntry e(text);
            benchmark::DoNotOptimize(e.GetBase());
            benchmark::DoNotOptimize(e.GetExtension());
        }
}

void SplitFilesystemPath(benchmark::State& state)
{
    for (auto _ : state)
        for (const std::string& text : Paths()) {
            const std::filesystem::path p(text);
            benchmark::DoNotOptimize(p.parent_path());
            benchmark::DoNotOptimize(p.stem());
            benchmark::DoNotOptimize(p.extension());
        }
}

void FullTextDirEntry(benchmark::State& state)
{
    std::vector<DirEntry> entries;
    for (const std::string& p : Paths())
        entries.emplace_back(SString(p.c_str()));
    for (auto _ : state)
        for (const DirEntry& e : entries)
            benchmark::DoNotOptimize(e.GetFull());
}

void FullTextFilesystemPath(benchmark::State& state)
{
    std::vector<std::filesystem::path> paths(Paths().begin(), Paths().end());
    for (auto _ : state)
        for (const std::filesystem::path& p : paths)
            benchmark::DoNotOptimize(p.parent_path() / p.filename());
}

} // namespace

BENCHMARK(SplitDirEntry);
BENCHMARK(SplitFilesystemPath);
BENCHMARK(FullTextDirEntry);
BENCHMARK(FullTextFilesystemPath);
