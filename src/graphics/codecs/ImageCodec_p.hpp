#pragma once

// The picture form every codec reads and writes, and the codec table behind Bitmap's Load
// and Save.

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace vesk::codecs {

// Cairo's ARGB32: one native-endian 32-bit word per pixel, alpha in the top byte, colours
// premultiplied by alpha; rows top first, tightly packed (stride = width * 4).
struct PixelImage
{
    int32_t width = 0;
    int32_t height = 0;
    std::vector<uint32_t> pixels;
};

// Largest picture a codec will allocate: 32767 pixels a side and 2^26 pixels, checked
// before any allocation so that a damaged header cannot ask for gigabytes.
inline constexpr int64_t kMaxImageSide = 32767;
inline constexpr int64_t kMaxImagePixels = int64_t(1) << 26;
inline bool IsAcceptableImageSize(int64_t width, int64_t height)
{
    return width > 0 && height > 0 && width <= kMaxImageSide && height <= kMaxImageSide &&
           width * height <= kMaxImagePixels;
}
// True when the image has an acceptable size and exactly one pixel for each place, which
// every encoder needs before it reads the pixels.
inline bool IsWholeImage(const PixelImage& image)
{
    return IsAcceptableImageSize(image.width, image.height) &&
           image.pixels.size() == size_t(image.width) * size_t(image.height);
}

struct ImageCodec
{
    const char* name; // "png", "jpeg", "tiff", "gif", "bmp"
    // True when the first bytes look like this format.
    bool (*sniff)(std::span<const uint8_t> head);
    // False (and an empty image) for data that cannot be read.
    bool (*decode)(std::span<const uint8_t> data, PixelImage& image);
    // Appends the encoded file to `data`; false when the picture cannot be written.
    bool (*encode)(const PixelImage& image, std::vector<uint8_t>& data);
};

extern const ImageCodec kPngCodec;
extern const ImageCodec kJpegCodec;
extern const ImageCodec kTiffCodec;
extern const ImageCodec kGifCodec; // first frame in, one frame out
extern const ImageCodec kBmpCodec;

// JPEG at a chosen quality (1 to 100); the table's encoder uses kDefaultJpegQuality.
inline constexpr int kDefaultJpegQuality = 90;
bool EncodeJpegQuality(const PixelImage& image, int quality, std::vector<uint8_t>& data);

// The codec whose sniff accepts `head` (png, jpeg, tiff, gif, bmp in that order); null for
// none.
const ImageCodec* SniffCodec(std::span<const uint8_t> head);
// The codec writing the MIME type ("image/png", "image/jpeg", "image/tiff", "image/gif",
// "image/bmp"; compared exactly); null for any other text.
const ImageCodec* CodecForMimeType(std::string_view mimeType);

// A one-image icon file laid out as Bitmap::SaveAsIcon writes it.
bool EncodeIcon(const PixelImage& image, std::vector<uint8_t>& data);

// An animated GIF: every frame reduced to an optimal 240-colour palette with error-diffusion
// dithering, the same delay (hundredths of a second) on every frame, NETSCAPE2.0 loop 0.
bool EncodeAnimatedGif(std::span<const PixelImage* const> frames, uint16_t delay, std::vector<uint8_t>& data);

} // namespace vesk::codecs
