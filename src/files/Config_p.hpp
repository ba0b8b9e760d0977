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

// The default profile's file name for a module file: the name without its folder, with "ini" in
// place of the last three characters of a ".exe" name in any case ("app.exe" gives "app.ini")
// and ".ini" appended to any other name ("gedit" gives "gedit.ini", not "gedini").
std::string ImpProfileNameOfModule(std::string moduleFile);

} // namespace vesk
