#pragma once

#include <atomic>
#include <cstdint>
#include <thread>

namespace vesk {

// The per-object lock of the string classes: a 32-bit word, 0 free and 1 held, taken by an
// atomic exchange; a thread that finds it held yields its time slice and retries once it
// reads 0 again.
[[gnu::noinline]] inline void SpinLockContended(std::atomic<uint32_t>& word) noexcept
{
    do {
        do
            std::this_thread::yield();
        while (word.load(std::memory_order_relaxed) != 0);
    } while (word.exchange(1, std::memory_order_acquire) != 0);
}

// The free lock costs one exchange; the waiting loop stays out of line so that callers'
// fast paths need no registers saved for it.
inline void SpinLockWord(std::atomic<uint32_t>& word) noexcept
{
    if (word.exchange(1, std::memory_order_acquire) != 0) [[unlikely]]
        SpinLockContended(word);
}

inline void SpinUnlockWord(std::atomic<uint32_t>& word) noexcept
{
    word.store(0, std::memory_order_release);
}

// Holds a lock word for its lifetime.
class SpinGuard {
public:
    explicit SpinGuard(std::atomic<uint32_t>& word) noexcept : m_rWord(word) { SpinLockWord(word); }
    ~SpinGuard() { SpinUnlockWord(m_rWord); }
    SpinGuard(const SpinGuard&) = delete;
    SpinGuard& operator=(const SpinGuard&) = delete;

private:
    std::atomic<uint32_t>& m_rWord;
};

} // namespace vesk
