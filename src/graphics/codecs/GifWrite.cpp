// giflib encodes through a callback; ours appends to the caller's vector.
#include "graphics/codecs/GifWrite_p.hpp"

#include <gif_lib.h>

namespace vesk::codecs {

namespace {

int Append(GifFileType* gif, const GifByteType* bytes, int length)
{
    auto* out = static_cast<std::vector<uint8_t>*>(gif->UserData);
    out->insert(out->end(), bytes, bytes + length);
    return length;
}

bool PutLoopForever(GifFileType* gif)
{
    static const GifByteType kNetscape[] = {'N', 'E', 'T', 'S', 'C', 'A', 'P', 'E', '2', '.', '0'};
    static const GifByteType kLoopZero[] = {1, 0, 0}; // sub-block 1, loop count 0 (forever)
    return EGifPutExtensionLeader(gif, APPLICATION_EXT_FUNC_CODE) == GIF_OK &&
           EGifPutExtensionBlock(gif, sizeof kNetscape, kNetscape) == GIF_OK &&
           EGifPutExtensionBlock(gif, sizeof kLoopZero, kLoopZero) == GIF_OK &&
           EGifPutExtensionTrailer(gif) == GIF_OK;
}

} // namespace

int ColourTableSize(size_t entries)
{
    int size = 2;
    while (size_t(size) < entries)
        size *= 2;
    return size;
}

GifWriter::GifWriter(std::vector<uint8_t>& out, int32_t width, int32_t height, bool loopForever)
    : m_out(out), m_start(out.size())
{
    int error = 0;
    m_gif = EGifOpen(&m_out, Append, &error);
    if (!m_gif)
        return;
    EGifSetGifVersion(m_gif, true);
    m_ok = EGifPutScreenDesc(m_gif, width, height, 8, 0, nullptr) == GIF_OK && (!loopForever || PutLoopForever(m_gif));
}

GifWriter::~GifWriter()
{
    if (m_gif) {
        int error = 0;
        EGifCloseFile(m_gif, &error);
    }
}

bool GifWriter::AddFrame(QuantizedImage& image, int32_t width, int32_t height, uint16_t delay, int tableSize)
{
    if (!m_ok)
        return false;
    GraphicsControlBlock control{DISPOSE_DO_NOT, false, delay, image.transparentIndex};
    GifByteType extension[4];
    const size_t length = EGifGCBToExtension(&control, extension);

    std::vector<GifColorType> colours(size_t(tableSize), GifColorType{0, 0, 0});
    for (size_t i = 0; i < image.palette.size() && i < colours.size(); ++i)
        colours[i] = {image.palette[i].r, image.palette[i].g, image.palette[i].b};
    // giflib copies the table it is given.
    ColorMapObject* table = GifMakeMapObject(tableSize, colours.data());
    m_ok = table && EGifPutExtension(m_gif, GRAPHICS_EXT_FUNC_CODE, int(length), extension) == GIF_OK &&
           EGifPutImageDesc(m_gif, 0, 0, width, height, false, table) == GIF_OK &&
           EGifPutLine(m_gif, image.indices.data(), width * height) == GIF_OK;
    GifFreeMapObject(table);
    return m_ok;
}

bool GifWriter::Finish()
{
    int error = 0;
    const bool closed = m_gif && EGifCloseFile(m_gif, &error) == GIF_OK;
    m_gif = nullptr;
    m_ok = m_ok && closed;
    if (!m_ok)
        m_out.resize(m_start);
    return m_ok;
}

} // namespace vesk::codecs
