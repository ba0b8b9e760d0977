#pragma once

#include <vesk/links/Link.hpp>

#include <set>

namespace vesk {

// A link with a flag that drops it after its first call.
class VESK_API LinkItem {
public:
    LinkItem() = default;
    LinkItem(const Link& link, bool once) : m_aLink(link), m_bOnce(once) {}
    // Takes over the link and the flag of `other`.
    void Copy(const LinkItem& other) { *this = other; }

    const Link& GetLink() const { return m_aLink; }
    bool IsOnce() const { return m_bOnce; }

private:
    Link m_aLink;
    bool m_bOnce = false;
};

// A set of links called together. The links are kept in link order (each at most once) and
// called in that order, not in the order they were added.
class VESK_API HdlChain {
public:
    // Adds the link; a link already in the chain keeps its entry and its `once` flag.
    void Add(const Link& link, bool once);
    // Removes the link; true if it was in the chain.
    bool Remove(const Link& link);
    // Removes every link; it cannot fail (a failure inside would end the program).
    void Clear() noexcept { m_aLinks.clear(); }
    bool IsEmpty() const { return m_aLinks.empty(); }
    // Calls every link with `data` and returns the sum of the results. A call made while the
    // chain is calling returns 0 at once. Once-links are removed before their call. A handler
    // may add or remove links, itself included, or clear the chain: the walk goes on with the
    // links that follow the one just called.
    int32_t Call(void* data);

private:
    struct ByLink {
        using is_transparent = void;
        bool operator()(const LinkItem& a, const LinkItem& b) const { return a.GetLink() < b.GetLink(); }
        bool operator()(const LinkItem& a, const Link& b) const { return a.GetLink() < b; }
        bool operator()(const Link& a, const LinkItem& b) const { return a < b.GetLink(); }
    };

    std::set<LinkItem, ByLink> m_aLinks;
    bool m_bCalling = false;
};

} // namespace vesk
