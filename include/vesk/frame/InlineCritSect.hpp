#pragma once

#include <vesk/export.hpp>

#include <mutex>

namespace vesk {

// The library's lock for the few places entered from several threads. It is re-entrant:
// the thread that holds it may lock it again and must unlock it as often.
class VESK_API InlineCritSect
{
public:
    InlineCritSect() = default;
    InlineCritSect(const InlineCritSect&) = delete;
    InlineCritSect& operator=(const InlineCritSect&) = delete;

    // Waits until the lock is free or already held by this thread, then takes it.
    void Lock() { m_Mutex.lock(); }
    // Gives up one level of the lock.
    void Unlock() { m_Mutex.unlock(); }

private:
    std::recursive_mutex m_Mutex;
};

} // namespace vesk
