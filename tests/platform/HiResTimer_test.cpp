#include "platform/hires_timer.hpp"
#include "platform/sysinfo.hpp"

#include <gtest/gtest.h>

#include <sched.h>

#include <map>
#include <string>

namespace vesk::platform {
namespace {

// A machine whose counter runs ahead or behind on some processors; logs the pinning.
struct ScriptedProbe : CounterProbe
{
    bool m_bHasCounter = true;
    unsigned m_nProcessors = 4;
    bool m_bAffinityReadable = true;
    std::map<unsigned, int64_t> m_Skew;
    std::string m_Log;
    unsigned m_nCurrent = 0;
    int64_t m_nTicks = 1000;

    bool HasCounter() override { return m_bHasCounter; }
    unsigned ProcessorCount() override { return m_nProcessors; }
    bool SaveAffinity(std::vector<unsigned>& processors) override
    {
        processors = {0, 1, 3};
        return m_bAffinityReadable;
    }
    void PinTo(unsigned processor) override { m_Log += std::to_string(m_nCurrent = processor); }
    void RestoreAffinity() override { m_Log += "R"; }
    void Yield() override {}
    int64_t ReadCounter() override { return (m_nTicks += 10) + m_Skew[m_nCurrent]; }
};

std::string Walk(ScriptedProbe probe, bool expected)
{
    EXPECT_EQ(TestHiResTimer(probe), expected);
    return probe.m_Log;
}

TEST(HiResTimer, WalksTheAffinityUpAndDown)
{
    ScriptedProbe probe;
    EXPECT_EQ(Walk(probe, true), "013310R");
    probe.m_Skew[1] = -10; // equal to the previous reading: no backward step
    EXPECT_EQ(Walk(probe, true), "013310R");
    probe.m_Skew[1] = -100; // behind processor 0 on the way up
    EXPECT_EQ(Walk(probe, false), "01R");
    probe.m_Skew = {{3, 25}}; // ahead of processor 1, seen on the way down
    EXPECT_EQ(Walk(probe, false), "01331R");

    ScriptedProbe single;
    single.m_nProcessors = 1;
    single.m_Skew[0] = -1000000;
    EXPECT_EQ(Walk(single, true), "");
    ScriptedProbe unreadable;
    unreadable.m_bAffinityReadable = false;
    EXPECT_EQ(Walk(unreadable, true), "");
    ScriptedProbe noCounter;
    noCounter.m_bHasCounter = false;
    EXPECT_EQ(Walk(noCounter, false), "");
}

TEST(HiResTimer, ThisMachineKeepsTimeAndItsAffinity)
{
    cpu_set_t before;
    ASSERT_EQ(sched_getaffinity(0, sizeof before, &before), 0);
    // Walk the whole affinity, then one narrowed to its first processor; both come back.
    cpu_set_t one;
    CPU_ZERO(&one);
    int first = 0;
    while (!CPU_ISSET(first, &before))
        ++first;
    CPU_SET(first, &one);
    for (const cpu_set_t* mask : {&before, &one}) {
        ASSERT_EQ(sched_setaffinity(0, sizeof *mask, mask), 0);
        EXPECT_TRUE(TestMachineHiResTimer());
        cpu_set_t after;
        ASSERT_EQ(sched_getaffinity(0, sizeof after, &after), 0);
        EXPECT_TRUE(CPU_EQUAL(&after, mask));
    }
    sched_setaffinity(0, sizeof before, &before);
}

} // namespace
} // namespace vesk::platform
