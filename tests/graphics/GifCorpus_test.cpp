// Every GIF of the corpus decoded by the library and by giflib: frames, rectangles, graphic
// control values and every palette index must agree, and match the hashes giflib recorded in
// expected.txt. Damaged files must give the library's own results.
#include <vesk/graphics.hpp>

#include "graphics/FileBytes.hpp"
#include "graphics/gif/GifReader_p.hpp"

#include <gif_lib.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

using namespace vesk;

namespace {

const std::string kCorpus = std::string(VESK_GIF_CORPUS) + "/";

uint64_t Fnv1a(const std::vector<uint8_t>& bytes)
{
    uint64_t h = 0xcbf29ce484222325ull;
    for (uint8_t b : bytes)
        h = (h ^ b) * 0x100000001b3ull;
    return h;
}

// "file" -> the indices hash of each image, from expected.txt.
std::map<std::string, std::vector<std::string>> ExpectedHashes()
{
    std::map<std::string, std::vector<std::string>> hashes;
    std::ifstream in(kCorpus + "expected.txt");
    std::string line, file;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        if (line[0] != ' ') {
            file = line.substr(0, line.find(':'));
            hashes[file];
        } else if (const size_t at = line.find("indices_fnv1a64="); at != std::string::npos) {
            hashes[file].push_back(line.substr(at + 16));
        }
    }
    return hashes;
}

// A frame's indices without the row padding.
std::vector<uint8_t> Indices(const GifFrame& frame)
{
    std::vector<uint8_t> out;
    for (uint32_t row = 0; row < frame.GetHeight(); ++row) {
        const uint8_t* p = frame.GetPixels() + size_t{row} * frame.GetStride();
        out.insert(out.end(), p, p + frame.GetWidth());
    }
    return out;
}

std::vector<std::string> CorpusFiles()
{
    std::vector<std::string> files;
    for (const auto& e : std::filesystem::recursive_directory_iterator(kCorpus))
        if (e.path().extension() == ".gif")
            files.push_back(std::filesystem::relative(e.path(), kCorpus).string());
    std::sort(files.begin(), files.end());
    return files;
}

// Files the library reads differently from giflib on purpose: an extension with an unknown
// label ends the walk instead of being skipped (209), and the code after a clear is a pixel
// even when it is another clear code (208, with 128 clears mostly back to back).
bool DiffersFromGiflib(const std::string& file)
{
    return file == "image-gif-issue-209-extension-block-type.gif" || file == "image-gif-issue-208-block-type.gif";
}

TEST(GifCorpus, EveryValidFileMatchesGiflibFrameByFrame)
{
    const auto expected = ExpectedHashes();
    int files = 0, frames = 0;
    for (const std::string& name : CorpusFiles()) {
        SCOPED_TRACE(name);
        int error = 0;
        const test::GifFilePtr gif(DGifOpenFileName((kCorpus + name).c_str(), &error));
        if (!gif)
            continue; // not even a header giflib accepts
        const bool valid = DGifSlurp(gif.get()) == GIF_OK;
        const std::vector<uint8_t> bytes = test::ReadBytes(kCorpus + name);
        GifReader reader;
        if (!valid || DiffersFromGiflib(name))
            continue;
        ++files;
        ASSERT_TRUE(reader.Open(bytes.data(), bytes.size()));
        EXPECT_EQ(reader.m_nScreenWidth, gif->SWidth);
        EXPECT_EQ(reader.m_nScreenHeight, gif->SHeight);
        const auto& hashes = expected.at(name);
        ASSERT_EQ(hashes.size(), static_cast<size_t>(gif->ImageCount));
        for (int i = 0; i < gif->ImageCount; ++i) {
            SCOPED_TRACE(i);
            const SavedImage& image = gif->SavedImages[i];
            GifFrame frame = i == 0 ? reader.FirstImage() : reader.NextImage();
            ASSERT_FALSE(frame.IsEmpty());
            EXPECT_EQ(frame.GetLeft(), image.ImageDesc.Left);
            EXPECT_EQ(frame.GetTop(), image.ImageDesc.Top);
            ASSERT_EQ(frame.GetWidth(), image.ImageDesc.Width);
            ASSERT_EQ(frame.GetHeight(), image.ImageDesc.Height);
            const std::vector<uint8_t> indices = Indices(frame);
            const size_t count = size_t{frame.GetWidth()} * frame.GetHeight();
            ASSERT_TRUE(std::equal(indices.begin(), indices.end(), image.RasterBits, image.RasterBits + count));
            char hash[17];
            std::snprintf(hash, sizeof hash, "%016llx", static_cast<unsigned long long>(Fnv1a(indices)));
            EXPECT_EQ(hash, hashes[static_cast<size_t>(i)]);
            // Of several graphic control extensions the last one before the frame counts.
            const ExtensionBlock* control = nullptr;
            for (int e = 0; e < image.ExtensionBlockCount; ++e)
                if (image.ExtensionBlocks[e].Function == GRAPHICS_EXT_FUNC_CODE)
                    control = &image.ExtensionBlocks[e];
            GraphicsControlBlock gcb;
            if (control && DGifExtensionToGCB(control->ByteCount, control->Bytes, &gcb) == GIF_OK) {
                EXPECT_EQ(reader.m_nDisposal, gcb.DisposalMode << 2);
                EXPECT_EQ(reader.m_nDelay, gcb.DelayTime);
                EXPECT_EQ(reader.m_bTransparent, gcb.TransparentColor >= 0);
                if (gcb.TransparentColor >= 0) {
                    EXPECT_EQ(reader.m_nTransparentIndex, gcb.TransparentColor);
                }
            }
            ++frames;
        }
        // After the last frame the animation starts again at the first.
        if (gif->ImageCount > 0) {
            const GifFrame again = reader.NextImage();
            ASSERT_FALSE(again.IsEmpty());
            EXPECT_EQ(Indices(again), std::vector<uint8_t>(gif->SavedImages[0].RasterBits,
                                                           gif->SavedImages[0].RasterBits + again.GetWidth() * again.GetHeight()));
        }
    }
    RecordProperty("files", files);
    RecordProperty("frames", frames);
    EXPECT_GE(files, 20);
    EXPECT_GE(frames, 60);
}

