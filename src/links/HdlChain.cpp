#include <vesk/links/HdlChain.hpp>

namespace vesk {

void HdlChain::Add(const Link& link, bool once)
{
    m_aLinks.emplace(link, once);
}

bool HdlChain::Remove(const Link& link)
{
    const auto found = m_aLinks.find(link);
    if (found == m_aLinks.end())
        return false;
    m_aLinks.erase(found);
    return true;
}

int32_t HdlChain::Call(void* data)
{
    if (m_bCalling)
        return 0;
    m_bCalling = true;
    // The sum wraps around at 32 bits.
    uint32_t sum = 0;
    auto item = m_aLinks.begin();
    while (item != m_aLinks.end()) {
        const Link link = item->GetLink();
        const auto next = std::next(item);
        const bool more = next != m_aLinks.end();
        const Link following = more ? next->GetLink() : Link();
        if (item->IsOnce())
            m_aLinks.erase(item);
        sum += static_cast<uint32_t>(link.Call(data));
        // The handler may have changed the set, so the walk resumes by value: at the link that
        // followed when the call began, or the first one after it if that link has gone.
        item = more ? m_aLinks.lower_bound(following) : m_aLinks.end();
    }
    m_bCalling = false;
    return static_cast<int32_t>(sum);
}

} // namespace vesk
