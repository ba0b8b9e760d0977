#pragma once

#include <vesk/export.hpp>

#include <cstdint>
#include <type_traits>

namespace vesk {

// A callback: an object and a handler to call on it with one `void*`, returning a 32-bit result.
//
// The handler is stored as one plain function pointer taking the object and the data. A member
// function of any class is stored through a small forwarding function generated per member by
// MakeLink, so every link has the same two pointer-sized fields whatever the class:
//
//     Link onClick = MakeLink<&Dialog::OnClick>(this);   // int32_t Dialog::OnClick(void*)
//
// The forwarding function of one member has one address per binary; a link made for the same
// member inside another shared object may compare unequal.
class VESK_API Link {
public:
    using Handler = int32_t (*)(void* object, void* data);

    Link() = default;
    Link(void* object, Handler handler) : m_pObject(object), m_pHandler(handler) {}

    // Calls the handler on the object when the link is set; otherwise returns 0.
    int32_t Call(void* data) const;
    // Whether both the object and the handler are non-null.
    bool IsSet() const;
    bool operator!() const { return !IsSet(); }
    // Ordered by object address, then by handler address, both unsigned; equal when both match.
    bool operator==(const Link& other) const = default;
    bool operator<(const Link& other) const;
    // Nulls both fields, each by an atomic exchange, so a concurrent Call sees each field either
    // as it was or null.
    void InterlockedClear();
    // Sum of the two field values, for diagnostics.
    int64_t DebugVal() const;

private:
    void* m_pObject = nullptr;
    Handler m_pHandler = nullptr;
};

namespace detail {

template <class Member>
struct LinkMember;
template <class T, class R>
struct LinkMember<R (T::*)(void*)> {
    using Class = T;
};
template <class T, class R>
struct LinkMember<R (T::*)(void*) const> {
    using Class = const T;
};

template <auto Member>
int32_t CallLinkMember(void* object, void* data)
{
    using Class = typename LinkMember<decltype(Member)>::Class;
    return static_cast<int32_t>((static_cast<Class*>(object)->*Member)(data));
}

} // namespace detail

// A link calling `Member` (a member function taking `void*` and returning an integer) on `object`.
template <auto Member>
Link MakeLink(typename detail::LinkMember<decltype(Member)>::Class* object)
{
    return Link(const_cast<void*>(static_cast<const void*>(object)), &detail::CallLinkMember<Member>);
}

} // namespace vesk
