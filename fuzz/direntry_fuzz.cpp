// Parses any bytes as a path. The parts must be slices of the text: its full text gives the
// text back up to a ';' (less the dot of an empty extension), and parses to the same parts.
// Not where a colon follows the last separator: the device then reaches into the name.
#include <vesk/files.hpp>

#include "files/DirEntry_p.hpp"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace vesk;
using vesk::detail::View;

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

// Whether the device (up to the first colon) and the name (after the last separator) of a
// text overlap: then the full text repeats the overlap and cannot give the text back.
bool DeviceOverlapsName(std::string_view text)
{
    const bool network = text.size() > 1 && (text[0] == '/' || text[0] == '\\') && (text[1] == '/' || text[1] == '\\');
    const size_t colon = text.find(':');
    const size_t sep = text.find_last_of("/\\");
    return !network && colon != std::string_view::npos && sep != std::string_view::npos && colon > sep;
}

bool SameParts(const DirEntry& a, const DirEntry& b)
{
    return View(DirEntryAccess::Device(a)) == View(DirEntryAccess::Device(b))
        && View(DirEntryAccess::Path(a)) == View(DirEntryAccess::Path(b)) && View(a.GetBase()) == View(b.GetBase())
        && View(a.GetExtension()) == View(b.GetExtension());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size > STRING_MAXLEN)
        return 0;
    const SString text(reinterpret_cast<const char*>(data), 0, static_cast<unsigned int>(size), true);
    const DirEntry entry(text);
    const std::string_view cut = View(text).substr(0, View(text).find(';'));

    const SString full = entry.GetFull();
    if (!DeviceOverlapsName(cut)) {
        // A dot before an empty extension is the one byte the full text leaves out.
        const bool droppedDot = !entry.GetExtension() && cut.size() == full.Len() + 1 && cut.back() == '.';
        Require(View(full) == cut || droppedDot);
        Require(entry.IsValid() == !cut.empty());
        // Without that dot an earlier dot may mark an extension, so only a full text that kept
        // every byte must parse to the same parts.
        if (!droppedDot)
            Require(SameParts(entry, DirEntry(full)));
    }

    // The other text operations take any entry.
    entry.GetFull(true);
    entry.GetDevice();
    entry.IsRoot();
    entry.HasLegalName();
    entry.GetParentDirName();
    entry.GetFullLimited(static_cast<unsigned int>(size / 2));
    const unsigned int levels = entry.Level();
    Require(!entry[levels].IsValid());
    Require(levels == 0 || entry[0].IsValid());
    const DirEntry half(SString(text, 0, text.Len() / 2));
    entry.GetPathRelTo(half);
    half.Contains(entry);
    (void)(half + entry);
    return 0;
}
