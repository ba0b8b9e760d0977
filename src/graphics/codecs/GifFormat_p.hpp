#pragma once

// Facts of the GIF format shared by the still-image codec and the animation reader.

#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

namespace vesk::codecs {

// True when `head` starts with "GIF87a" or "GIF89a".
inline bool IsGifSignature(std::span<const uint8_t> head)
{
    return head.size() >= 6 && std::memcmp(head.data(), "GIF8", 4) == 0 && (head[4] == '7' || head[4] == '9') &&
           head[5] == 'a';
}

// The image rows an interlaced frame of `height` rows stores, in stored order: every 8th row
// from 0, every 8th from 4, every 4th from 2, then every 2nd from 1.
inline void InterlacedRows(uint32_t height, std::vector<uint32_t>& rows)
{
    static constexpr uint32_t kStart[4] = {0, 4, 2, 1};
    static constexpr uint32_t kStep[4] = {8, 8, 4, 2};
    rows.clear();
    for (int pass = 0; pass < 4; ++pass)
        for (uint32_t row = kStart[pass]; row < height; row += kStep[pass])
            rows.push_back(row);
}

} // namespace vesk::codecs
