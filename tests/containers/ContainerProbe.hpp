#pragma once

#include <vesk/containers.hpp>

#include <gtest/gtest.h>

#include <array>
#include <utility>
#include <vector>

// Opens a container's block chain to the tests: its parameters, its blocks and a check of the
// chain's invariants.
class ContainerProbe : public vesk::Container {
public:
    using Container::Container;

    // Block size, initial size and re-size.
    using Params = std::array<uint16_t, 3>;
    // Count and capacity of a block.
    using BlockShape = std::pair<uint16_t, uint16_t>;

    Params GetParams() const { return {m_nBlockSize, m_nInitSize, m_nReSize}; }
    std::vector<BlockShape> Shapes() const
    {
        std::vector<BlockShape> shapes;
        for (const vesk::CBlock* b = m_pFirstBlock; b; b = b->m_pNext)
            shapes.push_back({b->m_nCount, b->m_nCapacity});
        return shapes;
    }
    std::vector<void*> Entries() const
    {
        std::vector<void*> entries;
        for (const vesk::CBlock* b = m_pFirstBlock; b; b = b->m_pNext)
            entries.insert(entries.end(), b->m_pEntries, b->m_pEntries + b->m_nCount);
        return entries;
    }
    uint16_t CurBlockCount() const { return m_pCurBlock->m_nCount; }
    uint16_t CurIndex() const { return m_nCurIndex; }
    bool CurHasNextBlock() const { return m_pCurBlock->m_pNext != nullptr; }

    ::testing::AssertionResult Consistent() const
    {
        uint32_t total = 0;
        bool curSeen = false;
        const vesk::CBlock* prev = nullptr;
        for (const vesk::CBlock* b = m_pFirstBlock; b; prev = b, b = b->m_pNext) {
            if (b->m_pPrev != prev)
                return ::testing::AssertionFailure() << "broken back link";
            if (b->m_nCount > b->m_nCapacity || b->m_nCount > m_nBlockSize)
                return ::testing::AssertionFailure() << "block over capacity or block size";
            if (b->m_nCount == 0 && (b != m_pFirstBlock || b->m_pNext))
                return ::testing::AssertionFailure() << "empty block in a chain";
            curSeen = curSeen || b == m_pCurBlock;
            total += b->m_nCount;
        }
        if (prev != m_pLastBlock)
            return ::testing::AssertionFailure() << "last block pointer is stale";
        if (total != m_nCount)
            return ::testing::AssertionFailure() << "block counts " << total << " != count " << m_nCount;
        if (!curSeen || (m_nCount ? m_nCurIndex >= m_pCurBlock->m_nCount : m_nCurIndex != 0))
            return ::testing::AssertionFailure() << "current position outside the entries";
        return ::testing::AssertionSuccess();
    }
};

inline void* Ptr(uintptr_t value)
{
    return reinterpret_cast<void*>(value);
}
