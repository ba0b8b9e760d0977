// libvesk.so must carry every zlib entry point in its own dynamic symbol table and behave as
// zlib does. The symbols are looked up in the library file itself, so a name that only
// libz.so.1 defines does not pass.
#include "support/ZlibNames.hpp"

#include <vesk/zlib.hpp>

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

using vesk::test::kZlibNames;

class VeskZlib : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_handle = dlopen(VESK_LIBRARY_FILE, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(m_handle, nullptr) << dlerror();
    }
    void TearDown() override
    {
        if (m_handle)
            dlclose(m_handle);
    }

    // The address of `name` if libvesk.so itself defines it, else null.
    void* ownSymbol(const char* name)
    {
        void* symbol = dlsym(m_handle, name);
        Dl_info info {};
        if (!symbol || !dladdr(symbol, &info) || !info.dli_fname)
            return nullptr;
        const std::string file = info.dli_fname;
        return file.find("libvesk.so") != std::string::npos ? symbol : nullptr;
    }

    template <typename Fn>
    Fn fn(const char* name)
    {
        return reinterpret_cast<Fn>(ownSymbol(name));
    }

    void* m_handle = nullptr;
};

std::vector<Bytef> sampleText()
{
    std::vector<Bytef> text;
    for (int i = 0; i < 20000; ++i)
        text.push_back(static_cast<Bytef>("vesk zlib round trip "[i % 21] ^ (i / 997)));
    return text;
}

} // namespace

TEST_F(VeskZlib, EveryInterfaceNameIsInTheLibrarysDynamicSymbolTable)
{
    for (const char* name : kZlibNames)
        EXPECT_NE(ownSymbol(name), nullptr) << name;
}

TEST_F(VeskZlib, Compress2AndUncompressRoundTrip)
{
    auto compressBoundFn = fn<decltype(&compressBound)>("compressBound");
    auto compress2Fn = fn<decltype(&compress2)>("compress2");
    auto uncompressFn = fn<decltype(&uncompress)>("uncompress");
    ASSERT_TRUE(compressBoundFn && compress2Fn && uncompressFn);

    const auto text = sampleText();
    std::vector<Bytef> packed(compressBoundFn(text.size()));
    uLongf packedSize = packed.size();
    ASSERT_EQ(compress2Fn(packed.data(), &packedSize, text.data(), text.size(), 9), Z_OK);
    EXPECT_LT(packedSize, text.size());

    std::vector<Bytef> unpacked(text.size());
    uLongf unpackedSize = unpacked.size();
    ASSERT_EQ(uncompressFn(unpacked.data(), &unpackedSize, packed.data(), packedSize), Z_OK);
    EXPECT_EQ(unpackedSize, text.size());
    EXPECT_EQ(unpacked, text);
}

TEST_F(VeskZlib, DeflateAndInflateStreamsRoundTrip)
{
    auto deflateInitFn = fn<decltype(&deflateInit_)>("deflateInit_");
    auto deflateFn = fn<decltype(&deflate)>("deflate");
    auto deflateEndFn = fn<decltype(&deflateEnd)>("deflateEnd");
    auto inflateInitFn = fn<decltype(&inflateInit_)>("inflateInit_");
    auto inflateFn = fn<decltype(&inflate)>("inflate");
    auto inflateEndFn = fn<decltype(&inflateEnd)>("inflateEnd");
    auto versionFn = fn<decltype(&zlibVersion)>("zlibVersion");
    ASSERT_TRUE(deflateInitFn && deflateFn && deflateEndFn && inflateInitFn && inflateFn && inflateEndFn && versionFn);
    EXPECT_STREQ(versionFn(), ZLIB_VERSION);

    auto text = sampleText();
    std::vector<Bytef> packed(text.size() + 1024);
    z_stream out {};
    ASSERT_EQ(deflateInitFn(&out, Z_BEST_SPEED, ZLIB_VERSION, sizeof(z_stream)), Z_OK);
    out.next_in = text.data();
    out.avail_in = static_cast<uInt>(text.size());
    out.next_out = packed.data();
    out.avail_out = static_cast<uInt>(packed.size());
    ASSERT_EQ(deflateFn(&out, Z_FINISH), Z_STREAM_END);
    const auto packedSize = out.total_out;
    ASSERT_EQ(deflateEndFn(&out), Z_OK);

    std::vector<Bytef> unpacked(text.size());
    z_stream in {};
    ASSERT_EQ(inflateInitFn(&in, ZLIB_VERSION, sizeof(z_stream)), Z_OK);
    in.next_in = packed.data();
    in.avail_in = static_cast<uInt>(packedSize);
    // Inflate in small output steps so that the stream state carries across calls.
    int result = Z_OK;
    while (result == Z_OK) {
        in.next_out = unpacked.data() + in.total_out;
        in.avail_out = static_cast<uInt>(std::min<size_t>(777, unpacked.size() - in.total_out));
        result = inflateFn(&in, Z_NO_FLUSH);
    }
    EXPECT_EQ(result, Z_STREAM_END);
    EXPECT_EQ(in.total_out, text.size());
    ASSERT_EQ(inflateEndFn(&in), Z_OK);
    EXPECT_EQ(unpacked, text);
}
