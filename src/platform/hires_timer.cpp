#include "platform/hires_timer.hpp"

#include <time.h>
#include <unistd.h>

namespace vesk::platform {

namespace {

// Moves over `processors` in the given order; false at the first backward step.
template <typename Iterator>
bool WalkProcessors(CounterProbe& probe, Iterator first, Iterator last, int64_t& previous)
{
    for (; first != last; ++first) {
        probe.PinTo(*first);
        probe.Yield();
        int64_t now = probe.ReadCounter();
        if (static_cast<int64_t>(static_cast<uint64_t>(now) - static_cast<uint64_t>(previous)) < 0)
            return false;
        previous = now;
    }
    return true;
}

} // namespace

bool TestHiResTimer(CounterProbe& probe)
{
    if (!probe.HasCounter())
        return false;
    if (probe.ProcessorCount() < 2)
        return true;
    std::vector<unsigned> processors;
    if (!probe.SaveAffinity(processors))
        return true;
    int64_t previous = probe.ReadCounter();
    bool steady = WalkProcessors(probe, processors.begin(), processors.end(), previous) &&
                  WalkProcessors(probe, processors.rbegin(), processors.rend(), previous);
    probe.RestoreAffinity();
    return steady;
}

bool MachineCounterProbe::HasCounter()
{
    timespec resolution{};
    return clock_getres(CLOCK_MONOTONIC, &resolution) == 0;
}

unsigned MachineCounterProbe::ProcessorCount()
{
    long count = sysconf(_SC_NPROCESSORS_ONLN);
    return count > 0 ? static_cast<unsigned>(count) : 1;
}

bool MachineCounterProbe::SaveAffinity(std::vector<unsigned>& processors)
{
    CPU_ZERO(&m_SavedMask);
    m_bSaved = sched_getaffinity(0, sizeof(cpu_set_t), &m_SavedMask) == 0;
    processors.clear();
    for (unsigned cpu = 0; m_bSaved && cpu < CPU_SETSIZE; ++cpu)
        if (CPU_ISSET(cpu, &m_SavedMask))
            processors.push_back(cpu);
    return m_bSaved;
}

void MachineCounterProbe::PinTo(unsigned processor)
{
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(processor, &one);
    // A processor that refuses the pinning is simply read where the thread runs.
    sched_setaffinity(0, sizeof(cpu_set_t), &one);
}

void MachineCounterProbe::RestoreAffinity()
{
    if (m_bSaved)
        sched_setaffinity(0, sizeof(cpu_set_t), &m_SavedMask);
}

void MachineCounterProbe::Yield()
{
    sched_yield();
}

int64_t MachineCounterProbe::ReadCounter()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<int64_t>(now.tv_sec) * 1000000000 + now.tv_nsec;
}

} // namespace vesk::platform
