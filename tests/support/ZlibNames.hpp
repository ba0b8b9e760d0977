#pragma once

// The 32 zlib entry points that libvesk.so exports for its clients.
namespace vesk::test {

inline constexpr const char* kZlibNames[] = {
    "adler32",        "compress",        "compress2",        "compressBound",   "crc32",
    "deflate",        "deflateBound",    "deflateCopy",      "deflateEnd",      "deflateInit_",
    "deflateInit2_",  "deflateParams",   "deflatePrime",     "deflateReset",    "deflateSetDictionary",
    "get_crc_table",  "inflate",         "inflateBack",      "inflateBackEnd",  "inflateBackInit_",
    "inflateCopy",    "inflateEnd",      "inflateInit_",     "inflateInit2_",   "inflateReset",
    "inflateSetDictionary", "inflateSync", "inflateSyncPoint", "uncompress",    "zError",
    "zlibCompileFlags", "zlibVersion",
};

} // namespace vesk::test
