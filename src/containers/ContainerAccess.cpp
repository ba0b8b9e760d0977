// Positional access, search and iteration of Container.
#include <vesk/containers/Container.hpp>

#include <algorithm>
#include <utility>

namespace vesk {

// Walks the chain from the first block, adding block counts, until the block holding the position.
CBlock* Container::ImpLocate(uint32_t position, uint16_t& index) const
{
    CBlock* block = m_pFirstBlock;
    while (position >= block->m_nCount && block->m_pNext) {
        position -= block->m_nCount;
        block = block->m_pNext;
    }
    index = static_cast<uint16_t>(position);
    return block;
}

bool Container::ImpStepForward(CBlock*& block, uint16_t& index)
{
    if (index + 1 < block->m_nCount) {
        ++index;
        return true;
    }
    if (!block->m_pNext)
        return false;
    block = block->m_pNext;
    index = 0;
    return true;
}

bool Container::ImpStepBack(CBlock*& block, uint16_t& index)
{
    if (index > 0) {
        --index;
        return true;
    }
    if (!block->m_pPrev)
        return false;
    block = block->m_pPrev;
    index = static_cast<uint16_t>(block->m_nCount - 1);
    return true;
}

CBlock* Container::FindEntry(const void* p, uint16_t& index) const
{
    for (CBlock* block = m_pFirstBlock; block; block = block->m_pNext) {
        void** const end = block->m_pEntries + block->m_nCount;
        void** const found = std::find(block->m_pEntries, end, p);
        if (found != end) {
            index = static_cast<uint16_t>(found - block->m_pEntries);
            return block;
        }
    }
    return nullptr;
}

uint32_t Container::BlockStart(const CBlock* block) const
{
    uint32_t start = 0;
    for (const CBlock* before = m_pFirstBlock; before != block; before = before->m_pNext)
        start += before->m_nCount;
    return start;
}

void* Container::ImpGetObject(uint32_t position) const
{
    uint16_t index;
    const CBlock* block = ImpLocate(position, index);
    return block->m_pEntries[index];
}

void Container::Insert(void* p)
{
    ImpInsert(p, m_pCurBlock, m_nCurIndex);
}

void Container::Insert(void* p, uint32_t position)
{
    uint16_t index;
    CBlock* block = ImpLocate(std::min(position, m_nCount), index);
    ImpInsert(p, block, index);
}

void Container::Insert(void* p, void* before)
{
    uint16_t index;
    if (CBlock* block = FindEntry(before, index))
        ImpInsert(p, block, index);
}

void* Container::Remove()
{
    return m_nCount ? ImpRemove(m_pCurBlock, m_nCurIndex) : nullptr;
}

void* Container::Remove(uint32_t position)
{
    if (position >= m_nCount)
        return nullptr;
    uint16_t index;
    CBlock* block = ImpLocate(position, index);
    return ImpRemove(block, index);
}

void* Container::Remove(void* p)
{
    uint16_t index;
    CBlock* block = FindEntry(p, index);
    return block ? ImpRemove(block, index) : nullptr;
}

void* Container::Replace(void* p)
{
    if (!m_nCount)
        return nullptr;
    return std::exchange(m_pCurBlock->m_pEntries[m_nCurIndex], p);
}

void* Container::Replace(void* p, uint32_t position)
{
    void** entry = GetObjectPtr(position);
    return entry ? std::exchange(*entry, p) : nullptr;
}

void* Container::Replace(void* p, void* old)
{
    uint16_t index;
    CBlock* block = FindEntry(old, index);
    return block ? std::exchange(block->m_pEntries[index], p) : nullptr;
}

void* Container::GetCntObject(uint32_t position) const
{
    return position < m_nCount ? ImpGetObject(position) : nullptr;
}

void** Container::GetObjectPtr(uint32_t position)
{
    if (position >= m_nCount)
        return nullptr;
    uint16_t index;
    CBlock* block = ImpLocate(position, index);
    return &block->m_pEntries[index];
}

void* Container::GetCurObject() const
{
    return m_nCount ? m_pCurBlock->m_pEntries[m_nCurIndex] : nullptr;
}

uint32_t Container::GetPos(const void* p) const
{
    uint16_t index;
    const CBlock* block = FindEntry(p, index);
    return block ? BlockStart(block) + index : CONTAINER_ENTRY_NOTFOUND;
}

uint32_t Container::GetCurPos() const
{
    return m_nCount ? BlockStart(m_pCurBlock) + m_nCurIndex : CONTAINER_ENTRY_NOTFOUND;
}

void* Container::First()
{
    if (!m_nCount)
        return nullptr;
    m_pCurBlock = m_pFirstBlock;
    m_nCurIndex = 0;
    return GetCurObject();
}

void* Container::Last()
{
    if (!m_nCount)
        return nullptr;
    m_pCurBlock = m_pLastBlock;
    m_nCurIndex = static_cast<uint16_t>(m_pLastBlock->m_nCount - 1);
    return GetCurObject();
}

void* Container::Next()
{
    return ImpStepForward(m_pCurBlock, m_nCurIndex) ? GetCurObject() : nullptr;
}

void* Container::Prev()
{
    return ImpStepBack(m_pCurBlock, m_nCurIndex) ? GetCurObject() : nullptr;
}

void* Container::Seek(uint32_t position)
{
    if (!m_nCount)
        return nullptr;
    m_pCurBlock = ImpLocate(std::min(position, m_nCount - 1), m_nCurIndex);
    return GetCurObject();
}

void* Container::Seek(void* p)
{
    uint16_t index;
    CBlock* block = FindEntry(p, index);
    if (!block)
        return nullptr;
    m_pCurBlock = block;
    m_nCurIndex = index;
    return p;
}

bool Container::operator==(const Container& other) const
{
    if (m_nCount != other.m_nCount)
        return false;
    if (!m_nCount)
        return true;
    CBlock* mine = m_pFirstBlock;
    CBlock* theirs = other.m_pFirstBlock;
    uint16_t i = 0;
    uint16_t j = 0;
    do {
        if (mine->m_pEntries[i] != theirs->m_pEntries[j])
            return false;
    } while (ImpStepForward(mine, i) && ImpStepForward(theirs, j));
    return true;
}

} // namespace vesk
