#include <vesk/files.hpp>

#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace vesk;
using vesk::test::ReadFile;
using vesk::test::TempDir;
using vesk::test::WriteFile;

namespace {

const std::string OLD_CONTENT(1 << 20, 'A');
const std::string NEW_CONTENT(4 << 20, 'B');

DirEntry Entry(const std::string& path)
{
    return DirEntry(SString(path.c_str()));
}

// Writes `content` to `path` and removes the temporaries that killed copies left beside it.
void Reset(const TempDir& dir, const std::string& path, const std::string& content)
{
    for (const auto& file : std::filesystem::directory_iterator(dir.Path()))
        if (file.path().filename().string().rfind(".target.", 0) == 0)
            std::filesystem::remove(file.path());
    ASSERT_TRUE(WriteFile(path, content));
}

// Runs `operation` in a child process and kills the child after `delay` (it may be done).
void RunAndKill(const std::function<void()>& operation, std::chrono::microseconds delay)
{
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        operation();
        _exit(0);
    }
    usleep(static_cast<useconds_t>(delay.count()));
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
}

// How long `operation` takes here, at least a millisecond.
std::chrono::microseconds Measure(const std::function<void()>& operation)
{
    const auto start = std::chrono::steady_clock::now();
    operation();
    const auto spent = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
    return std::max(spent, std::chrono::microseconds(1000));
}

// Kills `operation` at random points from its start to a little past its usual end; `check`
// looks at the files after every kill, `reset` puts them back in place.
void KillAtRandomPoints(const std::function<void()>& operation, const std::function<void()>& reset,
                        const std::function<void()>& check)
{
    reset();
    const std::chrono::microseconds usual = Measure(operation);
    std::mt19937 random(12345);
    std::uniform_int_distribution<long> delay(0, usual.count() * 3 / 2);
    for (int round = 0; round < 40 && !::testing::Test::HasFailure(); ++round) {
        reset();
        RunAndKill(operation, std::chrono::microseconds(delay(random)));
        check();
    }
}

TEST(DirEntryKill, KilledCopyLeavesOldOrNewTarget)
{
    TempDir dir;
    const DirEntry source = Entry(dir / "source");
    const DirEntry target = Entry(dir / "target");
    ASSERT_TRUE(WriteFile(dir / "source", NEW_CONTENT));
    KillAtRandomPoints([&] { source.CopyTo(target); }, [&] { Reset(dir, dir / "target", OLD_CONTENT); },
                       [&] {
                           const std::string content = ReadFile(dir / "target");
                           EXPECT_TRUE(content == OLD_CONTENT || content == NEW_CONTENT)
                               << "torn target of " << content.size() << " bytes";
                       });
}

TEST(DirEntryKill, KilledMoveAcrossFileSystemsLosesNothing)
{
    TempDir dir;
    struct stat here {}, shm {};
    if (stat(dir.Path().c_str(), &here) != 0 || stat("/dev/shm", &shm) != 0 || here.st_dev == shm.st_dev
        || access("/dev/shm", W_OK) != 0)
        GTEST_SKIP() << "no second writable file system at /dev/shm";
    const DirEntry source = DirEntry("/dev/shm/vesk-kill.bin").TempName();
    ASSERT_TRUE(source.IsValid());
    const std::string sourcePath(source.GetFull());
    const DirEntry target = Entry(dir / "target");
    KillAtRandomPoints([&] { source.MoveTo(target); },
                       [&] {
                           ASSERT_TRUE(WriteFile(sourcePath, NEW_CONTENT));
                           Reset(dir, dir / "target", OLD_CONTENT);
                       },
                       [&] {
                           const std::string content = ReadFile(dir / "target");
                           ASSERT_TRUE(content == OLD_CONTENT || content == NEW_CONTENT)
                               << "torn target of " << content.size() << " bytes";
                           // Until the target is complete the source stays whole.
                           if (content == OLD_CONTENT) {
                               EXPECT_EQ(ReadFile(sourcePath), NEW_CONTENT);
                           }
                       });
    source.Kill();
}

} // namespace
