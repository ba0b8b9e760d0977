// Long random sequences of container operations with small blocks, checked after every step
// against a std::vector holding the same entries and a model of the current position.
#include "containers/ContainerProbe.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

constexpr uint32_t NOTFOUND = vesk::CONTAINER_ENTRY_NOTFOUND;

class ContainerModel {
public:
    ContainerModel(uint16_t blockSize, uint16_t initSize, uint16_t reSize, uint32_t seed)
        : m_aContainer(blockSize, initSize, reSize), m_aRandom(seed)
    {
    }

    void Step()
    {
        const auto n = static_cast<uint32_t>(m_aModel.size());
        const uint32_t position = Random(n + 3); // a little past the count, for the clamps
        void* p = Value();
        void* other = Value();
        const uint32_t found = Find(other);
        void* expected = nullptr;
        void* actual = nullptr;
        switch (Random(13)) {
        case 0: InsertAt(n ? m_nCur : 0, p), m_aContainer.Insert(p); break;
        case 1: case 2: InsertAt(std::min(position, n), p), m_aContainer.Insert(p, position); break;
        case 3:
            if (found != NOTFOUND)
                InsertAt(found, p);
            m_aContainer.Insert(p, other);
            break;
        // The model reads the block layout before the removal changes it.
        case 4: expected = n ? RemoveAt(m_nCur) : nullptr, actual = m_aContainer.Remove(); break;
        case 5: expected = position < n ? RemoveAt(position) : nullptr, actual = m_aContainer.Remove(position); break;
        case 6: expected = found != NOTFOUND ? RemoveAt(found) : nullptr, actual = m_aContainer.Remove(other); break;
        case 7: expected = found != NOTFOUND ? std::exchange(m_aModel[found], p) : nullptr, actual = m_aContainer.Replace(p, other); break;
        case 8: expected = position < n ? std::exchange(m_aModel[position], p) : nullptr, actual = m_aContainer.Replace(p, position); break;
        case 9:
            m_nCur = n ? std::min(position, n - 1) : m_nCur;
            expected = n ? m_aModel[m_nCur] : nullptr, actual = m_aContainer.Seek(position);
            break;
        case 10:
            m_nCur = found != NOTFOUND ? found : m_nCur;
            expected = found != NOTFOUND ? other : nullptr, actual = m_aContainer.Seek(other);
            break;
        case 11: {
            // Next, Prev, First or Last; unsigned wrap-around makes Prev at 0 fail the range test.
            const uint32_t move = Random(4);
            const uint32_t target = move == 0 ? m_nCur + 1 : move == 1 ? m_nCur - 1 : move == 2 ? 0 : n - 1;
            const bool moves = n && target < n;
            m_nCur = moves ? target : m_nCur;
            expected = moves ? m_aModel[m_nCur] : nullptr;
            actual = move == 0 ? m_aContainer.Next() : move == 1 ? m_aContainer.Prev()
                   : move == 2 ? m_aContainer.First() : m_aContainer.Last();
            break;
        }
        case 12: {
            const uint32_t size = Random(2 * n + 4);
            EXPECT_EQ(m_aContainer.ChangeSize(size), n);
            m_aModel.resize(size, nullptr);
            m_nCur = m_nCur < size ? m_nCur : size ? size - 1 : 0;
            break;
        }
        }
        EXPECT_EQ(actual, expected);
    }

    ::testing::AssertionResult Matches() const
    {
        if (auto consistent = m_aContainer.Consistent(); !consistent)
            return consistent;
        if (m_aContainer.Entries() != m_aModel)
            return ::testing::AssertionFailure() << "entries differ from the model";
        const auto probe = static_cast<uint32_t>(m_aModel.size() / 2 + 1);
        if (m_aContainer.GetCntObject(probe) != (probe < m_aModel.size() ? m_aModel[probe] : nullptr))
            return ::testing::AssertionFailure() << "positional access differs at " << probe;
        const uint32_t cur = m_aModel.empty() ? NOTFOUND : m_nCur;
        if (m_aContainer.GetCurPos() != cur)
            return ::testing::AssertionFailure() << "current " << m_aContainer.GetCurPos() << ", model " << cur;
        return ::testing::AssertionSuccess();
    }

private:
    uint32_t Random(uint32_t bound) { return static_cast<uint32_t>(m_aRandom() % bound); }
    // Mostly small pointers, often one already present (or null), so searches meet duplicates.
    void* Value() { return !m_aModel.empty() && Random(3) == 0 ? m_aModel[Random(static_cast<uint32_t>(m_aModel.size()))] : Ptr(Random(64) + 1); }
    uint32_t Find(const void* p) const
    {
        const auto found = std::find(m_aModel.begin(), m_aModel.end(), p);
        return found == m_aModel.end() ? NOTFOUND : static_cast<uint32_t>(found - m_aModel.begin());
    }

    // The current entry stays the same; in an empty container the new entry becomes current.
    void InsertAt(uint32_t at, void* p)
    {
        m_nCur += !m_aModel.empty() && at <= m_nCur;
        m_aModel.insert(m_aModel.begin() + at, p);
    }
    // Removing the current entry moves to the next one, except at the end of its block: then to
    // the entry before, unless it was the block's only entry and another block follows.
    void* RemoveAt(uint32_t at)
    {
        const bool blockEnds = m_aContainer.CurIndex() + 1 == m_aContainer.CurBlockCount();
        const bool blockGoes = m_aContainer.CurBlockCount() == 1 && m_aContainer.CurHasNextBlock();
        m_nCur -= at < m_nCur || (at == m_nCur && m_nCur > 0 && blockEnds && !blockGoes);
        void* p = m_aModel[at];
        m_aModel.erase(m_aModel.begin() + at);
        m_nCur = m_aModel.empty() ? 0 : m_nCur;
        return p;
    }

    ContainerProbe m_aContainer;
    std::mt19937 m_aRandom;
    std::vector<void*> m_aModel;
    uint32_t m_nCur = 0;
};

class ContainerModelTest : public ::testing::TestWithParam<uint32_t> {};

TEST_P(ContainerModelTest, RandomOperationsMatchAVector)
{
    const uint16_t params[][3] = {{4, 2, 2}, {10, 3, 3}, {5, 1, 4}, {16, 6, 4}};
    for (const auto& [blockSize, initSize, reSize] : params) {
        ContainerModel model(blockSize, initSize, reSize, GetParam());
        for (int step = 0; step < 5000; ++step) {
            model.Step();
            ASSERT_TRUE(model.Matches()) << "block size " << blockSize << ", step " << step;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ContainerModelTest, ::testing::Values(1u, 7u, 42u, 2024u, 90001u));

} // namespace
