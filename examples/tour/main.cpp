// A short tour of what Vesk can do so far.
#include <vesk/vesk.hpp>

#include <cstdio>
#include <cstring>

int main()
{
    std::printf("Vesk tour\n=========\n\n");

    const char text[] = "Vesk re-exports zlib: this sentence goes through deflate and back.";
    Bytef packed[256];
    uLongf packedSize = sizeof packed;
    compress2(packed, &packedSize, reinterpret_cast<const Bytef*>(text), sizeof text, Z_BEST_COMPRESSION);
    Bytef unpacked[sizeof text];
    uLongf unpackedSize = sizeof unpacked;
    uncompress(unpacked, &unpackedSize, packed, packedSize);
    std::printf("zlib %s: %zu bytes -> %lu packed -> %lu back, %s\n", zlibVersion(), sizeof text,
                static_cast<unsigned long>(packedSize), static_cast<unsigned long>(unpackedSize),
                std::memcmp(text, unpacked, sizeof text) == 0 ? "identical" : "DIFFERENT");
    return 0;
}
