#pragma once

#include <vesk/datetime/Date.hpp>
#include <vesk/datetime/Time.hpp>
#include <vesk/export.hpp>
#include <vesk/files/DirEntry.hpp>
#include <vesk/text/SString.hpp>

#include <cstdint>

namespace vesk {

// Result of the last FileStat::Update.
enum FSysError : uint32_t {
    FSYS_ERR_OK = 0,
    FSYS_ERR_NOTFOUND = 3, // the path or drive could not be queried
    FSYS_ERR_INVALID = 14, // no valid path entry
};

// The file-system style of a drive.
enum FSysPathStyle : uint32_t {
    FSYS_STYLE_FAT = 1,
    FSYS_STYLE_HPFS = 2,
    FSYS_STYLE_NTFS = 3,
    FSYS_STYLE_NWFS = 4,
    FSYS_STYLE_UNKNOWN = 9,
};

// Bits of FileStat::GetKind.
inline constexpr int FSYS_KIND_NONE = 0;
inline constexpr int FSYS_KIND_FILE = 1;
inline constexpr int FSYS_KIND_DIR = 2;
inline constexpr int FSYS_KIND_WILD = 32; // the name holds '?', '*' or ';'
inline constexpr int FSYS_KIND_REMOVABLE = 128;
inline constexpr int FSYS_KIND_FIXED = 256;
inline constexpr int FSYS_KIND_REMOTE = 512;
inline constexpr int FSYS_KIND_RAM = 1024;
inline constexpr int FSYS_KIND_CDROM = 2048;

// A snapshot of what the file system says about one path: existence and kind, 64-bit size,
// creation, modification and access times, attribute bits and, for a drive, its file-system
// style.
//
// On Linux the status comes from statx, following a symbolic link. Times are UTC calendar
// fields with hundredths (a time outside the years 1601 to 30827 reads as date 0, time 0); the
// creation time is the birth time where the file system keeps one, else the inode change time.
// Attribute bits: 1 read-only (the owner may not write), 2 hidden (the name starts with a dot),
// 4 system (a device, pipe or socket), 16 directory, 128 normal (a regular file with no other
// bit), 1024 the path is a symbolic link, 2048 compressed, 16384 encrypted. A directory has
// size 0.
//
// A drive entry is a DirEntry with the flag DIRENTRY_DRIVE (from DirEntry::GetVolume or
// GetDevice); its full path must be a mount point, else the drive counts as missing. Its kind
// comes from /proc/self/mountinfo: remote for nfs, nfs4, cifs, smb3 and fuse.sshfs, RAM disk
// for tmpfs and ramfs, CD-ROM for iso9660 and udf, else removable when the block device's disk
// says so in /sys/block, else fixed. Its style: FAT for vfat and msdos, NTFS for ntfs and
// ntfs3, HPFS for hpfs, NWFS for ncpfs, else unknown.
class VESK_API FileStat {
public:
    // No error, nothing known, style unknown.
    FileStat();
    // Update with the entry.
    explicit FileStat(const DirEntry& entry);

    // Resets (error FSYS_ERR_INVALID), then: an invalid entry fails; a name with '?', '*' or
    // ';' gives FSYS_KIND_WILD and ".." gives FSYS_KIND_DIR, both without a look at the disk;
    // another name is read by path (a failure leaves kind FSYS_KIND_FILE). Without a name, a
    // drive entry gets its drive kind and style; any other entry is a directory: a root (the
    // full text without closing separators equals the device) without a look at the disk,
    // else read by path (a failure still leaves kind FSYS_KIND_DIR). True on success.
    bool Update(const DirEntry& entry);
    // Reads the status of a path: first its characters in UTF-8, then its bytes. On failure
    // kind 0 and FSYS_ERR_NOTFOUND, the other fields keep their values; on success the
    // previous drive bits of the kind stay.
    bool Update(const SString& path);

    FSysError GetError() const { return m_eError; }
    int GetKind() const { return m_nKind; }
    uint64_t GetSize64() const { return (uint64_t(m_nSizeHigh) << 32) | m_nSizeLow; }
    FSysPathStyle GetStyle() const { return m_eStyle; }
    uint32_t GetWinFileAttributes() const { return m_nAttributes; }
    // Never filled on this platform.
    SString GetCreator() const { return m_aCreator; }
    SString GetType() const { return m_aType; }

    Date DateCreated() const { return m_aDateCreated; }
    Time TimeCreated() const { return m_aTimeCreated; }
    Date DateModified() const { return m_aDateModified; }
    Time TimeModified() const { return m_aTimeModified; }
    Date DateAccessed() const { return m_aDateAccessed; }
    Time TimeAccessed() const { return m_aTimeAccessed; }

    // With an error only k = 0 is true; without one, k = 0 is false and any other k is true
    // when all its bits are set.
    bool IsKind(int k) const;
    // Attribute bits 1, 2 and 4.
    bool IsReadOnly() const { return (m_nAttributes & 1) != 0; }
    bool IsHidden() const { return (m_nAttributes & 2) != 0; }
    bool IsSystem() const { return (m_nAttributes & 4) != 0; }
    // Whether this modification stamp is later than the other's (date first, then time).
    bool IsYounger(const FileStat& other) const;

protected:
    // From a directory listing's record of one name (the library's file attribute record; the
    // second argument is not used): size, times and attributes, kind file or directory, no
    // error; the style stays unknown.
    FileStat(const void* record, const void* unused);

private:
    // Takes size, times and attributes from the file attribute record.
    void SetFromRecord(const void* record);
    // The state Update(DirEntry) starts from.
    void Reset();
    // Kind and style of a drive entry; false when it is no drive.
    bool UpdateDrive(const DirEntry& entry);

    FSysError m_eError;
    int m_nKind;
    uint32_t m_nSizeLow;
    uint32_t m_nSizeHigh;
    FSysPathStyle m_eStyle;
    SString m_aCreator;
    SString m_aType;
    Date m_aDateCreated;
    Time m_aTimeCreated;
    Date m_aDateModified;
    Time m_aTimeModified;
    Date m_aDateAccessed;
    Time m_aTimeAccessed;
    uint32_t m_nAttributes;
};

} // namespace vesk
