#pragma once

#include <vesk/text/SString.hpp>

#include <string>

namespace vesk {

// A Config's heap record. The path goes to the profile engine as it is (file names are bytes
// on this platform); the group is kept in UTF-16 as well, the form every profile call takes.
struct ConfigData {
    SString pathName;
    SString group;
    std::u16string wideGroup;
    // The current group's key names as the profile reader lists them: each ended by a zero.
    std::u16string keyList;
    bool hasKeyList = false;
};

} // namespace vesk
