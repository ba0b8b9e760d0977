#pragma once


#include <cstdint>
#include <vector>

#include <sched.h>

namespace vesk::platform {

// What the high-resolution timer test needs from the machine, so that the walk over the
// processors can run against the real machine or a scripted one.
class CounterProbe
{
public:
    virtual ~CounterProbe() = default;
    // Whether the machine has a high-resolution counter at all.
    virtual bool HasCounter() = 0;
    // Number of processors of the machine.
    virtual unsigned ProcessorCount() = 0;
    // Saves the current affinity and lists its processor numbers in ascending order; false
    // when the affinity cannot be read.
    virtual bool SaveAffinity(std::vector<unsigned>& processors) = 0;
    // Runs the caller on processor `processor` alone.
    virtual void PinTo(unsigned processor) = 0;
    // Puts back the affinity saved by SaveAffinity.
    virtual void RestoreAffinity() = 0;
    // Gives up the processor so that the pinning takes effect.
    virtual void Yield() = 0;
    // The counter's current reading.
    virtual int64_t ReadCounter() = 0;
};

// Whether the counter is reliable: it must never step backward while the caller moves from
// processor to processor, upward through the affinity and back down.
bool TestHiResTimer(CounterProbe& probe);

// The probe of this machine: CLOCK_MONOTONIC, pinning the calling thread with
// sched_setaffinity (Linux affinity belongs to threads; the reading thread is the one to move).
class MachineCounterProbe final : public CounterProbe
{
public:
    bool HasCounter() override;
    unsigned ProcessorCount() override;
    bool SaveAffinity(std::vector<unsigned>& processors) override;
    void PinTo(unsigned processor) override;
    void RestoreAffinity() override;
    void Yield() override;
    int64_t ReadCounter() override;

private:
    cpu_set_t m_SavedMask{};
    bool m_bSaved = false;
};

} // namespace vesk::platform
