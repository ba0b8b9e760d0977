#include "graphics/codecs/ImageCodec_p.hpp"

namespace vesk::codecs {

namespace {

struct MimeEntry
{
    std::string_view mime;
    const ImageCodec* codec;
};

const MimeEntry kMimeTypes[] = {
    {"image/png", &kPngCodec},   {"image/jpeg", &kJpegCodec}, {"image/tiff", &kTiffCodec},
    {"image/gif", &kGifCodec},   {"image/bmp", &kBmpCodec},
};

} // namespace

const ImageCodec* SniffCodec(std::span<const uint8_t> head)
{
    for (const MimeEntry& entry : kMimeTypes)
        if (entry.codec->sniff(head))
            return entry.codec;
    return nullptr;
}

const ImageCodec* CodecForMimeType(std::string_view mimeType)
{
    for (const MimeEntry& entry : kMimeTypes)
        if (entry.mime == mimeType)
            return entry.codec;
    return nullptr;
}

} // namespace vesk::codecs
