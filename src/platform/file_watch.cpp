#include "platform/file_watch.hpp"

#include "platform/filesys_p.hpp"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <deque>
#include <system_error>
#include <thread>
#include <unordered_map>

#include <poll.h>
#include <pthread.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vesk::platform::file_watch {

namespace {

// Everything that can make a file in the folder read differently, and the folder's own end.
constexpr uint32_t kMask = IN_MODIFY | IN_CLOSE_WRITE | IN_ATTRIB | IN_CREATE | IN_DELETE | IN_MOVED_FROM
    | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

std::atomic<uint64_t> g_epoch{0};
// Set when the instance fails, and in a child process after fork (the instance is shared with
// the parent and no thread of the child reads it): readers then check their files themselves.
std::atomic<bool> g_stopped{false};

void StopWatching()
{
    g_stopped.store(true);
    g_epoch.fetch_add(1);
}

class Watcher {
public:
    // The process's watcher, started on first use; null when inotify is not available.
    static Watcher* Instance();
    // The watcher if it has been started.
    static Watcher* Started() { return s_started.load(std::memory_order_acquire); }

    FileWatch* Watch(const std::string& folder, std::string_view name);
    // Reads and applies every queued event.
    void Drain();

    // Held by whoever takes events from the kernel; Hold takes it to keep them queued.
    std::mutex m_drainMutex;

private:
    explicit Watcher(int fd) : m_fd(fd) { }
    void Run();
    void Apply(const char* events, size_t size);

    struct Folder {
        std::unordered_map<std::string, FileWatch*> files;
    };

    static inline std::atomic<Watcher*> s_started{nullptr};
    const int m_fd;
    std::mutex m_mutex; // guards the tables below
    std::unordered_map<int, Folder> m_folders; // by watch descriptor
    std::deque<FileWatch> m_entries; // never shrinks: readers keep pointers to them
};

Watcher* Watcher::Instance()
{
    // Never destroyed: the thread runs until the process ends.
    static Watcher* const watcher = []() -> Watcher* {
        int fd = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
        if (fd < 0)
            return nullptr;
        auto* created = new Watcher(fd);
        // The thread takes no signals: they stay with the application's threads.
        sigset_t all, old;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &old);
        bool started = true;
        try {
            std::thread([created] { created->Run(); }).detach();
        } catch (const std::system_error&) {
            started = false;
        }
        ::pthread_sigmask(SIG_SETMASK, &old, nullptr);
        if (!started) {
            ::close(fd);
            delete created;
            return nullptr;
        }
        ::pthread_atfork(nullptr, nullptr, StopWatching);
        s_started.store(created, std::memory_order_release);
        return created;
    }();
    return watcher;
}

void Watcher::Run()
{
    for (;;) {
        pollfd ready{m_fd, POLLIN, 0};
        if (::poll(&ready, 1, -1) < 0 && errno != EINTR)
            break;
        std::lock_guard lock(m_drainMutex);
        Drain();
        if (g_stopped.load())
            return;
    }
    StopWatching();
}

void Watcher::Drain()
{
    std::lock_guard lock(m_mutex);
    alignas(inotify_event) char buffer[16384];
    for (;;) {
        ssize_t n = ::read(m_fd, buffer, sizeof buffer);
        if (n > 0) {
            Apply(buffer, static_cast<size_t>(n));
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n == 0 || errno != EAGAIN)
            StopWatching(); // the instance is unusable: every reader checks its files from now on
        return;
    }
}

void Watcher::Apply(const char* events, size_t size)
{
    for (size_t at = 0; at + sizeof(inotify_event) <= size;) {
        inotify_event event;
        std::memcpy(&event, events + at, sizeof event);
        const char* name = events + at + sizeof event;
        at += sizeof event + event.len;
        if (event.mask & IN_Q_OVERFLOW) {
            // Events were dropped: any file may have changed unseen.
            g_epoch.fetch_add(1, std::memory_order_release);
            continue;
        }
        auto folder = m_folders.find(event.wd);
        if (folder == m_folders.end())
            continue;
        if (event.mask & (IN_IGNORED | IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT)) {
            // The folder's watch is gone, or follows a folder that the path no longer names:
            // each file is checked and watched anew on its next read.
            for (auto& [file, watch] : folder->second.files)
                watch->changes.fetch_add(1, std::memory_order_release);
            if (!(event.mask & IN_IGNORED))
                ::inotify_rm_watch(m_fd, event.wd);
            m_folders.erase(folder);
            continue;
        }
        if (event.len == 0)
            continue;
        auto file = folder->second.files.find(std::string(name, ::strnlen(name, event.len)));
        if (file != folder->second.files.end())
            file->second->changes.fetch_add(1, std::memory_order_release);
    }
}

FileWatch* Watcher::Watch(const std::string& folder, std::string_view name)
{
    // Under the lock, so that no event for the new watch is applied before its entry exists.
    std::lock_guard lock(m_mutex);
    if (g_stopped.load())
        return nullptr;
    int wd = ::inotify_add_watch(m_fd, folder.c_str(), kMask);
    if (wd < 0)
        return nullptr;
    FileWatch*& entry = m_folders[wd].files[std::string(name)];
    if (!entry)
        entry = &m_entries.emplace_back();
    return entry;
}

} // namespace

FileWatch* Watch(const std::string& path)
{
    if (g_stopped.load(std::memory_order_acquire))
        return nullptr;
    struct stat st;
    if (::lstat(path.c_str(), &st) == 0 && S_ISLNK(st.st_mode))
        return nullptr;
    Watcher* watcher = Watcher::Instance();
    return watcher ? watcher->Watch(DirectoryOf(path), LastName(path)) : nullptr;
}

uint64_t Epoch()
{
    return g_epoch.load(std::memory_order_acquire);
}

void Touch(FileWatch& watch)
{
    watch.changes.fetch_add(1, std::memory_order_release);
}

void Settle()
{
    Watcher* watcher = Watcher::Started();
    if (!watcher || g_stopped.load())
        return;
    std::lock_guard lock(watcher->m_drainMutex);
    if (!g_stopped.load())
        watcher->Drain();
}

std::unique_lock<std::mutex> Hold()
{
    Watcher* watcher = Watcher::Instance();
    return watcher ? std::unique_lock(watcher->m_drainMutex) : std::unique_lock<std::mutex>();
}

} // namespace vesk::platform::file_watch
