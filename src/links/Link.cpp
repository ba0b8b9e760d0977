#include <vesk/links/Link.hpp>

namespace vesk {

// Each field is read once, atomically, so a concurrent InterlockedClear gives either the old
// value or null for it, never a torn one.
int32_t Link::Call(void* data) const
{
    void* object = __atomic_load_n(&m_pObject, __ATOMIC_RELAXED);
    Handler handler = __atomic_load_n(&m_pHandler, __ATOMIC_RELAXED);
    return object && handler ? handler(object, data) : 0;
}

bool Link::IsSet() const
{
    return __atomic_load_n(&m_pObject, __ATOMIC_RELAXED) && __atomic_load_n(&m_pHandler, __ATOMIC_RELAXED);
}

bool Link::operator<(const Link& other) const
{
    const auto object = reinterpret_cast<uintptr_t>(m_pObject);
    const auto otherObject = reinterpret_cast<uintptr_t>(other.m_pObject);
    if (object != otherObject)
        return object < otherObject;
    return reinterpret_cast<uintptr_t>(m_pHandler) < reinterpret_cast<uintptr_t>(other.m_pHandler);
}

void Link::InterlockedClear()
{
    // A sequentially consistent store is an atomic exchange (xchg) on x86-64.
    __atomic_store_n(&m_pObject, nullptr, __ATOMIC_SEQ_CST);
    __atomic_store_n(&m_pHandler, nullptr, __ATOMIC_SEQ_CST);
}

int64_t Link::DebugVal() const
{
    return static_cast<int64_t>(reinterpret_cast<uintptr_t>(m_pObject) + reinterpret_cast<uintptr_t>(m_pHandler));
}

} // namespace vesk
