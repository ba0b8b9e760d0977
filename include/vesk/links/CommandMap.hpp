#pragma once

#include <vesk/links/HdlChain.hpp>

#include <map>

namespace vesk {

// One link per command number.
class VESK_API CommandMap {
public:
    // Registers the link unless the command has one already (the first entry stays).
    void Add(int32_t command, const Link& link, bool once);
    // True if an entry was removed.
    bool Remove(int32_t command);
    // Calls the command's link and returns its result, 0 when none is registered. A once-entry
    // is removed after its call (unless its handler has already replaced or removed it).
    int32_t Call(int32_t command, void* data);

private:
    std::map<int32_t, LinkItem> m_aCommands;
};

} // namespace vesk
