#include <vesk/files/DirEntry.hpp>

#include "files/DirEntry_p.hpp"

#include <algorithm>

namespace vesk {

using detail::IsSeparator;

namespace {

constexpr uint32_t NONE = STRING_NOTFOUND;

// The positions one left-to-right scan of a path text collects.
struct PathScan {
    uint32_t length = 0; // the text's length after a ';' cut
    uint32_t dot = NONE; // the extension dot
    uint32_t seps[4] = {NONE, NONE, NONE, NONE};
    uint32_t lastSep = NONE;
    uint32_t firstColon = NONE;
    uint32_t lastColon = NONE;

    bool HasSep() const { return seps[0] != NONE; }
};

PathScan ScanPath(const char* p, uint32_t length)
{
    PathScan scan;
    uint32_t i = 0;
    for (; i < length; ++i) {
        switch (p[i]) {
        case '.':
            // The second dot of a ".." that opens a name (at the start, after a separator or
            // after a colon) makes ".." a name of its own, with no extension.
            if (scan.dot != NONE && scan.dot + 1 == i
                && (scan.dot == 0 || scan.dot == scan.lastSep + 1 || scan.dot == scan.lastColon + 1))
                scan.dot = NONE;
            else
                scan.dot = i;
            break;
        case '/':
        case '\\':
            scan.lastSep = i;
            for (uint32_t& slot : scan.seps)
                if (slot == NONE) {
                    slot = i;
                    break;
                }
            // A dot before a separator belongs to a directory name.
            scan.dot = NONE;
            break;
        case ':':
            scan.lastColon = i;
            if (scan.firstColon == NONE)
                scan.firstColon = i;
            break;
        case ';':
            scan.length = i;
            return scan;
        default:
            break;
        }
    }
    scan.length = i;
    return scan;
}

// Characters from..to of s (to excluded); empty when the range is empty or outside s.
SString Sub(const SString& s, uint32_t from, uint32_t to)
{
    return to > from ? SString(s, from, to - from) : SString();
}

// The text with its UTF-8 flag set as its bytes call for, without touching the record that
// the caller's string may share.
SString FlaggedCopy(const SString& text)
{
    const bool utf8 = text.MayBeUTF8();
    if (utf8 == text.IsUTF8())
        return text;
    if (!utf8)
        return SString(static_cast<const char*>(text), 0, text.Len(), true);
    SString s(text);
    s.SetIsUTF8();
    return s;
}

} // namespace

DirEntry::DirEntry(DirEntryFlag flag) : m_eFlag(flag), m_bValid(false) {}

DirEntry::DirEntry(const SString& text) : m_eFlag(DIRENTRY_UNPARSED), m_bValid(false)
{
    Construct(text);
}

void DirEntry::Construct(const SString& text)
{
    m_aDevice.Clear();
    m_aPath.Clear();
    m_aBase.Clear();
    m_aExt.Clear();
    m_eFlag = DIRENTRY_UNPARSED;
    m_bValid = false;
    if (!text) {
        UpdateName();
        return;
    }
    SString s = FlaggedCopy(text);
    const PathScan scan = ScanPath(s, s.Len());
    uint32_t len = scan.length;

    if (scan.seps[0] == 0 && scan.seps[1] == 1) {
        // A network path: the device runs up to its fourth separator.
        m_bValid = true;
        m_eFlag = DIRENTRY_ROOTED;
        if (scan.seps[3] == NONE) {
            m_aDevice = Sub(s, 0, len);
        } else {
            m_aDevice = Sub(s, 0, scan.seps[3]);
            if (scan.dot != NONE) {
                m_aExt = Sub(s, scan.dot + 1, len);
                len = scan.dot;
            }
            if (scan.lastSep + 1 < len) {
                m_aBase = Sub(s, scan.lastSep + 1, len);
                len = scan.lastSep + 1;
            }
            m_aPath = Sub(s, scan.seps[3], len);
        }
        UpdateName();
        return;
    }

    if (len == 0) {
        UpdateName();
        return;
    }
    m_bValid = true;
    if (scan.dot != NONE) {
        m_aExt = Sub(s, scan.dot + 1, len);
        len = scan.dot;
    }
    const bool colon = scan.firstColon != NONE;
    // Positions past a cut read as the text's end, as a copy of a cut string would.
    const uint32_t afterColon = colon ? scan.firstColon + 1 : 0;
    if (!scan.HasSep()) {
        m_aBase = Sub(s, afterColon, len);
        m_aDevice = Sub(s, 0, std::min(afterColon, len));
        m_eFlag = DIRENTRY_RELATIVE;
    } else {
        m_aBase = Sub(s, scan.lastSep + 1, len);
        if (colon) {
            m_aDevice = Sub(s, 0, std::min(afterColon, len));
            m_aPath = Sub(s, afterColon, std::min(scan.lastSep + 1, len));
        } else {
            m_aPath = Sub(s, 0, scan.lastSep + 1);
            m_eFlag = DIRENTRY_RELATIVE;
        }
    }
    if (colon)
        m_eFlag = IsSeparator(afterColon < len ? s[afterColon] : '\0') ? DIRENTRY_ROOTED : DIRENTRY_RELATIVE;
    UpdateName();
}

void DirEntry::UpdateName()
{
    m_aName = m_aBase;
    if (!!m_aExt) {
        m_aName += '.';
        m_aName += m_aExt;
    }
}

SString DirEntry::ChangeBase(const SString& base)
{
    SString old = m_aBase;
    m_aBase = base;
    UpdateName();
    return old;
}

SString DirEntry::ChangeExtension(const SString& extension)
{
    SString old = m_aExt;
    m_aExt = extension;
    UpdateName();
    return old;
}

void DirEntry::CutName()
{
    m_aBase.Clear();
    m_aExt.Clear();
    m_aName.Clear();
}

SString DirEntry::GetFull(bool withSeparator) const
{
    SString full = m_aDevice;
    full += m_aPath;
    full += m_aName;
    if (withSeparator) {
        const unsigned int len = full.Len();
        if (len == 0 || !IsSeparator(full[len - 1]))
            full += full.Search('/') != STRING_NOTFOUND ? '/' : '\\';
    }
    return full;
}

DirEntry DirEntry::GetDevice() const
{
    DirEntry device(m_aDevice);
    device.m_eFlag = DIRENTRY_DRIVE;
    return device;
}

bool DirEntry::IsRoot() const
{
    const unsigned int pathLen = m_aPath.Len();
    return m_bValid && !!m_aDevice && !HasName() && (pathLen == 0 || (pathLen == 1 && IsSeparator(m_aPath[0])));
}

bool DirEntry::HasLegalName() const
{
    return HasName() && m_aBase != "..";
}

bool DirEntry::IsFile() const
{
    return m_aDevice.ICompare("file:", 5) == COMPARE_EQUAL;
}

bool DirEntry::IsFtp() const
{
    return m_aDevice.ICompare("ftp:", 4) == COMPARE_EQUAL;
}

bool DirEntry::IsHttp() const
{
    return m_aDevice.ICompare("http:", 5) == COMPARE_EQUAL || IsHttps();
}

bool DirEntry::IsHttps() const
{
    return m_aDevice.ICompare("https:", 6) == COMPARE_EQUAL;
}

bool DirEntry::IsData() const
{
    return m_aDevice.ICompare("data:", 5) == COMPARE_EQUAL;
}

UString DirEntry::GetFullW() const
{
    return UString(GetFull());
}

DirEntry DirEntry::Converted(SString (*convert)(const SString&)) const
{
    DirEntry entry(*this);
    for (SString* part : {&entry.m_aDevice, &entry.m_aPath, &entry.m_aBase, &entry.m_aExt})
        *part = convert(*part);
    entry.UpdateName();
    return entry;
}

DirEntry DirEntry::AnsiToUTF8() const
{
    return Converted([](const SString& part) { return part.AnsiToUTF8(); });
}

DirEntry DirEntry::UTF8ToAnsi() const
{
    // Text that is not UTF-8 would convert to nothing.
    return Converted([](const SString& part) { return part.IsUTF8() ? part.UTF8ToAnsi() : part; });
}

} // namespace vesk
