#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/text/UString.hpp>

#include <cstdint>

namespace vesk {

struct DirEntryAccess;

// The kind of text a DirEntry was parsed from.
enum DirEntryFlag : uint32_t {
    DIRENTRY_DRIVE = 1,    // made by GetDevice or GetVolume: the entry stands for a drive
    DIRENTRY_ROOTED = 2,   // anchored at a root: a network path, or a device and a separator
    DIRENTRY_RELATIVE = 3, // a relative path, or a device without a following separator
    DIRENTRY_UNPARSED = 5, // just constructed, or an empty or unusable text
};

// A file-system path, parsed once into a device ("C:", "\\server\share", "http:"), a
// directory path, a base name and an extension; '\' and '/' both separate. The parts keep the
// UTF-8 flag that the text's bytes call for.
//
// On Linux a path such as "/home/a.txt" has no device: its path is "/home/". Operations that
// reach the file system hand it the full text with every '\' turned into '/' (a valid entry
// whose full text is empty, as parsed from ".", stands for "."); a device such as "C:" is an
// ordinary name there. A colon always ends a device, wherever it stands: "dir/a:b" has the
// device "dir/a:" and the base "a:b", and its full text repeats the "a:"; such names need a
// path without the colon. Path arithmetic (levels, joining, containment) is lexical: "." and ".."
// are names like any other and symbolic links are not resolved. The queries Exists and
// GetFileSize look the path up as FileStat does: first as its text in UTF-8, then as its bytes.
class VESK_API DirEntry {
public:
    // All parts empty, the given flag, not valid.
    explicit DirEntry(DirEntryFlag flag = DIRENTRY_UNPARSED);
    // Parses the text (a ';' and what follows it are dropped).
    DirEntry(const SString& text);

    // Whether the text could be parsed.
    bool IsValid() const { return m_bValid; }
    // The flag of the parse (DIRENTRY_DRIVE for GetDevice and GetVolume entries).
    DirEntryFlag GetFlag() const { return m_eFlag; }

    // The file name without its extension.
    SString GetBase() const { return m_aBase; }
    // The text after the extension dot, without the dot.
    SString GetExtension() const { return m_aExt; }
    // Base, then "." and the extension when the extension is not empty.
    SString GetName() const { return m_aName; }
    // Sets the base name; returns the previous one.
    SString ChangeBase(const SString& base);
    // Sets the extension; returns the previous one.
    SString ChangeExtension(const SString& extension);
    // Clears base and extension.
    void CutName();

    // Device, path and name; with `withSeparator` a '/' (when the text holds one, else '\')
    // is appended unless the text already ends in a separator.
    SString GetFull(bool withSeparator = false) const;
    // The device part parsed as an entry of its own, with the flag DIRENTRY_DRIVE.
    DirEntry GetDevice() const;

    // Whether the device part is not empty (a Linux path "/x" has none).
    bool IsAbsolute() const { return !!m_aDevice; }
    // Valid with a device, no name and a path that is empty or one separator.
    bool IsRoot() const;
    // Whether base or extension is not empty.
    bool HasName() const { return !!m_aBase || !!m_aExt; }
    // HasName, and the base is not "..".
    bool HasLegalName() const;
    // Whether the device starts with "file:", "ftp:", "http:" or "https:" (both for IsHttp),
    // "https:", "data:", in any case.
    bool IsFile() const;
    bool IsFtp() const;
    bool IsHttp() const;
    bool IsHttps() const;
    bool IsData() const;

    // The full text as UTF-16 (decoded as UTF-8 when the bytes hold UTF-8, else in the system
    // code page).
    UString GetFullW() const;
    // The full text in the platform's native wide form, which on this platform is UTF-16.
    UString GetFullT() const { return GetFullW(); }
    // A copy whose parts are converted from the system code page to UTF-8 (parts already in
    // UTF-8 stay as they are).
    DirEntry AnsiToUTF8() const;
    // A copy whose UTF-8 parts are converted to the system code page; other parts stay.
    DirEntry UTF8ToAnsi() const;

    // Valid and found on the file system; a root must also be a mount point.
    bool Exists() const;
    // The size of the file in bytes; -1 when it cannot be read (0 for a directory).
    int64_t GetFileSize() const;

