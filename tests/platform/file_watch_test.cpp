// Cached profile reads follow the file on disk through the process's file watcher: changes by
// other processes and by this one, a lost event queue, a replaced folder, links, and fork.
#include "platform/file_watch.hpp"
#include "platform/profile.hpp"

#include "support/ChildProcess.hpp"
#include "support/FileText.hpp"
#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

using vesk::platform::GetPrivateProfileString;
using vesk::platform::WritePrivateProfileString;
using vesk::test::WriteFileText;
namespace file_watch = vesk::platform::file_watch;

namespace {

std::u16string Read(const std::string& file)
{
    char16_t buffer[64];
    uint32_t length = GetPrivateProfileString(u"s", u"k", u"", buffer, 64, file);
    return std::u16string(buffer, length);
}

// Replaces the file by rename, as editors and writers in other processes do, without
// letting this process's watcher take the change.
void ReplaceUnseen(const std::string& file, const std::string& text)
{
    std::string temp = file + ".new";
    std::ofstream(temp, std::ios::binary) << text;
    ASSERT_EQ(::rename(temp.c_str(), file.c_str()), 0);
}

class FileWatch : public ::testing::Test {
protected:
    vesk::test::TempDir m_dir;
    std::string m_file = m_dir.File("watched.ini");
};

TEST_F(FileWatch, AReplacementByAnotherProcessIsSeenOnceTheWatcherTakesIt)
{
    ASSERT_TRUE(WriteFileText(m_file, "[s]\nk=1\n"));
    ASSERT_EQ(Read(m_file), u"1");
    // The watcher thread takes the report by itself, without Settle.
    ReplaceUnseen(m_file, "[s]\nk=2\n");
    auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (Read(m_file) != u"2" && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_EQ(Read(m_file), u"2");
    // A writer in another process, waited for.
    EXPECT_EQ(vesk::test::RunInChild([&] { return WritePrivateProfileString(u"s", u"k", u"3", m_file) ? 0 : 1; }), 0);
    EXPECT_EQ(Read(m_file), u"3");
}

TEST_F(FileWatch, AnOwnWriteIsSeenAtOnceUnderAnotherSpellingOfThePath)
{
    std::string other = m_dir.Path() + "/./watched.ini";
    ASSERT_TRUE(WriteFileText(m_file, "[s]\nk=1\n"));
    ASSERT_EQ(Read(m_file), u"1");
    ASSERT_EQ(Read(other), u"1");
    auto held = file_watch::Hold(); // the kernel's report of the write stays queued
    EXPECT_TRUE(WritePrivateProfileString(u"s", u"k", u"2", other));
    EXPECT_EQ(Read(m_file), u"2");
}

TEST_F(FileWatch, AChangeLostInAFullEventQueueIsFoundOnDisk)
{
    int limit = 0;
    std::ifstream("/proc/sys/fs/inotify/max_queued_events") >> limit;
    if (limit <= 0 || limit > 100000)
        GTEST_SKIP() << "event queue limit " << limit;
    ASSERT_TRUE(WriteFileText(m_file, "[s]\nk=1\n"));
    ASSERT_EQ(Read(m_file), u"1");
    {
        auto held = file_watch::Hold();
        // Fills the queue: each rename is reported twice (moved from, moved to).
        const std::string names[2] = {m_dir.File("a"), m_dir.File("b")};
        std::ofstream{names[0]};
        for (int i = 0; i <= limit / 2; ++i)
            ASSERT_EQ(::rename(names[i % 2].c_str(), names[1 - i % 2].c_str()), 0);
        ReplaceUnseen(m_file, "[s]\nk=2\n"); // its report is dropped
    }
    file_watch::Settle();
    EXPECT_EQ(Read(m_file), u"2");
}

TEST_F(FileWatch, AFolderMovedAwayAndMadeAgainIsWatchedAgain)
{
    std::string folder = m_dir.File("sub"), file = folder + "/a.ini";
    ASSERT_EQ(::mkdir(folder.c_str(), 0700), 0);
    ASSERT_TRUE(WriteFileText(file, "[s]\nk=1\n"));
    ASSERT_EQ(Read(file), u"1");
    // Nothing is reported of a.ini itself: it moves with its folder.
    ASSERT_EQ(::rename(folder.c_str(), m_dir.File("old").c_str()), 0);
    ASSERT_EQ(::mkdir(folder.c_str(), 0700), 0);
    ASSERT_TRUE(WriteFileText(file, "[s]\nk=2\n"));
    EXPECT_EQ(Read(file), u"2");
    ASSERT_TRUE(WriteFileText(file, "[s]\nk=3\n"));
    EXPECT_EQ(Read(file), u"3");
}

TEST_F(FileWatch, ALinkIsCheckedOnEveryRead)
{
    std::string folder = m_dir.File("elsewhere"), target = folder + "/target.ini";
    ASSERT_EQ(::mkdir(folder.c_str(), 0700), 0);
    ASSERT_TRUE(WriteFileText(target, "[s]\nk=1\n"));
    ASSERT_EQ(::symlink(target.c_str(), m_file.c_str()), 0);
    ASSERT_EQ(Read(m_file), u"1");
    ASSERT_TRUE(WriteFileText(target, "[s]\nk=22\n"));
    EXPECT_EQ(Read(m_file), u"22");
}

TEST_F(FileWatch, AForkedChildChecksItsFilesItself)
{
    ASSERT_TRUE(WriteFileText(m_file, "[s]\nk=1\n"));
    ASSERT_EQ(Read(m_file), u"1");
    EXPECT_EQ(vesk::test::RunInChild([&] {
        // No watcher thread runs in the child: its reads must look at the file.
        ReplaceUnseen(m_file, "[s]\nk=2\n");
        return Read(m_file) == u"2" ? 0 : 1;
    }), 0);
}

} // namespace
