#pragma once

#include <vesk/errcode.hpp>
#include <vesk/export.hpp>
#include <vesk/graphics/TamColor.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/text/UString.hpp>
#include <vesk/values/FPoint.hpp>
#include <vesk/values/TamSize.hpp>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vesk {

class DirEntry;
class OutputDevice;
class VirtualDevice;
struct BitmapRecord;

// A view of 32-bit pixels in memory: one native-endian word per pixel, alpha in the top byte,
// red, green and blue below it; `stride` counts pixels per row (0: the width). `premultiplied`
// says whether the colours are already multiplied by alpha. A view never owns its pixels.
struct BitmapPixels
{
    int32_t width = 0;
    int32_t height = 0;
    int32_t stride = 0;
    const uint32_t* pixels = nullptr;
    bool premultiplied = true;
};

// The library's image value: copies share one counted record holding the picture.
//
// The record has two views of the same picture. The picture itself (what the methods named
// "Gdiplus" refer to) is 32-bit ARGB with alpha. The opaque view (what the methods named
// "HBitmap" refer to) is the picture composited over a background colour, made on demand and
// kept in the record; pixels given as an opaque view (SetHBitmap, CreateDIB) stand alone
// until CreatePGdiplusBitmap makes the picture from them. Both views drop out of date when an
// operation changes the picture: the opaque view is made afresh after MakeTransparent and
// MakeColorTransparent.
//
// Copies and releases may run on several threads at once (the share count is atomic); the
// pictures themselves are not locked, and operations that change a picture change it for
// every copy that shares it.
class VESK_API Bitmap
{
public:
    // An empty bitmap (no record).
    Bitmap();
    // A copy of the pixels as the opaque view; alpha is ignored. Empty for a size that cannot be held or a null pointer.
    explicit Bitmap(const BitmapPixels& opaque);
    // An icon: the colour pixels with the mask applied (mask pixels that are not black are
    // transparent, as an icon's AND mask), as the picture.
    Bitmap(const BitmapPixels& color, const BitmapPixels& mask);
    // A copy of an off-screen device's picture.
    explicit Bitmap(VirtualDevice& device);
    // Adopts premultiplied ARGB pixels (width * height words) as the picture; empty when the
    // count does not match the size.
    Bitmap(const TamSize& size, std::vector<uint32_t>&& premultipliedArgb);
    // The image embedded under `resourceId` (see FromPngRes); empty when there is none.
    explicit Bitmap(unsigned resourceId);
    Bitmap(const Bitmap& other);
    Bitmap& operator=(const Bitmap& other);
    virtual ~Bitmap();

    // Releases the record: the last holder frees it.
    void Delete();

    // Same record.
    bool operator==(const Bitmap& other) const { return m_pRecord == other.m_pRecord; }
    bool operator!=(const Bitmap& other) const { return m_pRecord != other.m_pRecord; }

    // Reads a picture chosen by the extension: "jpg", "jpeg", "png", "tif", "tiff" and "gif"
    // (any case) read whatever image format the bytes hold; anything else reads a BMP file.
    // Always ERR_OK; a file that cannot be read leaves the bitmap empty.
    ERRCODE Load(const DirEntry& entry);
    // Writes the picture in the format of the extension (as Load; anything else BMP). The file
    // is replaced atomically: on failure (ERR_FAILURE) nothing is left under the name.
    ERRCODE Save(const DirEntry& entry);
    // Writes a one-image icon file. True without writing for a bitmap without a picture;
    // false when the file cannot be written.
    bool SaveAsIcon(const DirEntry& entry);
    // Writes the frames as an animated GIF (the extension becomes "gif"), each frame shown
    // `delay` hundredths of a second, looping forever; frames without a picture are skipped.
    // ERR_FAILURE without frames, when the first has no picture or the file cannot be written.
    static ERRCODE SaveAnimatedGif(const DirEntry& entry, const std::vector<Bitmap>& frames, int delay);
    // "bmp", "jpg", "jpeg", "png", "tif", "tiff" or "gif", in any case.
    static bool IsValidExtension(const SString& extension);
    // ERR_OK when an encoder writes this MIME type (exact, case-sensitive: "image/bmp",
    // "image/jpeg", "image/gif", "image/tiff", "image/png"), else ERR_FAILURE.
    static ERRCODE GetEncoderClsid(const UString& mimeType);

    // JPEG file bytes of the picture at `quality` (1 to 100); empty without a picture.
    std::vector<uint8_t> CreateJPEGData(int quality = 90) const;
    // Replaces the record by the picture in `data` (any format Load reads); false and empty
    // when it cannot be read.
    bool ConstructFromJPEGData(std::span<const uint8_t> data);

