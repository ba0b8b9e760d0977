#pragma once

#include <vesk/export.hpp>

#include <cstdint>

namespace vesk {

// Positions, counts and keys are 32-bit unsigned (uint32_t).
inline constexpr uint16_t CONTAINER_MAXBLOCKSIZE = 16368;
inline constexpr uint32_t CONTAINER_APPEND = 0xFFFFFFFF;
inline constexpr uint32_t CONTAINER_ENTRY_NOTFOUND = 0xFFFFFFFF;

// One link of a container's block chain: an array of `m_nCapacity` entries, `m_nCount` in use.
class VESK_API CBlock {
public:
    // Makes a block with a zeroed array of `capacity` entries, linked to nothing.
    explicit CBlock(uint16_t capacity);
    ~CBlock();
    CBlock(const CBlock&) = delete;
    CBlock& operator=(const CBlock&) = delete;

    // Replaces the array by one of `capacity` entries holding the first `count` entries.
    void Reallocate(uint16_t capacity);

    CBlock* m_pPrev = nullptr;
    CBlock* m_pNext = nullptr;
    uint16_t m_nCapacity;
    uint16_t m_nCount = 0;
    void** m_pEntries;
};

// A list of untyped pointers in a chain of blocks, with a current position for iteration.
// The container never owns the objects its entries point to. A literal 0 position must be
// written 0u, since 0 also converts to the pointer overloads.
class VESK_API Container {
public:
    // Block size clamped to 4..16368 and adjusted to the re-size step; see the source.
    Container(uint16_t blockSize, uint16_t initSize, uint16_t reSize);
    // max(size, 1) null entries in full blocks of 16368; initial size and re-size 1.
    explicit Container(uint32_t size);
    Container(const Container& other);
    Container& operator=(const Container& other);
    ~Container();

    // Same count and the same pointer at every position.
    bool operator==(const Container& other) const;

    // Inserts before the current entry.
    void Insert(void* p);
    // Inserts at min(position, Count()).
    void Insert(void* p, uint32_t position);
    // Inserts in front of the first entry equal to `before`; nothing if it is absent.
    void Insert(void* p, void* before);

    // Remove the current entry, the entry at a position or the first entry equal to `p`;
    // each returns the removed pointer, or null when there is none.
    void* Remove();
    void* Remove(uint32_t position);
    void* Remove(void* p);

    // Replace the current entry, the entry at a position or the first entry equal to `old`;
    // each returns the replaced pointer, or null when there is none.
    void* Replace(void* p);
    void* Replace(void* p, uint32_t position);
    void* Replace(void* p, void* old);

    // The entry at a position, null beyond the count.
    void* GetCntObject(uint32_t position) const;
    // The address of the entry at a position, for writing; null beyond the count.
    void** GetObjectPtr(uint32_t position);
    // The current entry, null when empty.
    void* GetCurObject() const;
    // Position of the first entry equal to `p`, or CONTAINER_ENTRY_NOTFOUND.
    uint32_t GetPos(const void* p) const;
    // The current position, or CONTAINER_ENTRY_NOTFOUND when empty.
    uint32_t GetCurPos() const;

    // Moves to the first entry and returns it (null when empty).
    void* First();
    // Moves to the last entry and returns it (null when empty).
    void* Last();
    // Moves one entry on; at the end returns null and stays on the last entry.
    void* Next();
    // Moves one entry back; at the start returns null and stays on the first entry.
    void* Prev();
    // Moves to min(position, Count() - 1) and returns that entry (null when empty).
    void* Seek(uint32_t position);
    // Moves to the first entry equal to `p` and returns it; null and no move if absent.
    void* Seek(void* p);

    // Number of entries.
    uint32_t Count() const { return m_nCount; }
    // Removes every entry, keeping one empty block of the initial size.
    void Clear();
    // Sets the count to `size`; new entries are null. Returns the old count.
    uint32_t ChangeSize(uint32_t size);

protected:
    void ImpInsert(void* p, CBlock* block, uint16_t index);
    void* ImpRemove(CBlock* block, uint16_t index);
    // The entry at a position below the count, without range test.
    void* ImpGetObject(uint32_t position) const;
    // The block and index of a position; a position at the count gives the end of the last block.
    CBlock* ImpLocate(uint32_t position, uint16_t& index) const;
    // Move a block and index one entry on or back; false, unchanged, at either end.
    static bool ImpStepForward(CBlock*& block, uint16_t& index);
    static bool ImpStepBack(CBlock*& block, uint16_t& index);

    CBlock* m_pFirstBlock;
    CBlock* m_pLastBlock;
    CBlock* m_pCurBlock;
    uint16_t m_nCurIndex = 0;
    uint16_t m_nBlockSize;
    uint16_t m_nInitSize;
    uint16_t m_nReSize;
    uint32_t m_nCount = 0;

private:
    void FreeBlocks();
    void CopyBlocks(const Container& other);
    void SplitInsert(void* p, CBlock* block, uint16_t index);
    CBlock* FindEntry(const void* p, uint16_t& index) const;
    uint32_t BlockStart(const CBlock* block) const;
    void GrowTo(uint32_t size);
    void ShrinkTo(uint32_t size);
};

} // namespace vesk
