// UTF-8 detection, the UTF-8 round trip between SString and UString, and the character-set
// tables, on arbitrary bytes.

#include <vesk/text.hpp>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace {

void Check(bool condition)
{
    if (!condition)
        __builtin_trap();
}

void RoundTrip(const std::string& bytes)
{
    const vesk::SString text(bytes.data(), 0, static_cast<unsigned int>(bytes.size()), true);
    const vesk::UString wide(text);
    if (wide.Len() == 0)
        return;
    // The way back stops at the first zero, as every zero-terminated conversion does.
    const std::string head(bytes.c_str());
    const vesk::SString back = wide.GetUTF8();
    const std::string again(static_cast<const char*>(back), back.Len());
    if (vesk::SString::MayBeUTF8(bytes.data(), static_cast<unsigned int>(bytes.size())))
        Check(again == head);
    else
        Check(std::string(static_cast<const char*>(back.UTF8ToEnglish())) == head);
}

void Tables(const uint8_t* data, size_t size)
{
    if (size < 2)
        return;
    const auto from = static_cast<vesk::CharSet>(data[0] % 12);
    const auto to = static_cast<vesk::CharSet>(data[1] % 12);
    std::string text(reinterpret_cast<const char*>(data + 2), size - 2);
    const size_t length = std::strlen(text.c_str());
    vesk::ImpStringConvert(text.data(), from, to);
    // The tables never write a zero, and nothing after the first zero changes.
    Check(std::strlen(text.c_str()) == length);
    Check(text.compare(length, std::string::npos,
              reinterpret_cast<const char*>(data + 2) + length, size - 2 - length) == 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    vesk::SString::MayBeUTF8(bytes.data(), static_cast<unsigned int>(size));
    RoundTrip(bytes);
    const vesk::SString text(bytes.c_str());
    text.AnsiToUTF8().UTF8ToAnsi();
    text.UTF8ToGreek();
    Tables(data, size);
    return 0;
}