    // A copy whose red, green and blue are multiplied by `factor` (alpha kept). The copy is
    // drawn from the rectangle (0, 0, height, width), width and height exchanged: a square is
    // copied whole, other sizes only in the min x min square at the top left; the rest stays
    // transparent black.
    Bitmap GetDarkened(float factor) const;
    // A copy in grey, each channel 0.3 red + 0.6 green + 0.1 blue (alpha kept), drawn from
    // the same exchanged rectangle as GetDarkened.
    Bitmap GetGreyscaleBmp() const;
    // Pixels whose colour lies within `tolerance` of `color` become transparent black. The
    // distance is the length of the channel differences pixel - color, each taken modulo 256
    // (one below the key counts as 255 away). The middle argument has no effect.
    void MakeColorTransparent(const TamColor& color, int ignored, int tolerance);
    // Every pixel keeps its colour and gets alpha opacityPercent * 255 / 100 (low 8 bits). A
    // fully transparent pixel has no colour left to keep and stays black.
    void MakeTransparent(int opacityPercent);
    // Keys this picture through `mask`: each pixel whose pixel at the same place of the mask's
    // picture has the colour value `color` (0x00BBGGRR: red in the low byte; alpha ignored)
    // becomes transparent black. Only the part both pictures cover is looked at.
    void MakeTransparent(Bitmap& mask, unsigned long color);
    // A picture of `size` in fully transparent black; empty for a size that cannot be held.
    static Bitmap CreateTransparentBG(const TamSize& size);

    // The picture resampled to `size` (each side truncated) with Cairo's best filter,
    // edges padded; empty for a size that cannot be held.
    Bitmap StretchHQ(const FSize& size) const;
    // With sx = ScaleX(100) and sy = ScaleY(100) of the library state and both above 100,
    // f = min(sx, sy) / 100; when f > 1.2 the picture stretched by f (each side
    // floor(side * f + 0.5)), otherwise this bitmap (shared).
    Bitmap ScaleHQ() const;
    // The same test and factor; the size truncated from side * f + 0.5 and the stretch made by
    // Stretch on an off-screen device.
    Bitmap Scale() const;
    // The part of the picture at `pos` of `size` (cut to the picture and written back),
    // resampled with the best filter at fractional positions.
    Bitmap GetBitmapHQ(const FPoint& pos, FSize& size) const;
    // A copy of this picture with `other` drawn over it at `pos`, stretched to `size`.
    Bitmap DrawBitmapHQ(const FPoint& pos, FSize& size, const Bitmap& other) const;
    // The picture stretched to `size` for `device`: StretchHQ when the picture exists, else
    // the opaque view stretched (smoothly with `halftone`, else by nearest pixel); with
    // `keyMagenta` magenta pixels of the result become transparent. Empty without a device.
    Bitmap Stretch(OutputDevice* device, const TamSize& size, bool halftone, bool keyMagenta) const;

    // The embedded PNG image `resourceId` as a picture; empty when there is none.
    static Bitmap FromPngRes(const unsigned& resourceId);
    // The same, with its opaque view made over magenta as well.
    static Bitmap BMPFromPngRes(const unsigned& resourceId);

    // The opaque view: the picture composited over `background` (made when absent); an empty
    // view without a picture. Valid while the record lives and its picture is not changed.
    BitmapPixels GetHBitmap(const TamColor& background = TamColor(0xFF00FFu));
    // The opaque view, the same as GetHBitmap(background).
    BitmapPixels GetPTempCBitmap(const TamColor& background) { return GetHBitmap(background); }
    // Replaces the opaque view by a copy of `opaque`; the picture stays.
    void SetHBitmap(const BitmapPixels& opaque);
    // Drops the opaque view.
    void DeleteHBitmap();
    // A new record holding an opaque black view of `size` and no picture; false (and empty)
    // for a size that cannot be held.
    bool CreateDIB(const TamSize& size);
    // The picture (premultiplied); an empty view when there is none.
    BitmapPixels GetPGdiplusBitmap() const;
    // Makes the picture from the opaque view when there is none; false when neither exists.
    bool CreatePGdiplusBitmap();
    // Whether the record holds the picture.
    bool IsGdiplusBitmap() const;
    // Neither view holds pixels.
    bool Empty() const;
    // The picture's size; without one the opaque view's; (0, 0) when empty.
    TamSize GetSize() const;
    TamSize GetSizePixel() const { return GetSize(); }

private:
    friend struct BitmapAccess;
    // Shares `record` (counted); null leaves the bitmap empty.
    void Attach(BitmapRecord* record);

    BitmapRecord* m_pRecord = nullptr;
};

// An image an application embeds in its program (see cmake/VeskResources.cmake).
struct ImageResource
{
    unsigned id;
    const unsigned char* data;
    size_t size;
};

// Makes a table of embedded images known to FromPngRes and Bitmap(unsigned); the table must
// live as long as the program. A later table's entry wins over an earlier one with the same id.
VESK_API void GlRegisterImageResources(const ImageResource* table, size_t count);

} // namespace vesk
