#include <vesk/containers/Table.hpp>

#include <utility>

namespace vesk {

namespace {

constexpr uint32_t KEY_NOTFOUND = 0xFFFFFFFF;
// Tables up to this many associations find the insertion point by scanning from the front.
constexpr uint32_t LINEAR_INSERT_LIMIT = 24;

void* KeyEntry(uint32_t key)
{
    return reinterpret_cast<void*>(static_cast<uintptr_t>(key));
}

uint32_t EntryKey(const void* entry)
{
    return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(entry));
}

// Reads entries by position, moving along the chain from wherever the previous read ended, so a
// bisection walks the chain about once instead of once per probe.
class EntryReader {
public:
    explicit EntryReader(CBlock* first) : m_pBlock(first) {}

    // Moves to an entry below the count and returns it.
    void*& At(uint32_t position)
    {
        while (position < m_nStart) {
            m_pBlock = m_pBlock->m_pPrev;
            m_nStart -= m_pBlock->m_nCount;
        }
        while (position - m_nStart >= m_pBlock->m_nCount) {
            m_nStart += m_pBlock->m_nCount;
            m_pBlock = m_pBlock->m_pNext;
        }
        m_nIndex = static_cast<uint16_t>(position - m_nStart);
        return m_pBlock->m_pEntries[m_nIndex];
    }
    uint32_t KeyOf(uint32_t association) { return EntryKey(At(2 * association)); }

    CBlock* m_pBlock;
    uint32_t m_nStart = 0;
    uint16_t m_nIndex = 0;
};

// Finds `key` among `count` associations; `at` receives its association index, or the index
// at which it would be inserted.
bool FindKey(EntryReader& keys, uint32_t count, uint32_t key, bool scan, uint32_t& at)
{
    at = 0;
    if (!count || key < keys.KeyOf(0))
        return false;
    if (scan) {
        while (at < count && keys.KeyOf(at) < key)
            ++at;
    } else {
        uint32_t end = count;
        while (at < end) {
            const uint32_t middle = at + (end - at) / 2;
            if (keys.KeyOf(middle) < key)
                at = middle + 1;
            else
                end = middle;
        }
    }
    return at < count && keys.KeyOf(at) == key;
}

// Finds the key entry of the first association holding `value`.
bool FindValue(CBlock* block, const void* value, CBlock*& keyBlock, uint16_t& keyIndex)
{
    bool isValue = false;
    for (; block; block = block->m_pNext) {
        for (uint16_t i = 0; i < block->m_nCount; ++i, isValue = !isValue) {
            if (!isValue) {
                keyBlock = block;
                keyIndex = i;
            } else if (block->m_pEntries[i] == value) {
                return true;
            }
        }
    }
    return false;
}

// The value entry that follows a key entry, possibly at the start of the next block.
void* ValueAfter(const CBlock* block, uint16_t index)
{
    return index + 1 < block->m_nCount ? block->m_pEntries[index + 1] : block->m_pNext->m_pEntries[0];
}

} // namespace

Table::Table(uint16_t initSize, uint16_t reSize)
    : Container(CONTAINER_MAXBLOCKSIZE, static_cast<uint16_t>(2 * initSize), static_cast<uint16_t>(2 * reSize))
{
}

bool Table::operator==(const Table& other) const
{
    return m_nAssocCount == other.m_nAssocCount && Container::operator==(other);
}

bool Table::Insert(uint32_t key, void* value)
{
    EntryReader keys(m_pFirstBlock);
    uint32_t at;
    if (FindKey(keys, m_nAssocCount, key, m_nAssocCount <= LINEAR_INSERT_LIMIT, at))
        return false;
    Container::Insert(KeyEntry(key), 2 * at);
    Container::Insert(value, 2 * at + 1);
    ++m_nAssocCount;
    return true;
}

void* Table::Remove(uint32_t key)
{
    EntryReader keys(m_pFirstBlock);
    uint32_t at;
    if (!FindKey(keys, m_nAssocCount, key, false, at))
        return nullptr;
    Container::Remove(2 * at);
    void* value = Container::Remove(2 * at);
    --m_nAssocCount;
    // Removing the current association may leave the position on the value of the one before
    // (when the removed entries ended a block); that association becomes the current one.
    if (m_nAssocCount && Container::GetCurPos() % 2)
        ImpStepBack(m_pCurBlock, m_nCurIndex);
    return value;
}

void* Table::Replace(uint32_t key, void* value)
{
    EntryReader keys(m_pFirstBlock);
    uint32_t at;
    return FindKey(keys, m_nAssocCount, key, false, at) ? std::exchange(keys.At(2 * at + 1), value) : nullptr;
}

void* Table::Get(uint32_t key) const
{
    EntryReader keys(m_pFirstBlock);
    uint32_t at;
    return FindKey(keys, m_nAssocCount, key, false, at) ? keys.At(2 * at + 1) : nullptr;
}

bool Table::IsKeyValid(uint32_t key) const
{
    EntryReader keys(m_pFirstBlock);
    uint32_t at;
    return FindKey(keys, m_nAssocCount, key, false, at);
}

uint32_t Table::GetKey(const void* value) const
{
    CBlock* block;
    uint16_t index;
    return FindValue(m_pFirstBlock, value, block, index) ? EntryKey(block->m_pEntries[index]) : KEY_NOTFOUND;
}

void* Table::Seek(uint32_t key)
{
    EntryReader keys(m_pFirstBlock);
    uint32_t at;
    if (!FindKey(keys, m_nAssocCount, key, false, at))
        return nullptr;
    keys.At(2 * at);
    m_pCurBlock = keys.m_pBlock;
    m_nCurIndex = keys.m_nIndex;
    return ValueAfter(m_pCurBlock, m_nCurIndex);
}

void* Table::Seek(void* value)
{
    CBlock* block;
    uint16_t index;
    if (!FindValue(m_pFirstBlock, value, block, index))
        return nullptr;
    m_pCurBlock = block;
    m_nCurIndex = index;
    return value;
}

void* Table::First()
{
    if (!m_nAssocCount)
        return nullptr;
    Container::First();
    return ValueAfter(m_pCurBlock, m_nCurIndex);
}

void* Table::Last()
{
    if (!m_nAssocCount)
        return nullptr;
    Container::Last();
    ImpStepBack(m_pCurBlock, m_nCurIndex);
    return ValueAfter(m_pCurBlock, m_nCurIndex);
}

void* Table::Next()
{
    return StepAssociation(&ImpStepForward);
}

void* Table::Prev()
{
    return StepAssociation(&ImpStepBack);
}

// Two entry steps make one association; at either end the position stays.
void* Table::StepAssociation(bool (*step)(CBlock*&, uint16_t&))
{
    CBlock* block = m_pCurBlock;
    uint16_t index = m_nCurIndex;
    if (!step(block, index) || !step(block, index))
        return nullptr;
    m_pCurBlock = block;
    m_nCurIndex = index;
    return ValueAfter(block, index);
}

uint32_t Table::GetCurKey() const
{
    return m_nAssocCount ? EntryKey(Container::GetCurObject()) : KEY_NOTFOUND;
}

void* Table::GetCurObject() const
{
    return m_nAssocCount ? ValueAfter(m_pCurBlock, m_nCurIndex) : nullptr;
}

void Table::Clear()
{
    Container::Clear();
    m_nAssocCount = 0;
}

} // namespace vesk