    // The number of levels: the directory names of the path and the name, empty names
    // ("a//b") skipped; the device is no level.
    unsigned int Level() const;
    // The name at `level`, counted from the outermost (0) to the entry's own name
    // (Level() - 1), parsed as an entry; an invalid entry past the last level.
    DirEntry operator[](unsigned int level) const;
    // Appends a relative entry as levels below this one, with '/' between them unless this
    // text separates only with '\'. An entry with a device or a path starting at a separator
    // replaces this one, as does any entry appended to an invalid one; an invalid entry
    // changes nothing.
    DirEntry& operator+=(const DirEntry& entry);

    // The directory part: this entry without its name.
    DirEntry GetPath() const;
    // This entry relative to the directory `base`: "../" for each level of `base` beyond the
    // levels both share, then the rest of this entry. A copy of this entry when the two differ
    // in device or in being rooted at a separator, or when either is invalid.
    DirEntry GetPathRelTo(const DirEntry& base) const;
    // The name of the directory that holds the entry's name: the last name of the path part;
    // empty when the path has none.
    SString GetParentDirName() const;
    // The mount point that holds the entry (the nearest existing ancestor for a missing
    // path) as a drive: no name, a closing separator ("/dev/shm/"), the flag DIRENTRY_DRIVE;
    // invalid when it cannot be found.
    DirEntry GetVolume() const;
    // The full text shortened for display to at most `maxLength` bytes: leading directories
    // give way to "..." ("/home/.../docs/a.txt"); when the name alone does not fit, "..." and
    // the end of the text (never a torn UTF-8 sequence in a UTF-8 text).
    SString GetFullLimited(unsigned int maxLength) const;
    // Whether `entry` lies below this directory: same device, same rooting, and this entry's
    // levels are the first levels of `entry`, which has more of them. Case-sensitive.
    bool Contains(const DirEntry& entry) const;
    // Whether this entry lies below `dir` (dir.Contains(*this)).
    bool IsPartOf(const DirEntry& dir) const { return dir.Contains(*this); }

    // Whether the entry is a directory itself, not a symbolic link to one, and not named
    // "." or "..".
    bool IsNormalDir() const;
    // Whether the process may write the entry: an existing one must be writable, a missing one
    // needs a writable directory to be created in.
    bool CanWriteTo() const;
    // Whether the entry lies below the temporary directory ($TMPDIR when it is an absolute
    // path, else /tmp), compared lexically.
    bool HasTempPath() const;
    // Creates a new empty file with a unique name (exclusive creation, mode 0600) and returns
    // its entry: in this directory when the entry has no name (the temporary directory for an
    // empty entry), else beside it, named from its base with six random characters appended
    // and its extension kept. An invalid entry when the file cannot be created.
    DirEntry TempName() const;

    // Creates the directory with any missing parents (mode 0777 less the umask); true when it
    // exists afterwards.
    bool MakeDir() const;
    // Removes a file, a symbolic link (never its target) or an empty directory.
    bool Kill() const;
    // Removes a directory with everything in it. Symbolic links inside are removed, never
    // followed, and a symbolic link named by the entry itself is not removed (false).
    bool KillDir() const;
    // Copies the file to `target` (into it, under the same name, when `target` is a
    // directory). The data goes to a temporary file beside the target that then replaces it in
    // one rename, so no half-written target ever exists; permissions and times are kept, the
    // owner when the process may set it. A killed copy can leave that temporary behind, named
    // ".<name>.XXXXXX".
    bool CopyTo(const DirEntry& target) const;
    // Moves the file or directory to `target` (into it when `target` is a directory) by
    // renaming; a file on another file system is copied as by CopyTo and then removed.
    bool MoveTo(const DirEntry& target) const;

private:
    friend struct DirEntryAccess;

    // Parses `text` into the parts.
    void Construct(const SString& text);
    // Recomputes the cached name from base and extension.
    void UpdateName();
    // A copy with every part passed through `convert`.
    DirEntry Converted(SString (*convert)(const SString&)) const;

    SString m_aDevice;
    SString m_aPath;
    SString m_aBase;
    SString m_aExt;
    SString m_aName;
    DirEntryFlag m_eFlag;
    bool m_bValid;
};

// `a` with `b` appended (see DirEntry::operator+=).
VESK_API DirEntry operator+(const DirEntry& a, const DirEntry& b);

} // namespace vesk
