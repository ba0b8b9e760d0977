// Config's value decoding on arbitrary text from a profile file, and the round trip of any
// bytes through the value encoding.
#include "files/ConfigValue_p.hpp"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::u16string units(size / 2, u'\0');
    std::memcpy(units.data(), data, units.size() * 2);
    vesk::SString decoded = vesk::ImpConfigDecode(units.data(), static_cast<uint32_t>(units.size()));
    if (decoded.Len() > units.size())
        std::abort();

    std::u16string encoded;
    vesk::ImpConfigEncode(reinterpret_cast<const char*>(data), static_cast<unsigned int>(size), encoded);
    vesk::SString back = vesk::ImpConfigDecode(encoded.data(), static_cast<uint32_t>(encoded.size()));
    if (back.Len() != size || std::memcmp(static_cast<const char*>(back), data, size) != 0)
        std::abort();
    return 0;
}
