// Arbitrary bytes as the content of a data buffer, for the record checks of the fuzz targets
// and the tests.
#pragma once

#include <vesk/docking/DataBuffer.hpp>

#include <cstddef>
#include <cstdint>

namespace databuffer_input {

// The content `data` in a buffer, its cursor on the first content byte.
inline vesk::DataBuffer BufferOf(const uint8_t* data, size_t size)
{
    vesk::DataBuffer buffer;
    buffer.WriteBytes(data, static_cast<int32_t>(size));
    buffer.SetPos(vesk::DATABUFFER_CONTENT_START);
    return buffer;
}

} // namespace databuffer_input
