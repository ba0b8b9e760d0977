// A short tour of what Vesk can do so far.
#include <vesk/vesk.hpp>

#include <cstdio>
#include <cstring>

using namespace vesk;

namespace {

void Strings()
{
    std::printf("Strings\n");
    SString greeting("Hello");
    SString copy = greeting; // shares the record; no text is copied
    copy += ", Vesk";
    std::printf("  \"%s\" and its edited copy \"%s\"\n", static_cast<const char*>(greeting),
                static_cast<const char*>(copy));
    std::printf("  SString(-5, 4) pads in front of the sign: \"%s\"\n", static_cast<const char*>(SString(-5, 4)));
    const UString wide(SString("Gr\xC3\xBC\xC3\x9F" "e"));
    std::printf("  UTF-8 \"Gr\xC3\xBC\xC3\x9F" "e\" is %u UTF-16 characters, back as UTF-8: \"%s\"\n", wide.Len(),
                static_cast<const char*>(wide.GetUTF8()));
}

void Values()
{
    std::printf("Values\n");
    const CRectangle a(0, 0, 9, 9);
    const CRectangle b(5, 5, 14, 14);
    std::printf("  %s intersected with %s is %s\n", static_cast<const char*>(a.GetStr()),
                static_cast<const char*>(b.GetStr()), static_cast<const char*>(a.GetIntersection(b).GetStr()));
    const Date date(15, 3, 2024);
    static const char* const days[] = { "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday" };
    std::printf("  15 March 2024 is a %s in week %u\n", days[date.GetDayOfWeek()], date.GetWeekOfYear());
    const WildCard pattern(SString("*.txt"));
    std::printf("  \"*.txt\" %s \"notes.txt\" and %s \"notes.doc\"\n",
                pattern.Matches(SString("notes.txt")) ? "matches" : "misses",
                pattern.Matches(SString("notes.doc")) ? "matches" : "misses");
}

void Locale()
{
    std::printf("Locale formatting\n");
    const Date date(15, 3, 2024);
    const Time time(13, 5, 9, 0);
    struct Place {
        const char* name;
        CountryType country;
        LanguageType language;
    };
    static const Place places[] = { { "this system", COUNTRY_SYSTEM, LANGUAGE_SYSTEM },
                                    { "Germany", 1033, 1031 },
                                    { "France", 1032, 1036 },
                                    { "United States", 1049, 1033 } };
    for (const Place& place : places) {
        const International intl(place.country, place.language);
        // Built-in texts are in the 8-bit code page, the system's own may be UTF-8 already;
        // AnsiToUTF8 leaves UTF-8 as it is, and the terminal wants UTF-8.
        auto shown = [](const SString& s) { return s.AnsiToUTF8(); };
        std::printf("  %-14s %s | %s | %s | %s | %s\n", place.name, static_cast<const char*>(shown(intl.GetDate(date))),
                    static_cast<const char*>(shown(intl.GetLongDate(date))),
                    static_cast<const char*>(shown(intl.GetTime(time, true, false))),
                    static_cast<const char*>(shown(intl.GetNum(1234567, 2))),
                    static_cast<const char*>(shown(intl.GetCurr(123456))));
    }
    // The system row follows the user's locale (LANG, LC_TIME, ...), names included.
    const International system;
    std::printf("  (this system is language %u; its months run %s, %s, %s, ...)\n", system.GetLanguage(),
                static_cast<const char*>(system.GetMonthText(1).AnsiToUTF8()),
                static_cast<const char*>(system.GetMonthText(2).AnsiToUTF8()),
                static_cast<const char*>(system.GetMonthText(3).AnsiToUTF8()));
}

void Zlib()
{
    std::printf("zlib\n");
    const char text[] = "Vesk re-exports zlib: this sentence goes through deflate and back.";
    Bytef packed[256];
    uLongf packedSize = sizeof packed;
    compress2(packed, &packedSize, reinterpret_cast<const Bytef*>(text), sizeof text, Z_BEST_COMPRESSION);
    Bytef unpacked[sizeof text];
    uLongf unpackedSize = sizeof unpacked;
    uncompress(unpacked, &unpackedSize, packed, packedSize);
    std::printf("  zlib %s: %zu bytes -> %lu packed -> %lu back, %s\n", zlibVersion(), sizeof text,
                static_cast<unsigned long>(packedSize), static_cast<unsigned long>(unpackedSize),
                std::memcmp(text, unpacked, sizeof text) == 0 ? "identical" : "DIFFERENT");
}

void Bitmaps()
{
    std::printf("Bitmaps\n");
    // Resource 1 is tour/badge.png, compiled into the program by vesk_add_image_resources.
    const Bitmap badge = Bitmap::FromPngRes(1);
    const TamSize size = badge.GetSize();
    const Bitmap grey = badge.GetGreyscaleBmp();
    const Bitmap big = badge.StretchHQ(FSize(size.Width() * 2.5, size.Height() * 2.5));
    const BitmapPixels centre = grey.GetPGdiplusBitmap();
    std::printf("  the embedded badge is %d x %d, stretched %d x %d; its grey centre pixel is 0x%08X\n",
                size.Width(), size.Height(), big.GetSize().Width(), big.GetSize().Height(),
                centre.pixels ? centre.pixels[size_t(centre.height / 2) * size_t(centre.stride) + size_t(centre.width / 2)] : 0u);
}

} // namespace

int main()
{
    std::printf("Vesk tour\n=========\n\n");
    Strings();
    Values();
    VeskInit();
    Locale();
    VeskExit();
    Zlib();
    Bitmaps();
    return 0;
}
