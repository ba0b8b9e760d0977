// The BMP entry of the codec table: read and written by the library's own code.
#include "graphics/codecs/BmpDecode_p.hpp"

namespace vesk::codecs {

namespace {

bool SniffBmp(std::span<const uint8_t> head)
{
    return head.size() >= 2 && head[0] == 'B' && head[1] == 'M';
}

} // namespace

const ImageCodec kBmpCodec = {"bmp", SniffBmp, bmp::DecodeBmp, bmp::EncodeBmp};

} // namespace vesk::codecs
