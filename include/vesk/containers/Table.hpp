#pragma once

#include <vesk/containers/Container.hpp>

namespace vesk {

// A map from 32-bit unsigned keys to untyped pointers, sorted by key. Each association is two
// consecutive container entries, the key (as a pointer-sized number) and then the value; the
// current position is always on a key.
class VESK_API Table : private Container {
public:
    // Block size 16368, initial size 2 * initSize, re-size 2 * reSize; no associations.
    Table(uint16_t initSize, uint16_t reSize);

    // Same associations in the same order.
    bool operator==(const Table& other) const;

    // Adds the association at its sorted place; false when the key is present already.
    bool Insert(uint32_t key, void* value);
    // Removes the association and returns its value, or null if the key is absent.
    void* Remove(uint32_t key);
    // Gives the key a new value and returns the old one; null, and no change, if it is absent.
    void* Replace(uint32_t key, void* value);
    // The key's value, or null.
    void* Get(uint32_t key) const;
    // Whether the key is present.
    bool IsKeyValid(uint32_t key) const;
    // The first key (in key order) holding `value`, or 0xFFFFFFFF.
    uint32_t GetKey(const void* value) const;

    // Moves to the key and returns its value; null and no move if it is absent.
    void* Seek(uint32_t key);
    // Moves to the first association holding `value` and returns it; null and no move if absent.
    void* Seek(void* value);
    // Move by whole associations and return the value; null at either end or when empty.
    void* First();
    void* Last();
    void* Next();
    void* Prev();
    // The current association's key, or 0xFFFFFFFF when the table is empty.
    uint32_t GetCurKey() const;
    // The current association's value, or null when the table is empty.
    void* GetCurObject() const;

    // Number of associations.
    uint32_t Count() const { return m_nAssocCount; }
    void Clear();

private:
    void* StepAssociation(bool (*step)(CBlock*&, uint16_t&));

    uint32_t m_nAssocCount = 0;
};

} // namespace vesk
