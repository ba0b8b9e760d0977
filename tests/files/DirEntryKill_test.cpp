#include <vesk/files.hpp>

#include "support/ChildProcess.hpp"
#include "support/FileSystems.hpp"
#include "support/FileText.hpp"
#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <unistd.h>

using namespace vesk;
using vesk::test::PathEntry;
using vesk::test::ReadFileText;
using vesk::test::TempDir;
using vesk::test::WriteFileText;

namespace {

const std::string OLD_CONTENT(1 << 20, 'A');
const std::string NEW_CONTENT(4 << 20, 'B');

// Runs `operation` (which brings `source` to `dir`/target) in child processes killed at random
// points from its start to a little past its usual end. After every kill the target must hold
// the old or the new content in full, and the source must be whole while the target is old.
void KillAtRandomPoints(const TempDir& dir, const std::string& source, const std::function<void()>& operation)
{
    const std::string target = dir.File("target");
    const auto reset = [&] {
        // Temporaries of killed copies stay behind; they must not fill the disk.
        for (const auto& file : std::filesystem::directory_iterator(dir.Path()))
            if (file.path().filename().string().rfind(".target.", 0) == 0)
                std::filesystem::remove(file.path());
        ASSERT_TRUE(WriteFileText(source, NEW_CONTENT) && WriteFileText(target, OLD_CONTENT));
    };
    reset();
    const auto start = std::chrono::steady_clock::now();
    operation();
    const auto usual = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
    std::mt19937 random(12345);
    std::uniform_int_distribution<long> delay(0, std::max(usual.count(), 1000L) * 3 / 2);
    for (int round = 0; round < 40 && !::testing::Test::HasFailure(); ++round) {
        reset();
        const pid_t child = vesk::test::StartChild([&] {
            operation();
            return 0;
        });
        ASSERT_GE(child, 0);
        usleep(static_cast<useconds_t>(delay(random)));
        kill(child, SIGKILL);
        vesk::test::WaitChild(child);
        const std::string content = ReadFileText(target);
        ASSERT_TRUE(content == OLD_CONTENT || content == NEW_CONTENT) << "torn target of " << content.size() << " bytes";
        if (content == OLD_CONTENT) {
            EXPECT_EQ(ReadFileText(source), NEW_CONTENT);
        }
    }
}

TEST(DirEntryKill, KilledCopyLeavesOldOrNewTarget)
{
    TempDir dir;
    KillAtRandomPoints(dir, dir.File("source"), [&] { PathEntry(dir.File("source")).CopyTo(PathEntry(dir.File("target"))); });
}

TEST(DirEntryKill, KilledMoveAcrossFileSystemsLosesNothing)
{
    TempDir dir;
    const std::string other = vesk::test::OtherFileSystem(dir);
    if (other.empty())
        GTEST_SKIP() << "no second writable file system at /dev/shm";
    const DirEntry source = PathEntry(other + "/vesk-kill.bin").TempName();
    ASSERT_TRUE(source.IsValid());
    KillAtRandomPoints(dir, std::string(source.GetFull()), [&] { source.MoveTo(PathEntry(dir.File("target"))); });
    source.Kill();
}

} // namespace
