#include "platform/hires_timer.hpp"
#include "platform/sysinfo.hpp"

#include <gtest/gtest.h>

#include <sched.h>

#include <map>
#include <string>

namespace vesk::platform {
namespace {

// A machine whose counter reading depends on the processor the caller is pinned to.
class ScriptedProbe : public CounterProbe
{
public:
    bool m_bHasCounter = true;
    unsigned m_nProcessors = 4;
    bool m_bAffinityReadable = true;
    std::vector<unsigned> m_Affinity{0, 1, 3};
    std::map<unsigned, int64_t> m_Offset; // per-processor skew of the counter
    std::string m_Log;

    bool HasCounter() override { return m_bHasCounter; }
    unsigned ProcessorCount() override { return m_nProcessors; }
    bool SaveAffinity(std::vector<unsigned>& processors) override
    {
        processors = m_Affinity;
        return m_bAffinityReadable;
    }
    void PinTo(unsigned processor) override
    {
        m_nCurrent = processor;
        m_Log += std::to_string(processor);
    }
    void RestoreAffinity() override { m_Log += "R"; }
    void Yield() override {}
    int64_t ReadCounter() override { return m_nTicks += 10, m_nTicks + m_Offset[m_nCurrent]; }

private:
    unsigned m_nCurrent = 0;
    int64_t m_nTicks = 1000;
};

TEST(HiResTimer, WalksUpAndDownTheAffinityAndRestoresIt)
{
    ScriptedProbe probe;
    EXPECT_TRUE(TestHiResTimer(probe));
    EXPECT_EQ(probe.m_Log, "013310R");
}

TEST(HiResTimer, BackwardStepFails)
{
    ScriptedProbe up;
    up.m_Offset[1] = -100; // behind processor 0 on the way up
    EXPECT_FALSE(TestHiResTimer(up));
    EXPECT_EQ(up.m_Log, "01R");

    ScriptedProbe down;
    down.m_Offset[3] = 25; // ahead of processor 1 by more than the time the walk takes
    EXPECT_FALSE(TestHiResTimer(down));
    EXPECT_EQ(down.m_Log, "01331R");

    ScriptedProbe equal;
    equal.m_Offset[1] = -10; // a reading equal to the previous one is no backward step
    EXPECT_TRUE(TestHiResTimer(equal));
}

TEST(HiResTimer, ShortcutsWithoutPinning)
{
    ScriptedProbe noCounter;
    noCounter.m_bHasCounter = false;
    EXPECT_FALSE(TestHiResTimer(noCounter));

    ScriptedProbe single;
    single.m_nProcessors = 1;
    single.m_Offset[0] = -1000000;
    EXPECT_TRUE(TestHiResTimer(single));

    ScriptedProbe unreadable;
    unreadable.m_bAffinityReadable = false;
    EXPECT_TRUE(TestHiResTimer(unreadable));

    for (const ScriptedProbe* probe : {&noCounter, &single, &unreadable})
        EXPECT_EQ(probe->m_Log, "");
}

cpu_set_t CurrentAffinity()
{
    cpu_set_t mask;
    CPU_ZERO(&mask);
    EXPECT_EQ(sched_getaffinity(0, sizeof mask, &mask), 0);
    return mask;
}

TEST(HiResTimer, ThisMachineKeepsTimeAndItsAffinity)
{
    cpu_set_t before = CurrentAffinity();
    EXPECT_TRUE(TestMachineHiResTimer());
    cpu_set_t after = CurrentAffinity();
    EXPECT_TRUE(CPU_EQUAL(&before, &after));

    // A narrowed affinity is walked as it stands and comes back narrowed.
    int first = 0;
    while (!CPU_ISSET(first, &before))
        ++first;
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(first, &one);
    ASSERT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
    EXPECT_TRUE(TestMachineHiResTimer());
    cpu_set_t narrowed = CurrentAffinity();
    EXPECT_TRUE(CPU_EQUAL(&narrowed, &one));
    sched_setaffinity(0, sizeof before, &before);
}

} // namespace
} // namespace vesk::platform
