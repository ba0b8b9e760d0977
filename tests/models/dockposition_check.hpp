// Reads dock positions and neighbours from arbitrary bytes and checks that a position read
// successfully is written back to a record that reads back to the same position. Shared by
// the fuzz target and the docking tests.
#pragma once

#include "models/databuffer_input.hpp"

#include <vesk/docking.hpp>

#include <cstddef>
#include <cstdint>
#include <string>

namespace dockposition_check {

// Positions read from one input, one after the other.
inline constexpr int MAX_RECORDS = 16;

using databuffer_input::BufferOf;

// Writes `p` and reads the record into a copy of `base`; false, with `failed` set, when the
// read fails, differs from `p` or writes different bytes.
inline bool RoundTrip(const vesk::DockPosition& p, const vesk::DockPosition& base, std::string& failed)
{
    vesk::DataBuffer written;
    p.WriteToDataBuffer(written);
    written.SetPos(vesk::DATABUFFER_CONTENT_START);
    vesk::DockPosition back(base);
    if (!back.ReadFromDataBuffer(written) || !(back == p)) {
        failed = "read back of " + std::string(static_cast<const char*>(p.GetName()));
        return false;
    }
    vesk::DataBuffer again;
    back.WriteToDataBuffer(again);
    if (again.GetBytes() != written.GetBytes()) {
        failed = "second write of " + std::string(static_cast<const char*>(p.GetName()));
        return false;
    }
    return true;
}

// Runs both readers over `data`; every position that reads true must survive RoundTrip.
inline bool Run(const uint8_t* data, size_t size, std::string& failed)
{
    vesk::DataBuffer neighbourBuffer = BufferOf(data, size);
    vesk::DockNeighbour neighbour;
    neighbour.ReadFromDataBuffer(neighbourBuffer);

    // Every position starts as the same base, so fields a record leaves alone compare equal.
    vesk::DockPosition base;
    base.SetRectRecentFloat(vesk::CRectangle(100, 100, 499, 399));
    vesk::DataBuffer buffer = BufferOf(data, size);
    for (int i = 0; i < MAX_RECORDS && buffer.GetPos() < buffer.GetContentSize() + vesk::DATABUFFER_CONTENT_START;
         ++i) {
        vesk::DockPosition p(base);
        if (p.ReadFromDataBuffer(buffer) && !RoundTrip(p, base, failed))
            return false;
    }
    return true;
}

} // namespace dockposition_check
