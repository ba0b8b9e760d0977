#pragma once

// Notice of changes to files on disk without a system call per check. One inotify instance
// per process watches the folders of the files asked for (a folder watch also sees a file
// replaced by rename), and a thread takes the events as the kernel reports them and counts
// each watched file's changes. A reader compares the count and the epoch with the values it
// saw when it last checked the file on disk; while both are unchanged, the file is as it was.

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>

namespace vesk::platform {

// The change count of one watched file; entries live as long as the process.
struct FileWatch {
    std::atomic<uint64_t> changes{0};
};

namespace file_watch {

// Watches the folder of path (the file need not exist) and returns the file's entry, read
// its count before reading the file. Null when changes cannot be noticed this way: no
// inotify, a missing folder, a symbolic link at path (its target may change elsewhere), or a
// child process after fork; the caller must then check the file itself on every read.
FileWatch* Watch(const std::string& path);

// Advances when events may have been lost (the kernel's queue overflowed) or the watcher has
// stopped: every file must then be checked on disk once more.
uint64_t Epoch();

// Counts a change this process made itself, so that every reader sees it at once instead of
// when the kernel's report arrives.
void Touch(FileWatch& watch);

// Takes every event the kernel has reported so far, as the watcher thread does a moment
// later; for a reader that knows that another writer has just finished.
void Settle();

// Holds the watcher, so that events stay queued in the kernel until the lock is released
// (for tests of a full queue); Settle must not be called meanwhile.
std::unique_lock<std::mutex> Hold();

} // namespace file_watch

} // namespace vesk::platform
