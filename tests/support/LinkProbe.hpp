#pragma once

#include <vesk/links.hpp>

#include <functional>
#include <vector>

// A handler object for link tests: it records itself into the call log passed as data, runs an
// optional action and returns its result. Probes kept in one array order as links by address.
struct LinkProbe {
    using Log = std::vector<const LinkProbe*>;

    int32_t Handle(void* data)
    {
        static_cast<Log*>(data)->push_back(this);
        if (action)
            action();
        return result;
    }
    vesk::Link GetLink() { return vesk::MakeLink<&LinkProbe::Handle>(this); }

    int32_t result = 0;
    std::function<void()> action;
};
