#include "platform/display/DoubleClick.hpp"

#include <gtest/gtest.h>

#include <vector>

using vesk::display::DoubleClick;

namespace {

struct Press
{
    uintptr_t window;
    uint32_t button;
    uint32_t timeMs;
    int32_t x, y;
    bool completes;
};

} // namespace

TEST(DoubleClick, SecondPressWithinTimeAndDistanceOfTheFirst)
{
    // Each sequence starts on a fresh tracker; the last press of each decides the case.
    const std::vector<std::vector<Press>> sequences = {
        {{1, 1, 1000, 10, 10, false}, {1, 1, 1500, 12, 8, true}},       // 500 ms, 2 px: still a double
        {{1, 1, 1000, 10, 10, false}, {1, 1, 1501, 10, 10, false}},     // 501 ms: too slow
        {{1, 1, 1000, 10, 10, false}, {1, 1, 1100, 13, 10, false}},     // 3 px across
        {{1, 1, 1000, 10, 10, false}, {1, 1, 1100, 10, 7, false}},      // 3 px down
        {{1, 1, 1000, 10, 10, false}, {1, 2, 1100, 10, 10, false}},     // other button
        {{1, 1, 1000, 10, 10, false}, {2, 1, 1100, 10, 10, false}},     // other window
        {{1, 1, 0xFFFFFF00u, 10, 10, false}, {1, 1, 0x40, 10, 10, true}}, // the 32-bit clock wraps
        // A double click ends the sequence: the third press starts anew, the fourth doubles.
        {{1, 1, 1000, 10, 10, false}, {1, 1, 1100, 10, 10, true}, {1, 1, 1200, 10, 10, false},
         {1, 1, 1300, 10, 10, true}},
        // A press that fails starts a sequence of its own.
        {{1, 1, 1000, 10, 10, false}, {1, 1, 2000, 10, 10, false}, {1, 1, 2100, 10, 10, true}},
    };
    for (size_t i = 0; i < sequences.size(); ++i) {
        DoubleClick clicks;
        for (size_t j = 0; j < sequences[i].size(); ++j) {
            const Press& p = sequences[i][j];
            EXPECT_EQ(clicks.Press(p.window, p.button, p.timeMs, p.x, p.y), p.completes)
                << "sequence " << i << ", press " << j;
        }
    }
}
