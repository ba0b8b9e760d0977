#include "support/LinkProbe.hpp"

#include <gtest/gtest.h>

using vesk::CommandMap;
using vesk::HdlChain;
using Log = LinkProbe::Log;

TEST(HdlChain, HoldsEachLinkOnceAndSumsTheResults)
{
    LinkProbe p[3];
    p[0].result = 1;
    p[1].result = 2;
    p[2].result = 4;
    HdlChain chain;
    EXPECT_TRUE(chain.IsEmpty());
    chain.Add(p[2].GetLink(), false);
    chain.Add(p[0].GetLink(), false);
    chain.Add(p[1].GetLink(), true);
    chain.Add(p[1].GetLink(), false); // already there: stays a once-link
    Log log;
    EXPECT_EQ(chain.Call(&log), 7);
    EXPECT_EQ(log, (Log{&p[0], &p[1], &p[2]})); // link order, not the order of adding
    log.clear();
    EXPECT_EQ(chain.Call(&log), 5);
    EXPECT_EQ(log, (Log{&p[0], &p[2]}));
    EXPECT_TRUE(chain.Remove(p[0].GetLink()));
    EXPECT_FALSE(chain.Remove(p[0].GetLink()));
}

TEST(HdlChain, HandlersMayChangeOrCallTheChainWhileItIsCalled)
{
    LinkProbe p[5];
    HdlChain chain;
    for (LinkProbe& probe : p)
        chain.Add(probe.GetLink(), false);
    p[0].action = [&] { chain.Remove(p[0].GetLink()); };      // itself
    p[1].action = [&] { chain.Remove(p[2].GetLink()); };      // the one that was to follow
    p[3].action = [&] { chain.Add(p[2].GetLink(), false); };  // one already passed
    Log log;
    int32_t inner = -1;
    p[4].result = 4;
    p[4].action = [&] { inner = chain.Call(&log); };          // the chain is calling: 0 at once
    EXPECT_EQ(chain.Call(&log), 4);
    EXPECT_EQ(inner, 0);
    EXPECT_EQ(log, (Log{&p[0], &p[1], &p[3], &p[4]}));
    log.clear();
    p[1].action = [&] { chain.Clear(); };
    chain.Call(&log);
    EXPECT_EQ(log, (Log{&p[1]}));
    EXPECT_TRUE(chain.IsEmpty());
}

TEST(CommandMap, FirstEntryWinsAndOnceEntriesGoAfterTheirCall)
{
    LinkProbe a;
    LinkProbe b;
    a.result = 10;
    b.result = 20;
    CommandMap map;
    map.Add(5, a.GetLink(), false);
    map.Add(5, b.GetLink(), false);
    map.Add(6, b.GetLink(), true);
    Log log;
    EXPECT_EQ(map.Call(5, &log), 10);
    EXPECT_EQ(map.Call(7, &log), 0);
    EXPECT_EQ(map.Call(6, &log), 20);
    EXPECT_EQ(map.Call(6, &log), 0);
    EXPECT_EQ(log, (Log{&a, &b}));
    EXPECT_TRUE(map.Remove(5));
    EXPECT_FALSE(map.Remove(5));

    // A once-handler that registers a new link for its own command leaves that link in place.
    a.action = [&] { map.Remove(8), map.Add(8, b.GetLink(), false); };
    map.Add(8, a.GetLink(), true);
    EXPECT_EQ(map.Call(8, &log), 10);
    EXPECT_EQ(map.Call(8, &log), 20);
    // One that registers itself again as a lasting entry stays registered.
    a.action = [&] { map.Remove(9), map.Add(9, a.GetLink(), false); };
    map.Add(9, a.GetLink(), true);
    EXPECT_EQ(map.Call(9, &log), 10);
    a.action = nullptr;
    EXPECT_EQ(map.Call(9, &log), 10);
}
