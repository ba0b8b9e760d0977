#pragma once

#include <cstdint>

namespace vesk {

// Result of load, save and write operations.
enum ERRCODE : int32_t {
    ERR_OK = 0,
    ERR_FAILURE = 1,
};

} // namespace vesk
