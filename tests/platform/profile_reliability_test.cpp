// Profile files under concurrent writers, writers killed mid-write, and damaged files.
#include "platform/file_watch.hpp"
#include "platform/profile.hpp"
#include "platform/profile_document.hpp"

#include "support/ChildProcess.hpp"
#include "support/FileText.hpp"
#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <set>
#include <thread>
#include <vector>

#include <unistd.h>

using vesk::platform::GetPrivateProfileString;
using vesk::platform::ProfileDocument;
using vesk::platform::WritePrivateProfileString;
using vesk::test::ReadFileText;
using vesk::test::WriteFileText;

namespace {

std::u16string Wide(const std::string& ascii)
{
    return std::u16string(ascii.begin(), ascii.end());
}

bool Write(const std::string& key, const std::string& value, const std::string& file)
{
    return WritePrivateProfileString(u"s", Wide(key).c_str(), Wide(value).c_str(), file);
}

std::u16string Read(const char16_t* section, const char16_t* key, const std::string& file, uint32_t size = 4096)
{
    std::vector<char16_t> buffer(size);
    uint32_t length = GetPrivateProfileString(section, key, u"<default>", buffer.data(), size, file);
    return std::u16string(buffer.data(), length);
}

TEST(ProfileReliability, TwoProcessesWritingDifferentKeysKeepAllOfThem)
{
    vesk::test::TempDir dir;
    std::string file = dir.File("shared.ini");
    const auto writer = [&](char process) {
        return [&file, process] {
            for (int i = 0; i < 1000; ++i) {
                std::string key = std::string(1, process) + std::to_string(i);
                if (!Write(key, key + "=" + std::string(1, process), file))
                    return 1;
            }
            return 0;
        };
    };
    pid_t first = vesk::test::StartChild(writer('a'));
    pid_t second = vesk::test::StartChild(writer('b'));
    EXPECT_EQ(vesk::test::WaitChild(first), 0);
    EXPECT_EQ(vesk::test::WaitChild(second), 0);

    std::u16string list = Read(u"s", nullptr, file, 1 << 16);
    EXPECT_EQ(std::count(list.begin(), list.end(), u'\0'), 2000);
    for (char process : {'a', 'b'}) {
        for (int i = 0; i < 1000; ++i) {
            std::string key = std::string(1, process) + std::to_string(i);
            ASSERT_EQ(Read(u"s", Wide(key).c_str(), file), Wide(key + "=" + std::string(1, process)));
        }
    }
}

TEST(ProfileReliability, ThreadsReadingAndWritingOneFileKeepAllKeys)
{
    vesk::test::TempDir dir;
    std::string file = dir.File("threads.ini");
    std::atomic<int> writing = 2;
    std::vector<std::thread> threads;
    for (char writer : {'a', 'b'}) {
        threads.emplace_back([&file, &writing, writer] {
            for (int i = 0; i < 100; ++i)
                EXPECT_TRUE(Write(std::string(1, writer) + std::to_string(i), std::to_string(i), file));
            --writing;
        });
        // Readers run for as long as anyone writes, so that every write meets reads.
        threads.emplace_back([&file, &writing] {
            while (writing > 0) {
                const std::u16string list = Read(u"s", nullptr, file, 1 << 12);
                ASSERT_TRUE(list.empty() || list.back() == u'\0');
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    std::u16string list = Read(u"s", nullptr, file, 1 << 12);
    EXPECT_EQ(std::count(list.begin(), list.end(), u'\0'), 200);
}

TEST(ProfileReliability, AWriterKilledAtRandomLeavesTheOldOrTheNewFile)
{
    vesk::test::TempDir dir;
    std::string file = dir.File("killed.ini");
    const std::string a(4000, 'a'), b(4000, 'b');
    for (int i = 0; i < 300; ++i)
        ASSERT_TRUE(Write("k" + std::to_string(i), "value " + std::to_string(i), file));
    ASSERT_TRUE(Write("flip", a, file));

    std::mt19937 random(20240601);
    std::set<std::string> counts;
    for (int round = 0; round < 200; ++round) {
        ASSERT_TRUE(vesk::test::KillWhileWriting(
            [&](int i) {
                Write("flip", i % 2 ? b : a, file);
                Write("count", std::to_string(round) + "." + std::to_string(i), file);
            },
            random));

        auto doc = ProfileDocument::Parse(ReadFileText(file));
        auto flip = doc.Find("s", "flip");
        ASSERT_TRUE(flip && (*flip == a || *flip == b)) << "round " << round;
        for (int i = 0; i < 300; ++i)
            ASSERT_EQ(doc.Find("s", "k" + std::to_string(i)), "value " + std::to_string(i)) << "round " << round;
        if (auto count = doc.Find("s", "count"))
            counts.emplace(*count);
    }
    EXPECT_EQ(counts.size(), 200u);
    EXPECT_EQ(Read(u"s", u"k299", file), u"value 299");
}

TEST(ProfileReliability, DamagedFilesReadWithoutHarmAndKeepTheirBytes)
{
    vesk::test::TempDir dir;
    std::string file = dir.File("damaged.ini");

    std::mt19937 random(7);
    std::string garbage(1 << 16, '\0');
    for (char& c : garbage)
        c = static_cast<char>(random());
    garbage[0] = 'x'; // no byte-order mark
    ASSERT_TRUE(WriteFileText(file, garbage));
    EXPECT_EQ(Read(u"vesk test", u"k", file), u"<default>");
    Read(u"s", nullptr, file);
    EXPECT_TRUE(WritePrivateProfileString(u"vesk test", u"k", u"1", file));
    EXPECT_EQ(Read(u"vesk test", u"k", file), u"1");
    EXPECT_EQ(ReadFileText(file).substr(0, garbage.size()), garbage);

    std::string longValue(1 << 20, 'x');
    ASSERT_TRUE(WriteFileText(file, "[s]\nlong=" + longValue + "\nafter=1\n"));
    EXPECT_EQ(Read(u"s", u"long", file, (1 << 20) + 1), Wide(longValue));
    EXPECT_EQ(Read(u"s", u"after", file), u"1");

    ASSERT_TRUE(WriteFileText(file, "[s]\nk=no final line end"));
    EXPECT_EQ(Read(u"s", u"k", file), u"no final line end");

    ASSERT_TRUE(WriteFileText(file, "[s\nk=1\n[t]\nk=2\n"));
    EXPECT_EQ(Read(u"s", u"k", file), u"1");

    // UTF-16 with an unpaired surrogate and an odd final byte
    const char utf16[] = "\xFF\xFE[\0s\0]\0\n\0k\0=\0\x3D\xD8\n\0x";
    ASSERT_TRUE(WriteFileText(file, std::string(utf16, sizeof utf16 - 1)));
    EXPECT_EQ(Read(u"s", u"k", file), u"\uFFFD");

    ASSERT_EQ(::unlink(file.c_str()), 0);
    ASSERT_EQ(::mkdir(file.c_str(), 0700), 0);
    vesk::platform::file_watch::Settle();
    EXPECT_EQ(Read(u"s", u"k", file), u"<default>");
    EXPECT_FALSE(WritePrivateProfileString(u"s", u"k", u"1", file));
}

} // namespace