// Decodes every frame until the animation wraps or breaks; the frame count, or -1 when the
// header or table is refused.
int FramesOf(const std::string& name, std::vector<GifFrame>* frames = nullptr)
{
    const std::vector<uint8_t> bytes = test::ReadBytes(kCorpus + name);
    GifReader reader;
    if (!reader.Open(bytes.data(), bytes.size()))
        return -1;
    reader.ScanFirst();
    int count = 0;
    GifFrame frame = reader.FirstImage();
    for (; !frame.IsEmpty() && count < 100; ++count) {
        if (frames)
            frames->push_back(std::move(frame));
        frame = reader.NextImage();
    }
    return count;
}

TEST(GifCorpus, DamagedFilesGiveTheirDocumentedResults)
{
    // Refused: a cut header or table, a foreign signature.
    for (const char* name : {"malformed/truncated-in-screen-descriptor.gif", "malformed/truncated-in-global-palette.gif",
                             "malformed/nsgif-afl-000001.gif", "malformed/nsgif-afl-000041.gif",
                             "malformed/nsgif-afl-000144.gif"})
        EXPECT_EQ(FramesOf(name), -1) << name;
    // Loaded, and each frame either decodes or is skipped: no crash, no read outside a buffer.
    for (const std::string& name : CorpusFiles()) {
        if (name.rfind("malformed/", 0) == 0 || name.find("pixel-data") != std::string::npos) {
            EXPECT_LE(FramesOf(name), 100) << name;
        }
    }

    // No frames at all: the walk meets the trailer twice.
    EXPECT_EQ(FramesOf("header-trailer-only.gif"), 0);
    EXPECT_EQ(FramesOf("wuffs-artificial/no-frames.gif"), 0);
    // Cut before the trailer: the missing byte reads as 0, which rewinds like the trailer.
    std::vector<GifFrame> whole, cut;
    ASSERT_EQ(FramesOf("muybridge.gif", &whole), 100);
    ASSERT_EQ(FramesOf("malformed/truncated-no-trailer.gif", &cut), 100);
    for (size_t i = 0; i < 30; ++i)
        EXPECT_EQ(Indices(cut[i]), Indices(whole[i % 15])) << i;
    // Cut inside frame 7's data: 7 whole frames, then what the stream held, then the walk ends.
    cut.clear();
    ASSERT_EQ(FramesOf("malformed/truncated-mid-animation.gif", &cut), 8);
    for (size_t i = 0; i < 7; ++i)
        EXPECT_EQ(Indices(cut[i]), Indices(whole[i])) << i;
    // A code above the next free entry takes the previous string again; past the last pixel
    // it changes nothing.
    std::vector<GifFrame> four;
    ASSERT_EQ(FramesOf("wuffs-artificial/pixel-data-too-much-bad-lzw.gif", &four), 100);
    std::vector<GifFrame> good;
    ASSERT_EQ(FramesOf("wuffs-artificial/pixel-data-too-much-good-lzw.gif", &good), 100);
    EXPECT_EQ(Indices(four[0]), Indices(good[0]));
    // An unknown extension label ends the walk: loaded, but no frame.
    EXPECT_EQ(FramesOf("image-gif-issue-209-extension-block-type.gif"), 0);
    // A clear code right after a clear is written as a pixel of its own value (8 here), which
    // giflib would take as one more clear.
    std::vector<GifFrame> clears;
    ASSERT_GE(FramesOf("image-gif-issue-208-block-type.gif", &clears), 1);
    const std::vector<uint8_t> pixels = Indices(clears[0]);
    EXPECT_NE(std::find(pixels.begin(), pixels.end(), 8), pixels.end());
}

} // namespace
