#include "platform/display/DisplayBackend.hpp"
#include "platform/display/headless/HeadlessBackend.hpp"

namespace vesk::display {

std::unique_ptr<DisplayBackend> CreateHeadlessBackend()
{
    return std::make_unique<HeadlessBackend>();
}

DisplayBackend& GetDisplayBackend()
{
    // Made once, on first use, and kept for the life of the process: windows of any library
    // start may still refer to it.
    static DisplayBackend* const backend = CreateHeadlessBackend().release();
    return *backend;
}

} // namespace vesk::display
