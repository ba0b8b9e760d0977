// A program outside the tree that uses the installed library.
#include <vesk/vesk.hpp>

#include <cstdio>
#include <cstring>

int main()
{
    const char text[] = "installed vesk";
    Bytef packed[128];
    uLongf packedSize = sizeof packed;
    Bytef unpacked[sizeof text];
    uLongf unpackedSize = sizeof unpacked;
    if (compress2(packed, &packedSize, reinterpret_cast<const Bytef*>(text), sizeof text, 6) != Z_OK
        || uncompress(unpacked, &unpackedSize, packed, packedSize) != Z_OK
        || std::memcmp(unpacked, text, sizeof text) != 0)
        return 1;
    std::printf("zlib %s through vesk\n", zlibVersion());
    return 0;
}
