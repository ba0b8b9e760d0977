#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>

namespace vesk {

struct ConfigData;

// Settings in a profile file: sections headed "[group]" holding key=value lines. An object
// names one file and a current group, in which keys are read and written. Values are stored
// with every '/' and every byte of 128 or more written as '/' and two upper-case hexadecimal
// digits, so that any UTF-8 text survives a round trip. Path, group and key names are UTF-8.
// Reads of missing files, groups or keys give the default; nothing raises errors.
class VESK_API Config {
public:
    // "<program>.ini" in the user's config directory, after the running program's file name
    // (/proc/self/exe); a name ending in ".exe" (any case) has that ending replaced by ".ini".
    Config();
    // The file at pathName; a name without '/' is a file in the user's config directory.
    Config(const SString& pathName);
    // Copies path and group; the cached key list is not copied.
    Config(const Config& config);
    Config& operator=(const Config& config);
    virtual ~Config();

    // Equal when path names and groups are equal byte for byte.
    bool operator==(const Config& config) const;
    bool operator!=(const Config& config) const;

    SString GetPathName() const;
    SString GetGroup() const;
    // Selects the group that keys are read from and written to.
    void SetGroup(const SString& group);

    // The value of key in the current group; empty when absent.
    SString ReadKey(const SString& key) const;
    // The value of key in the current group, or defaultValue when absent.
    SString ReadKey(const SString& key, const SString& defaultValue) const;
    // The value of the index-th key of the current group; empty when there is none.
    SString ReadKey(unsigned short index) const;
    // The number of keys in the current group.
    unsigned short GetKeyCount() const;
    // The index-th key name of the current group; empty when out of range.
    SString GetKeyName(unsigned short index) const;

    // Writes value under key in the current group; false when the file cannot be written or
    // the value holds a line break (which the file's lines cannot carry).
    bool WriteKey(const SString& key, const SString& value);
    // Removes key from the current group.
    void DeleteKey(const SString& key);
    // Removes a group (not necessarily the current one) with all its keys.
    void DeleteGroup(const SString& group);
    // Makes the file durable on disk.
    void Flush();

protected:
    // Discards the cached key list of the current group.
    void DeleteGroupBuf();

private:
    // Fills the key list when there is none; false when the group has no keys.
    bool FillKeyList() const;
    // The index-th name of the key list; false when out of range.
    bool KeyNameAt(unsigned short index, const char16_t*& name) const;

    ConfigData* m_pData;
};

} // namespace vesk
