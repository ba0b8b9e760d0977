#pragma once

#include <cstdint>

namespace vesk {

// Two plain integers.
template <typename T>
class BasicPair {
public:
    BasicPair() = default;
    BasicPair(T a, T b) : m_nA(a), m_nB(b) {}

    T A() const { return m_nA; }
    T& A() { return m_nA; }
    T B() const { return m_nB; }
    T& B() { return m_nB; }

    bool operator==(const BasicPair&) const = default;

private:
    T m_nA = 0;
    T m_nB = 0;
};

using Pair = BasicPair<int32_t>;
using Pair64 = BasicPair<int64_t>;

} // namespace vesk
