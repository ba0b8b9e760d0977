// Long random sequences of container operations with small blocks, checked after every step
// against a std::vector holding the same entries and a model of the current position.
#include "values/ContainerProbe.hpp"

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
        const uint32_t n = static_cast<uint32_t>(m_aModel.size());
        // Random positions run a little past the count to exercise the clamps.
        const uint32_t position = Random(n + 3);
        void* p = Value();
        switch (Random(13)) {
        case 0: InsertAt(m_aModel.empty() ? 0 : m_nCur, p), m_aContainer.Insert(p); break;
        case 1: case 2: InsertAt(std::min(position, n), p), m_aContainer.Insert(p, position); break;
        case 3: {
            void* before = Value();
            const auto found = Find(before);
            if (found != NOTFOUND)
                InsertAt(found, p);
            m_aContainer.Insert(p, before);
            break;
        }
        // The model reads the container's block layout before the removal changes it.
        case 4: {
            void* expected = n ? RemoveAt(m_nCur) : nullptr;
            Expect(m_aContainer.Remove(), expected);
            break;
        }
        case 5: {
            void* expected = position < n ? RemoveAt(position) : nullptr;
            Expect(m_aContainer.Remove(position), expected);
            break;
        }
        case 6: {
            const auto found = Find(p);
            void* expected = found != NOTFOUND ? RemoveAt(found) : nullptr;
            Expect(m_aContainer.Remove(p), expected);
            break;
        }
        case 7: {
            void* old = Value();
            const auto found = Find(old);
            Expect(m_aContainer.Replace(p, old), found != NOTFOUND ? std::exchange(m_aModel[found], p) : nullptr);
            break;
        }
        case 8: Expect(m_aContainer.Replace(p, position), position < n ? std::exchange(m_aModel[position], p) : nullptr); break;
        case 9:
            if (n)
                m_nCur = std::min(position, n - 1);
            Expect(m_aContainer.Seek(position), n ? m_aModel[m_nCur] : nullptr);
            break;
        case 10: {
            const auto found = Find(p);
            if (found != NOTFOUND)
                m_nCur = found;
            Expect(m_aContainer.Seek(p), found != NOTFOUND ? p : nullptr);
            break;
        }
        case 11: {
            const bool forward = Random(2);
            const bool moves = forward ? m_nCur + 1 < n : m_nCur > 0;
            m_nCur += moves ? (forward ? 1 : -1) : 0;
            Expect(forward ? m_aContainer.Next() : m_aContainer.Prev(), moves ? m_aModel[m_nCur] : nullptr);
            break;
        }
        case 12: {
            const uint32_t size = Random(2 * n + 4);
            EXPECT_EQ(m_aContainer.ChangeSize(size), n);
            m_aModel.resize(size, nullptr);
            if (m_nCur >= size)
                m_nCur = size ? size - 1 : 0;
            break;
        }
        }
    }

    ::testing::AssertionResult Matches() const
    {
        if (auto consistent = m_aContainer.Consistent(); !consistent)
            return consistent;
        if (m_aContainer.Entries() != m_aModel)
            return ::testing::AssertionFailure() << "entries differ from the model";
        const uint32_t cur = m_aModel.empty() ? NOTFOUND : m_nCur;
        if (m_aContainer.GetCurPos() != cur)
            return ::testing::AssertionFailure() << "current " << m_aContainer.GetCurPos() << ", model " << cur;
        return ::testing::AssertionSuccess();
    }

private:
    uint32_t Random(uint32_t bound) { return static_cast<uint32_t>(m_aRandom() % bound); }
    // Mostly fresh pointers, sometimes one already present (or null) so searches find duplicates.
    void* Value()
    {
        if (!m_aModel.empty() && Random(3) == 0)
            return m_aModel[Random(static_cast<uint32_t>(m_aModel.size()))];
        return Ptr(Random(64) + 1);
    }
    uint32_t Find(const void* p) const
    {
        const auto found = std::find(m_aModel.begin(), m_aModel.end(), p);
        return found == m_aModel.end() ? NOTFOUND : static_cast<uint32_t>(found - m_aModel.begin());
    }
    void Expect(void* actual, void* expected) { EXPECT_EQ(actual, expected); }

    void InsertAt(uint32_t at, void* p)
    {
        if (!m_aModel.empty() && at <= m_nCur)
            ++m_nCur;
        m_aModel.insert(m_aModel.begin() + at, p);
    }
    // Removing the current entry moves to the next one, except at the end of its block: then to
    // the entry before, unless it was the block's only entry and another block follows.
    void* RemoveAt(uint32_t at)
    {
        if (at < m_nCur)
            --m_nCur;
        else if (at == m_nCur && m_nCur > 0) {
            const bool blockEnds = m_aContainer.CurIndex() + 1 == m_aContainer.CurBlockCount();
            const bool blockGoes = m_aContainer.CurBlockCount() == 1 && m_aContainer.CurHasNextBlock();
            if (blockEnds && !blockGoes)
                --m_nCur;
        }
        void* p = m_aModel[at];
        m_aModel.erase(m_aModel.begin() + at);
        if (m_aModel.empty())
            m_nCur = 0;
        return p;
    }

    ContainerProbe m_aContainer;
    std::mt19937 m_aRandom;
    std::vector<void*> m_aModel;
    uint32_t m_nCur = 0;
};

struct ModelCase {
    uint16_t blockSize, initSize, reSize;
};

class ContainerModelTest : public ::testing::TestWithParam<uint32_t> {};

TEST_P(ContainerModelTest, RandomOperationsMatchAVector)
{
    for (const ModelCase& params : {ModelCase{4, 2, 2}, ModelCase{10, 3, 3}, ModelCase{5, 1, 4}, ModelCase{16, 6, 4}}) {
        ContainerModel model(params.blockSize, params.initSize, params.reSize, GetParam());
        for (int step = 0; step < 5000; ++step) {
            model.Step();
            ASSERT_TRUE(model.Matches()) << "block size " << params.blockSize << ", step " << step;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ContainerModelTest, ::testing::Values(1u, 7u, 42u, 2024u, 90001u));

} // namespace
