#include <vesk/links/CommandMap.hpp>

namespace vesk {

void CommandMap::Add(int32_t command, const Link& link, bool once)
{
    m_aCommands.try_emplace(command, link, once);
}

bool CommandMap::Remove(int32_t command)
{
    return m_aCommands.erase(command) != 0;
}

int32_t CommandMap::Call(int32_t command, void* data)
{
    const auto found = m_aCommands.find(command);
    if (found == m_aCommands.end())
        return 0;
    const LinkItem item = found->second;
    const int32_t result = item.GetLink().Call(data);
    if (item.IsOnce()) {
        // Looked up again: the handler may have changed the map.
        const auto after = m_aCommands.find(command);
        if (after != m_aCommands.end() && after->second.IsOnce() && after->second.GetLink() == item.GetLink())
            m_aCommands.erase(after);
    }
    return result;
}

} // namespace vesk
