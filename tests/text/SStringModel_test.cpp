// The fuzz target's comparison with the std::string model, on seeded random operation lists,
// so that every test run covers it too.
#include "models/sstring_model.hpp"

#include <gtest/gtest.h>

#include <random>

TEST(SStringModel, RandomOperationSequencesAgreeWithTheModel)
{
    std::mt19937 random(20240601);
    // A small alphabet with separators, blanks, line ends and zeros makes matches frequent.
    const char alphabet[] = {'a', 'b', 'A', 'B', ',', ' ', '\r', '\n', '\0', 'x'};
    for (int run = 0; run < 3000; ++run) {
        std::vector<uint8_t> input(random() % 200);
        for (size_t i = 0; i < input.size(); ++i)
            input[i] = i % 3 == 0 ? uint8_t(random()) : uint8_t(alphabet[random() % sizeof alphabet]);
        std::string failed;
        ASSERT_TRUE(sstring_model::Run(input.data(), input.size(), failed)) << failed << " in run " << run;
    }
}
