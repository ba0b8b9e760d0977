// libvesk.so re-exports the zlib interface. The distribution ships its static zlib without
// position-independent code, so it cannot be linked into a shared object; instead each
// exported name forwards to the same function of the distribution's libz.so.1, looked up
// once in that library's own handle (so the lookup never finds these forwarders again).
#include <vesk/export.hpp>

#include <dlfcn.h>
#include <zlib.h>

#include <cstdio>
#include <cstdlib>

namespace {

void* zlibHandle()
{
    static void* const handle = [] {
        void* h = dlopen("libz.so.1", RTLD_NOW | RTLD_LOCAL);
        if (!h) {
            std::fprintf(stderr, "vesk: cannot load libz.so.1: %s\n", dlerror());
            std::abort();
        }
        return h;
    }();
    return handle;
}

template <typename Fn>
Fn zlibFunction(const char* name)
{
    void* symbol = dlsym(zlibHandle(), name);
    if (!symbol) {
        std::fprintf(stderr, "vesk: libz.so.1 lacks %s\n", name);
        std::abort();
    }
    return reinterpret_cast<Fn>(symbol);
}

} // namespace

#define VESK_ZLIB_FORWARD(ret, name, params, args)                                             \
    extern "C" VESK_API ret name params                                                        \
    {                                                                                          \
        static const auto real = zlibFunction<decltype(&::name)>(#name);                       \
        return real args;                                                                      \
    }

VESK_ZLIB_FORWARD(uLong, adler32, (uLong adler, const Bytef* buf, uInt len), (adler, buf, len))
VESK_ZLIB_FORWARD(int, compress, (Bytef* dest, uLongf* destLen, const Bytef* source, uLong sourceLen),
                  (dest, destLen, source, sourceLen))
VESK_ZLIB_FORWARD(int, compress2,
                  (Bytef* dest, uLongf* destLen, const Bytef* source, uLong sourceLen, int level),
                  (dest, destLen, source, sourceLen, level))
VESK_ZLIB_FORWARD(uLong, compressBound, (uLong sourceLen), (sourceLen))
VESK_ZLIB_FORWARD(uLong, crc32, (uLong crc, const Bytef* buf, uInt len), (crc, buf, len))
VESK_ZLIB_FORWARD(int, deflate, (z_streamp strm, int flush), (strm, flush))
VESK_ZLIB_FORWARD(uLong, deflateBound, (z_streamp strm, uLong sourceLen), (strm, sourceLen))
VESK_ZLIB_FORWARD(int, deflateCopy, (z_streamp dest, z_streamp source), (dest, source))
VESK_ZLIB_FORWARD(int, deflateEnd, (z_streamp strm), (strm))
VESK_ZLIB_FORWARD(int, deflateInit_, (z_streamp strm, int level, const char* version, int stream_size),
                  (strm, level, version, stream_size))
VESK_ZLIB_FORWARD(int, deflateInit2_,
                  (z_streamp strm, int level, int method, int windowBits, int memLevel, int strategy,
                   const char* version, int stream_size),
                  (strm, level, method, windowBits, memLevel, strategy, version, stream_size))
VESK_ZLIB_FORWARD(int, deflateParams, (z_streamp strm, int level, int strategy), (strm, level, strategy))
VESK_ZLIB_FORWARD(int, deflatePrime, (z_streamp strm, int bits, int value), (strm, bits, value))
VESK_ZLIB_FORWARD(int, deflateReset, (z_streamp strm), (strm))
VESK_ZLIB_FORWARD(int, deflateSetDictionary, (z_streamp strm, const Bytef* dictionary, uInt dictLength),
                  (strm, dictionary, dictLength))
VESK_ZLIB_FORWARD(const z_crc_t*, get_crc_table, (void), ())
VESK_ZLIB_FORWARD(int, inflate, (z_streamp strm, int flush), (strm, flush))
VESK_ZLIB_FORWARD(int, inflateBack,
                  (z_streamp strm, in_func in, void* in_desc, out_func out, void* out_desc),
                  (strm, in, in_desc, out, out_desc))
VESK_ZLIB_FORWARD(int, inflateBackEnd, (z_streamp strm), (strm))
VESK_ZLIB_FORWARD(int, inflateBackInit_,
                  (z_streamp strm, int windowBits, unsigned char* window, const char* version,
                   int stream_size),
                  (strm, windowBits, window, version, stream_size))
VESK_ZLIB_FORWARD(int, inflateCopy, (z_streamp dest, z_streamp source), (dest, source))
VESK_ZLIB_FORWARD(int, inflateEnd, (z_streamp strm), (strm))
VESK_ZLIB_FORWARD(int, inflateInit_, (z_streamp strm, const char* version, int stream_size),
                  (strm, version, stream_size))
VESK_ZLIB_FORWARD(int, inflateInit2_, (z_streamp strm, int windowBits, const char* version, int stream_size),
                  (strm, windowBits, version, stream_size))
VESK_ZLIB_FORWARD(int, inflateReset, (z_streamp strm), (strm))
VESK_ZLIB_FORWARD(int, inflateSetDictionary, (z_streamp strm, const Bytef* dictionary, uInt dictLength),
                  (strm, dictionary, dictLength))
VESK_ZLIB_FORWARD(int, inflateSync, (z_streamp strm), (strm))
VESK_ZLIB_FORWARD(int, inflateSyncPoint, (z_streamp strm), (strm))
VESK_ZLIB_FORWARD(int, uncompress, (Bytef* dest, uLongf* destLen, const Bytef* source, uLong sourceLen),
                  (dest, destLen, source, sourceLen))
VESK_ZLIB_FORWARD(const char*, zError, (int err), (err))
VESK_ZLIB_FORWARD(uLong, zlibCompileFlags, (void), ())
VESK_ZLIB_FORWARD(const char*, zlibVersion, (void), ())
