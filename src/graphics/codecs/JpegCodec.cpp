#include "graphics/codecs/Argb_p.hpp"
#include "graphics/codecs/ImageCodec_p.hpp"

#include <algorithm>
#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

namespace vesk::codecs {

namespace {

// libjpeg reports errors by calling error_exit, which must not return: it jumps back to the
// call that started the work. Only C frames lie between the two, and the objects that the
// jump passes over are not local to the jumping function.
struct JpegError
{
    jpeg_error_mgr mgr;
    std::jmp_buf jump;
};

void OnJpegError(j_common_ptr info)
{
    std::longjmp(reinterpret_cast<JpegError*>(info->err)->jump, 1);
}

void OnJpegMessage(j_common_ptr, int) {}

void InitError(JpegError& error)
{
    jpeg_std_error(&error.mgr);
    error.mgr.error_exit = OnJpegError;
    error.mgr.emit_message = OnJpegMessage;
}

bool SniffJpeg(std::span<const uint8_t> head)
{
    return head.size() >= 3 && head[0] == 0xFF && head[1] == 0xD8 && head[2] == 0xFF;
}

// Adobe's CMYK JPEGs store the inks inverted; a pixel is then (c * k, m * k, y * k) / 255.
void CmykRowToArgb(const uint8_t* cmyk, uint32_t* row, int32_t width)
{
    for (int32_t x = 0; x < width; ++x, cmyk += 4) {
        const uint32_t k = cmyk[3];
        row[x] = 0xFF000000u | (cmyk[0] * k / 255) << 16 | (cmyk[1] * k / 255) << 8 | (cmyk[2] * k / 255);
    }
}

bool ReadScanlines(jpeg_decompress_struct& jpeg, PixelImage& image, std::vector<uint8_t>& cmyk)
{
    while (jpeg.output_scanline < jpeg.output_height) {
        uint32_t* row = image.pixels.data() + size_t(jpeg.output_scanline) * jpeg.output_width;
        JSAMPROW target = cmyk.empty() ? reinterpret_cast<JSAMPROW>(row) : cmyk.data();
        if (jpeg_read_scanlines(&jpeg, &target, 1) != 1)
            return false;
        if (!cmyk.empty())
            CmykRowToArgb(cmyk.data(), row, int32_t(jpeg.output_width));
    }
    return true;
}

// What a decode changes after its error jump is set, kept in the caller's frame: locals of the
// function that calls setjmp would have indeterminate values after the jump.
struct JpegDecode
{
    jpeg_decompress_struct jpeg;
    JpegError error;
    std::vector<uint8_t> cmyk; // one row of inks for CMYK files
};

bool DecodeJpegWith(std::span<const uint8_t> data, PixelImage& image, JpegDecode& state)
{
    jpeg_decompress_struct& jpeg = state.jpeg;
    std::vector<uint8_t>& cmyk = state.cmyk;
    InitError(state.error);
    jpeg.err = &state.error.mgr;
    if (setjmp(state.error.jump)) {
        jpeg_destroy_decompress(&jpeg);
        return false;
    }
    jpeg_create_decompress(&jpeg);
    jpeg_mem_src(&jpeg, data.data(), static_cast<unsigned long>(data.size()));
    bool ok = jpeg_read_header(&jpeg, TRUE) == JPEG_HEADER_OK &&
              IsAcceptableImageSize(jpeg.image_width, jpeg.image_height);
    if (ok) {
        const bool inks = jpeg.jpeg_color_space == JCS_CMYK || jpeg.jpeg_color_space == JCS_YCCK;
        jpeg.out_color_space = inks ? JCS_CMYK : JCS_EXT_BGRA;
        jpeg_start_decompress(&jpeg);
        image.width = int32_t(jpeg.output_width);
        image.height = int32_t(jpeg.output_height);
        image.pixels.resize(size_t(image.width) * size_t(image.height));
        if (inks)
            cmyk.resize(size_t(image.width) * 4);
        ok = ReadScanlines(jpeg, image, cmyk);
        if (ok)
            jpeg_finish_decompress(&jpeg);
    }
    jpeg_destroy_decompress(&jpeg);
    return ok;
}

bool DecodeJpeg(std::span<const uint8_t> data, PixelImage& image)
{
    image = PixelImage();
    JpegDecode state{};
    if (DecodeJpegWith(data, image, state))
        return true;
    image = PixelImage();
    return false;
}

// Collects the compressed bytes in the caller's vector, 64 KiB at a time.
struct VectorDestination
{
    jpeg_destination_mgr mgr;
    std::vector<uint8_t>* data;
    size_t used; // bytes of *data already holding output
};

constexpr size_t kChunk = 65536;

void GrowDestination(VectorDestination& dest)
{
    dest.data->resize(dest.used + kChunk);
    dest.mgr.next_output_byte = dest.data->data() + dest.used;
    dest.mgr.free_in_buffer = kChunk;
}

void InitDestination(j_compress_ptr info)
{
    GrowDestination(*reinterpret_cast<VectorDestination*>(info->dest));
}

boolean EmptyOutputBuffer(j_compress_ptr info)
{
    auto& dest = *reinterpret_cast<VectorDestination*>(info->dest);
    dest.used += kChunk; // libjpeg calls this only when the whole chunk is full
    GrowDestination(dest);
    return TRUE;
}

void TermDestination(j_compress_ptr info)
{
    auto& dest = *reinterpret_cast<VectorDestination*>(info->dest);
    dest.used += kChunk - dest.mgr.free_in_buffer;
    dest.data->resize(dest.used);
}

// Straight colour, alpha dropped (a JPEG has none).
void StraightRow(const uint32_t* in, uint32_t* out, int32_t width)
{
    for (int32_t x = 0; x < width; ++x)
        out[x] = StraightPixel(in[x]);
}

bool WriteJpeg(jpeg_compress_struct& jpeg, const PixelImage& image, std::vector<uint32_t>& row)
{
    while (jpeg.next_scanline < jpeg.image_height) {
        StraightRow(image.pixels.data() + size_t(jpeg.next_scanline) * image.width, row.data(), image.width);
        JSAMPROW target = reinterpret_cast<JSAMPROW>(row.data());
        if (jpeg_write_scanlines(&jpeg, &target, 1) != 1)
            return false;
    }
    return true;
}

} // namespace

bool EncodeJpegQuality(const PixelImage& image, int quality, std::vector<uint8_t>& data)
{
    if (!IsWholeImage(image) || std::max(image.width, image.height) > JPEG_MAX_DIMENSION)
        return false;
    const size_t start = data.size();
    std::vector<uint32_t> row(size_t(image.width));
    jpeg_compress_struct jpeg;
    JpegError error;
    InitError(error);
    jpeg.err = &error.mgr;
    VectorDestination dest{{}, &data, start};
    if (setjmp(error.jump)) {
        jpeg_destroy_compress(&jpeg);
        data.resize(start);
        return false;
    }
    jpeg_create_compress(&jpeg);
    dest.mgr.init_destination = InitDestination;
    dest.mgr.empty_output_buffer = EmptyOutputBuffer;
    dest.mgr.term_destination = TermDestination;
    jpeg.dest = &dest.mgr;
    jpeg.image_width = JDIMENSION(image.width);
    jpeg.image_height = JDIMENSION(image.height);
    jpeg.input_components = 4;
    jpeg.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, std::clamp(quality, 1, 100), TRUE);
    jpeg_start_compress(&jpeg, TRUE);
    const bool ok = WriteJpeg(jpeg, image, row);
    if (ok)
        jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    if (!ok)
        data.resize(start);
    return ok;
}

namespace {

bool EncodeJpeg(const PixelImage& image, std::vector<uint8_t>& data)
{
    return EncodeJpegQuality(image, kDefaultJpegQuality, data);
}

} // namespace

const ImageCodec kJpegCodec = {"jpeg", SniffJpeg, DecodeJpeg, EncodeJpeg};

} // namespace vesk::codecs
