#include <vesk/frame/VeskData.hpp>
#include <vesk/graphics/BrushBitmaps.hpp>

namespace vesk {

struct BrushBitmaps
{
    Bitmap light;
    Bitmap sparse;
};

// The library state owns the patterns; the graphics family makes them.
struct BrushBitmapsAccess
{
    static std::shared_ptr<BrushBitmaps>& Slot(VeskData& data) { return data.m_pBrushBitmaps; }
};

namespace {

// One byte per row, the leftmost pixel in the high bit; a set bit is white.
Bitmap FromRows(const uint8_t (&rows)[8])
{
    uint32_t pixels[64];
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            pixels[y * 8 + x] = rows[y] >> (7 - x) & 1 ? 0xFFFFFFFFu : 0xFF000000u;
    return Bitmap(BitmapPixels{8, 8, 8, pixels, true});
}

} // namespace

void CreateBrushBitmaps()
{
    VeskData* data = GetPVeskData();
    if (!data)
        return;
    static const uint8_t kLight[8] = {0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA};
    static const uint8_t kSparse[8] = {0x88, 0x22, 0x88, 0x22, 0x88, 0x22, 0x88, 0x22};
    BrushBitmapsAccess::Slot(*data) = std::make_shared<BrushBitmaps>(BrushBitmaps{FromRows(kLight), FromRows(kSparse)});
}

Bitmap GetBrushBitmap(BrushBitmapKind kind)
{
    VeskData* data = GetPVeskData();
    if (!data)
        return Bitmap();
    if (!BrushBitmapsAccess::Slot(*data))
        CreateBrushBitmaps();
    const BrushBitmaps& brushes = *BrushBitmapsAccess::Slot(*data);
    return kind == BRUSHBITMAP_LIGHT ? brushes.light : kind == BRUSHBITMAP_SPARSE ? brushes.sparse : Bitmap();
}

} // namespace vesk
