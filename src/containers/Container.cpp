#include <vesk/containers/Container.hpp>

#include <algorithm>
#include <cstring>

namespace vesk {

namespace {

// Entries are plain pointers; overlapping moves within one array go through memmove.
void MoveEntries(void** to, void* const* from, size_t count)
{
    if (count)
        std::memmove(to, from, count * sizeof(void*));
}

// The constructor's step rule. For a size that is not a multiple of the step it gives
// size + (size mod step) - step, which is not a multiple either (10 with step 3 gives 8);
// that result is the defined block layout and is kept.
uint16_t AdjustToStep(uint16_t size, uint16_t step)
{
    return size % step ? static_cast<uint16_t>(size + size % step - step) : size;
}

void LinkBehind(CBlock* block, CBlock* added)
{
    added->m_pPrev = block;
    added->m_pNext = block->m_pNext;
    if (block->m_pNext)
        block->m_pNext->m_pPrev = added;
    block->m_pNext = added;
}

} // namespace

CBlock::CBlock(uint16_t capacity) : m_nCapacity(capacity), m_pEntries(new void*[capacity]()) {}

CBlock::~CBlock()
{
    delete[] m_pEntries;
}

void CBlock::Reallocate(uint16_t capacity)
{
    void** entries = new void*[capacity]();
    MoveEntries(entries, m_pEntries, std::min(m_nCount, capacity));
    delete[] m_pEntries;
    m_pEntries = entries;
    m_nCapacity = capacity;
}

Container::Container(uint16_t blockSize, uint16_t initSize, uint16_t reSize)
{
    blockSize = std::clamp<uint16_t>(blockSize, 4, CONTAINER_MAXBLOCKSIZE);
    if (reSize < blockSize) {
        reSize = std::max<uint16_t>(reSize, 2);
        blockSize = AdjustToStep(blockSize, reSize);
    } else {
        reSize = blockSize;
    }
    if (initSize < reSize)
        initSize = reSize;
    else if (initSize < blockSize)
        initSize = AdjustToStep(initSize, reSize);
    else
        initSize = blockSize;
    m_nBlockSize = blockSize;
    m_nInitSize = initSize;
    m_nReSize = reSize;
    m_pFirstBlock = m_pLastBlock = m_pCurBlock = new CBlock(m_nInitSize);
}

Container::Container(uint32_t size)
    : m_nBlockSize(CONTAINER_MAXBLOCKSIZE), m_nInitSize(1), m_nReSize(1)
{
    m_pFirstBlock = m_pLastBlock = m_pCurBlock = new CBlock(m_nInitSize);
    GrowTo(std::max<uint32_t>(size, 1));
}

Container::Container(const Container& other)
    : m_nBlockSize(other.m_nBlockSize), m_nInitSize(other.m_nInitSize), m_nReSize(other.m_nReSize)
{
    CopyBlocks(other);
}

Container& Container::operator=(const Container& other)
{
    if (this != &other) {
        FreeBlocks();
        m_nBlockSize = other.m_nBlockSize;
        m_nInitSize = other.m_nInitSize;
        m_nReSize = other.m_nReSize;
        CopyBlocks(other);
    }
    return *this;
}

Container::~Container()
{
    FreeBlocks();
}

void Container::FreeBlocks()
{
    for (CBlock* block = m_pFirstBlock; block;) {
        CBlock* next = block->m_pNext;
        delete block;
        block = next;
    }
}

// The copy keeps the source's block layout, so its current position is the same block and index.
void Container::CopyBlocks(const Container& other)
{
    CBlock* prev = nullptr;
    for (const CBlock* from = other.m_pFirstBlock; from; from = from->m_pNext) {
        auto* block = new CBlock(from->m_nCapacity);
        MoveEntries(block->m_pEntries, from->m_pEntries, from->m_nCount);
        block->m_nCount = from->m_nCount;
        if (prev)
            LinkBehind(prev, block);
        else
            m_pFirstBlock = block;
        if (from == other.m_pCurBlock)
            m_pCurBlock = block;
        prev = block;
    }
    m_pLastBlock = prev;
    m_nCurIndex = other.m_nCurIndex;
    m_nCount = other.m_nCount;
}

void Container::Clear()
{
    FreeBlocks();
    m_pFirstBlock = m_pLastBlock = m_pCurBlock = new CBlock(m_nInitSize);
    m_nCurIndex = 0;
    m_nCount = 0;
}

void Container::ImpInsert(void* p, CBlock* block, uint16_t index)
{
    if (block->m_nCount == m_nBlockSize) {
        SplitInsert(p, block, index);
    } else {
        if (block->m_nCount == block->m_nCapacity) {
            // Grow by one step, leaving the gap at `index` while copying.
            void** entries = new void*[block->m_nCapacity + m_nReSize]();
            MoveEntries(entries, block->m_pEntries, index);
            MoveEntries(entries + index + 1, block->m_pEntries + index, block->m_nCount - index);
            delete[] block->m_pEntries;
            block->m_pEntries = entries;
            block->m_nCapacity = static_cast<uint16_t>(block->m_nCapacity + m_nReSize);
        } else {
            MoveEntries(block->m_pEntries + index + 1, block->m_pEntries + index, block->m_nCount - index);
        }
        block->m_pEntries[index] = p;
        ++block->m_nCount;
        // The entries from `index` moved up; the current index follows so the current entry
        // stays the same. In an empty container the new entry becomes the current one.
        if (block == m_pCurBlock && index <= m_nCurIndex && m_nCount != 0)
            ++m_nCurIndex;
    }
    ++m_nCount;
}

// Splits a full block: the smaller part of its entries moves to a new block, in front of the
// block when the insertion point lies in its lower half, behind it otherwise, and the new
// entry goes into the new block next to them.
void Container::SplitInsert(void* p, CBlock* block, uint16_t index)
{
    const uint16_t count = block->m_nCount;
    const bool inFront = index < count / 2;
    const auto moving = static_cast<uint16_t>(inFront ? index : count - index);
    // Room for the moving entries rounded up to the next step; an exact multiple gets one more
    // step, which also leaves room for the new entry.
    auto* added = new CBlock(static_cast<uint16_t>((moving / m_nReSize + 1) * m_nReSize));
    added->m_nCount = static_cast<uint16_t>(moving + 1);
    block->m_nCount = static_cast<uint16_t>(count - moving);
    if (inFront) {
        MoveEntries(added->m_pEntries, block->m_pEntries, index);
        added->m_pEntries[index] = p;
        MoveEntries(block->m_pEntries, block->m_pEntries + index, block->m_nCount);
        if (block->m_pPrev)
            LinkBehind(block->m_pPrev, added);
        else {
            added->m_pNext = block;
            block->m_pPrev = added;
            m_pFirstBlock = added;
        }
        if (block == m_pCurBlock) {
            if (m_nCurIndex < index)
                m_pCurBlock = added;
            else
                m_nCurIndex = static_cast<uint16_t>(m_nCurIndex - index);
        }
    } else {
        added->m_pEntries[0] = p;
        MoveEntries(added->m_pEntries + 1, block->m_pEntries + index, moving);
        LinkBehind(block, added);
        if (block == m_pLastBlock)
            m_pLastBlock = added;
        if (block == m_pCurBlock && m_nCurIndex >= index) {
            m_pCurBlock = added;
            m_nCurIndex = static_cast<uint16_t>(m_nCurIndex - index + 1);
        }
    }
}

void* Container::ImpRemove(CBlock* block, uint16_t index)
{
    void* p = block->m_pEntries[index];
    if (m_nCount == 1) {
        block->m_nCount = 0;
        m_nCount = 0;
        m_pCurBlock = block;
        m_nCurIndex = 0;
        return p;
    }
    --m_nCount;
    if (block->m_nCount > 1) {
        const auto remaining = static_cast<uint16_t>(block->m_nCount - 1);
        // Shrinking only a quarter step below a step boundary keeps a removal that follows
        // an insertion (or the reverse) from reallocating each time.
        if (remaining == block->m_nCapacity - m_nReSize / 4 - m_nReSize) {
            void** entries = new void*[block->m_nCapacity - m_nReSize]();
            MoveEntries(entries, block->m_pEntries, index);
            MoveEntries(entries + index, block->m_pEntries + index + 1, remaining - index);
            delete[] block->m_pEntries;
            block->m_pEntries = entries;
            block->m_nCapacity = static_cast<uint16_t>(block->m_nCapacity - m_nReSize);
        } else {
            MoveEntries(block->m_pEntries + index, block->m_pEntries + index + 1, remaining - index);
        }
        block->m_nCount = remaining;
        if (block == m_pCurBlock && (index < m_nCurIndex || m_nCurIndex == remaining))
            --m_nCurIndex;
        return p;
    }
    // The block's only entry, and other blocks hold the rest: the block goes.
    CBlock* prev = block->m_pPrev;
    CBlock* next = block->m_pNext;
    (prev ? prev->m_pNext : m_pFirstBlock) = next;
    (next ? next->m_pPrev : m_pLastBlock) = prev;
    if (block == m_pCurBlock) {
        m_pCurBlock = next ? next : prev;
        m_nCurIndex = next ? 0 : static_cast<uint16_t>(prev->m_nCount - 1);
    }
    delete block;
    return p;
}

uint32_t Container::ChangeSize(uint32_t size)
{
    const uint32_t old = m_nCount;
    if (size > m_nCount)
        GrowTo(size);
    else if (size < m_nCount)
        ShrinkTo(size);
    return old;
}

// Fills the last block up to the block size, then appends blocks of the block size and a last
// one with the remainder; every new entry is null.
void Container::GrowTo(uint32_t size)
{
    uint32_t missing = size - m_nCount;
    CBlock* last = m_pLastBlock;
    const auto fill = static_cast<uint16_t>(std::min<uint32_t>(missing, m_nBlockSize - last->m_nCount));
    if (fill) {
        const auto count = static_cast<uint16_t>(last->m_nCount + fill);
        if (count > last->m_nCapacity)
            last->Reallocate(count);
        std::fill_n(last->m_pEntries + last->m_nCount, fill, nullptr);
        last->m_nCount = count;
        missing -= fill;
    }
    while (missing) {
        const auto count = static_cast<uint16_t>(std::min<uint32_t>(missing, m_nBlockSize));
        auto* block = new CBlock(count);
        block->m_nCount = count;
        LinkBehind(last, block);
        last = block;
        missing -= count;
    }
    m_pLastBlock = last;
    m_nCount = size;
}

// Frees the blocks behind the new last entry and cuts its block to length; storage for at least
// one entry stays.
void Container::ShrinkTo(uint32_t size)
{
    uint16_t index = 0;
    CBlock* keep = size ? ImpLocate(size - 1, index) : m_pFirstBlock;
    const auto kept = static_cast<uint16_t>(size ? index + 1 : 0);
    bool curFreed = false;
    for (CBlock* block = keep->m_pNext; block;) {
        CBlock* next = block->m_pNext;
        curFreed = curFreed || block == m_pCurBlock;
        delete block;
        block = next;
    }
    keep->m_pNext = nullptr;
    m_pLastBlock = keep;
    keep->m_nCount = kept;
    const auto capacity = std::max<uint16_t>(kept, 1);
    if (keep->m_nCapacity != capacity)
        keep->Reallocate(capacity);
    m_nCount = size;
    // The current position stays where it was, unless its entry was cut away: then it moves to
    // the new last entry rather than pointing outside the entries.
    if (curFreed || (m_pCurBlock == keep && m_nCurIndex >= kept)) {
        m_pCurBlock = keep;
        m_nCurIndex = static_cast<uint16_t>(kept ? kept - 1 : 0);
    }
}

} // namespace vesk
