// The order of the system calls that make a file replacement durable, seen through fsync and
// rename interposed in this test program: the library (linked statically) calls these.
#include "platform/atomic_file.hpp"

#include "support/FileText.hpp"
#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <vector>

#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::mutex g_logMutex;
std::vector<std::string>* g_log = nullptr; // recording while a SyscallLog exists

void Record(std::string event)
{
    std::lock_guard lock(g_logMutex);
    if (g_log)
        g_log->push_back(std::move(event));
}

// The path an open descriptor refers to.
std::string PathOf(int fd)
{
    char path[PATH_MAX];
    const ssize_t n = ::readlink(("/proc/self/fd/" + std::to_string(fd)).c_str(), path, sizeof path);
    return n > 0 ? std::string(path, size_t(n)) : "<unknown>";
}

class SyscallLog {
public:
    SyscallLog()
    {
        std::lock_guard lock(g_logMutex);
        g_log = &m_events;
    }
    ~SyscallLog()
    {
        std::lock_guard lock(g_logMutex);
        g_log = nullptr;
    }
    std::vector<std::string> Events()
    {
        std::lock_guard lock(g_logMutex);
        return m_events;
    }

private:
    std::vector<std::string> m_events;
};

std::string RealPath(const std::string& path)
{
    char resolved[PATH_MAX];
    return ::realpath(path.c_str(), resolved) ? resolved : path;
}

} // namespace

extern "C" int fsync(int fd)
{
    Record("fsync " + PathOf(fd));
    return static_cast<int>(::syscall(SYS_fsync, fd));
}

extern "C" int rename(const char* from, const char* to) noexcept
{
    Record(std::string("rename ") + from + " " + to);
    return static_cast<int>(::syscall(SYS_rename, from, to));
}

namespace vesk::platform {
namespace {

TEST(AtomicFile, NewContentIsSyncedBeforeTheRenameAndTheFolderAfterIt)
{
    test::TempDir dir;
    const std::string file = dir.File("a.ini");
    ASSERT_TRUE(test::WriteFileText(file, "old"));
    const std::string temp = dir.File(".a.ini.vesk-tmp");
    const std::string real = RealPath(dir.Path());
    FileStamp stamp;
    {
        SyscallLog log;
        ASSERT_TRUE(ReplaceFile(file, [](const auto&) { return std::optional<std::string>("new"); }, stamp));
        EXPECT_EQ(log.Events(), (std::vector<std::string>{
            "fsync " + real + "/.a.ini.vesk-tmp", "rename " + temp + " " + file, "fsync " + real}));
    }
    EXPECT_EQ(test::ReadFileText(file), "new");
    {
        SyscallLog log;
        ASSERT_TRUE(SyncFile(file));
        EXPECT_EQ(log.Events(), (std::vector<std::string>{"fsync " + real + "/a.ini", "fsync " + real}));
    }
}

} // namespace
} // namespace vesk::platform
