#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

namespace vesk {

// A closed integer interval: both ends belong to it. A range of (0, 0) counts as not set.
template <typename T>
class BasicRange {
public:
    BasicRange() = default;
    BasicRange(T min, T max) : m_nMin(min), m_nMax(max) {}

    T Min() const { return m_nMin; }
    T& Min() { return m_nMin; }
    T Max() const { return m_nMax; }
    T& Max() { return m_nMax; }

    // Sets both ends to 0.
    void Clear() { m_nMin = m_nMax = 0; }
    // Whether either end is non-zero.
    bool IsSet() const { return m_nMin != 0 || m_nMax != 0; }
    // max - min + 1 without checking the order; wraps around like the integer type.
    T Len() const
    {
        using U = std::make_unsigned_t<T>;
        return static_cast<T>(static_cast<U>(m_nMax) - static_cast<U>(m_nMin) + 1u);
    }
    // min <= v <= max; an inverted range contains nothing.
    bool IsInside(T v) const { return m_nMin <= v && v <= m_nMax; }
    // Swaps the ends when min > max.
    void Justify()
    {
        if (m_nMin > m_nMax)
            std::swap(m_nMin, m_nMax);
    }

private:
    T m_nMin = 0;
    T m_nMax = 0;
};

using Range = BasicRange<int32_t>;
using Range64 = BasicRange<int64_t>;

} // namespace vesk
