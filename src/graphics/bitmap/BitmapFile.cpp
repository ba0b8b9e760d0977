#include <vesk/files/DirEntry.hpp>
#include <vesk/graphics/Bitmap.hpp>

#include "graphics/bitmap/BitmapSurface_p.hpp"
#include "platform/atomic_file.hpp"
#include "platform/mapped_file.hpp"
#include "platform/utf.hpp"

#include <algorithm>
#include <string>
#include <string_view>

namespace vesk {

using codecs::ImageCodec;
using codecs::PixelImage;

namespace {

// Files below this size are read into memory whole; larger ones are mapped.
constexpr int64_t kReadWholeLimit = 16 * 1024 * 1024;

enum class ImageKind { Bmp, Jpeg, Png, Tiff, Gif };

ImageKind KindOf(const SString& extension)
{
    const SString lower = extension.Lower();
    const std::string_view e(static_cast<const char*>(lower), lower.Len());
    if (e == "jpg" || e == "jpeg")
        return ImageKind::Jpeg;
    if (e == "png")
        return ImageKind::Png;
    if (e == "tif" || e == "tiff")
        return ImageKind::Tiff;
    return e == "gif" ? ImageKind::Gif : ImageKind::Bmp;
}

const ImageCodec& EncoderOf(ImageKind kind)
{
    switch (kind) {
    case ImageKind::Jpeg: return codecs::kJpegCodec;
    case ImageKind::Png: return codecs::kPngCodec;
    case ImageKind::Tiff: return codecs::kTiffCodec;
    case ImageKind::Gif: return codecs::kGifCodec;
    case ImageKind::Bmp: break;
    }
    return codecs::kBmpCodec;
}

// The entry's full text as a file-system path ('\' separates too); empty when it has none.
std::string PathOf(const DirEntry& entry)
{
    const SString full = entry.GetFull();
    std::string path(static_cast<const char*>(full), full.Len());
    std::replace(path.begin(), path.end(), '\\', '/');
    return path.find('\0') == std::string::npos ? path : std::string();
}

// Decodes with the codec the bytes announce (any format), or only as BMP.
bool DecodeBytes(std::span<const uint8_t> bytes, bool anyFormat, PixelImage& image)
{
    const ImageCodec* codec = anyFormat ? codecs::SniffCodec(bytes) : &codecs::kBmpCodec;
    return codec && codec->decode(bytes, image);
}

bool DecodeFile(const std::string& path, bool anyFormat, PixelImage& image)
{
    if (path.empty())
        return false;
    const platform::FileStamp stamp = platform::StampOf(path);
    if (stamp.Exists() && stamp.size < kReadWholeLimit) {
        std::string bytes;
        platform::FileStamp read;
        if (platform::ReadWholeFile(path, bytes, read) == platform::ReadStatus::Ok)
            return DecodeBytes({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()}, anyFormat, image);
    }
    platform::MappedFile file;
    return file.Open(path) && DecodeBytes(file.Bytes(), anyFormat, image);
}

// Replaces the file at `path` by `data` atomically: on failure the name keeps what it had.
bool WriteFile(const std::string& path, const std::vector<uint8_t>& data)
{
    return !path.empty() &&
           platform::WriteFileAtomically(path, {reinterpret_cast<const char*>(data.data()), data.size()});
}

} // namespace

ERRCODE Bitmap::Load(const DirEntry& entry)
{
    Delete();
    PixelImage image;
    if (DecodeFile(PathOf(entry), KindOf(entry.GetExtension()) != ImageKind::Bmp, image))
        *this = BitmapAccess::FromImage(std::move(image));
    return ERR_OK;
}

ERRCODE Bitmap::Save(const DirEntry& entry)
{
    const PixelImage* picture = ShownImage(*this);
    std::vector<uint8_t> data;
    if (!picture || !EncoderOf(KindOf(entry.GetExtension())).encode(*picture, data))
        return ERR_FAILURE;
    return WriteFile(PathOf(entry), data) ? ERR_OK : ERR_FAILURE;
}

bool Bitmap::SaveAsIcon(const DirEntry& entry)
{
    const PixelImage* picture = ShownImage(*this);
    if (!picture)
        return true; // nothing to write: deliberately not a failure
    std::vector<uint8_t> data;
    return codecs::EncodeIcon(*picture, data) && WriteFile(PathOf(entry), data);
}

ERRCODE Bitmap::SaveAnimatedGif(const DirEntry& entry, const std::vector<Bitmap>& frames, int delay)
{
    if (frames.empty())
        return ERR_FAILURE;
    std::vector<const PixelImage*> pictures;
    for (const Bitmap& frame : frames) {
        if (const PixelImage* picture = ShownImage(frame))
            pictures.push_back(picture);
        else if (pictures.empty())
            return ERR_FAILURE; // the first frame must have a picture
    }
    DirEntry file(entry);
    file.ChangeExtension("gif");
    std::vector<uint8_t> data;
    const uint16_t hundredths = uint16_t(std::clamp(delay, 0, 0xFFFF));
    if (!codecs::EncodeAnimatedGif(pictures, hundredths, data))
        return ERR_FAILURE;
    return WriteFile(PathOf(file), data) ? ERR_OK : ERR_FAILURE;
}

bool Bitmap::IsValidExtension(const SString& extension)
{
    return KindOf(extension) != ImageKind::Bmp || extension.Lower() == "bmp";
}

ERRCODE Bitmap::GetEncoderClsid(const UString& mimeType)
{
    const std::u16string_view text(static_cast<const char16_t*>(mimeType), mimeType.Len());
    return codecs::CodecForMimeType(platform::Utf16ToUtf8(text)) ? ERR_OK : ERR_FAILURE;
}

std::vector<uint8_t> Bitmap::CreateJPEGData(int quality) const
{
    std::vector<uint8_t> data;
    const PixelImage* picture = BitmapAccess::Picture(*this);
    if (picture)
        codecs::EncodeJpegQuality(*picture, quality, data);
    return data;
}

bool Bitmap::ConstructFromJPEGData(std::span<const uint8_t> data)
{
    Delete();
    PixelImage image;
    if (!DecodeBytes(data, true, image))
        return false;
    *this = BitmapAccess::FromImage(std::move(image));
    return true;
}

} // namespace vesk
