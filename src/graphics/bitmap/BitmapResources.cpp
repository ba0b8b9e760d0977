#include <vesk/graphics/Bitmap.hpp>

#include "graphics/bitmap/BitmapRecord_p.hpp"

#include <mutex>
#include <vector>

namespace vesk {

namespace {

// The tables applications register, usually from static constructors before main; it lives
// as long as the process, so registered data stays valid for every later lookup.
struct ResourceRegistry
{
    std::mutex lock;
    std::vector<ImageResource> entries;
};

ResourceRegistry& Registry()
{
    static ResourceRegistry* registry = new ResourceRegistry;
    return *registry;
}

// The bytes of resource `id`, the latest registration first; empty when there is none.
std::span<const uint8_t> FindResource(unsigned id)
{
    ResourceRegistry& registry = Registry();
    std::lock_guard<std::mutex> guard(registry.lock);
    for (auto it = registry.entries.rbegin(); it != registry.entries.rend(); ++it)
        if (it->id == id && it->data)
            return {it->data, it->size};
    return {};
}

Bitmap DecodeResource(unsigned id, const codecs::ImageCodec* codec)
{
    const std::span<const uint8_t> bytes = FindResource(id);
    if (!codec)
        codec = codecs::SniffCodec(bytes);
    codecs::PixelImage image;
    if (!codec || !codec->decode(bytes, image))
        return Bitmap();
    return BitmapAccess::FromImage(std::move(image));
}

} // namespace

void GlRegisterImageResources(const ImageResource* table, size_t count)
{
    if (!table)
        return;
    ResourceRegistry& registry = Registry();
    std::lock_guard<std::mutex> guard(registry.lock);
    registry.entries.insert(registry.entries.end(), table, table + count);
}

Bitmap::Bitmap(unsigned resourceId) : Bitmap(DecodeResource(resourceId, nullptr)) {}

Bitmap Bitmap::FromPngRes(const unsigned& resourceId)
{
    return DecodeResource(resourceId, &codecs::kPngCodec);
}

Bitmap Bitmap::BMPFromPngRes(const unsigned& resourceId)
{
    Bitmap bitmap = FromPngRes(resourceId);
    bitmap.GetHBitmap(TamColor(0xFF00FFu));
    return bitmap;
}

} // namespace vesk
