// The private-profile functions: buffer contracts, the four write cases, the cache and how
// writes fail.
#include "platform/file_watch.hpp"
#include "platform/profile.hpp"

#include "support/ChildProcess.hpp"
#include "support/FileText.hpp"
#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <csignal>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using vesk::platform::GetPrivateProfileString;
using vesk::platform::file_watch::Settle;
using vesk::platform::WritePrivateProfileString;
using vesk::test::ReadFileText;
using vesk::test::RunUnprivileged;
using vesk::test::WriteFileText;

namespace {

std::u16string Read(const char16_t* section, const char16_t* key, const std::string& file, const char16_t* fallback = u"")
{
    char16_t buffer[4096];
    uint32_t length = GetPrivateProfileString(section, key, fallback, buffer, 4096, file);
    return std::u16string(buffer, length);
}

class Profile : public ::testing::Test {
protected:
    vesk::test::TempDir m_dir;
    std::string m_file = m_dir.File("test.ini");
};

TEST_F(Profile, ValueIsCutToTheBufferAndZeroEnded)
{
    ASSERT_TRUE(WriteFileText(m_file, "[s]\nk=abcdef\n"));
    char16_t buffer[8] = {u'x', u'x', u'x', u'x', u'x', u'x', u'x', u'x'};
    EXPECT_EQ(GetPrivateProfileString(u"s", u"k", u"", buffer, 0, m_file), 0u);
    EXPECT_EQ(buffer[0], u'x');
    EXPECT_EQ(GetPrivateProfileString(u"s", u"k", u"", buffer, 4, m_file), 3u);
    EXPECT_EQ(std::u16string(buffer, 4), std::u16string(u"abc\0", 4));
    EXPECT_EQ(GetPrivateProfileString(u"s", u"k", u"", buffer, 1, m_file), 0u);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(GetPrivateProfileString(u"s", u"k", u"", buffer, 7, m_file), 6u); // exactly fits
    EXPECT_EQ(std::u16string(buffer, 7), std::u16string(u"abcdef\0", 7));
    EXPECT_EQ(GetPrivateProfileString(u"s", u"k", u"", buffer, 6, m_file), 5u);
    EXPECT_EQ(std::u16string(buffer, 6), std::u16string(u"abcde\0", 6));
}

TEST_F(Profile, KeyListEndsWithTwoZerosAndReportsSizeMinusTwoWhenCut)
{
    ASSERT_TRUE(WriteFileText(m_file, "[s]\none=1\ntwo=2\n[empty]\n"));
    char16_t buffer[16];
    EXPECT_EQ(GetPrivateProfileString(u"S", nullptr, u"", buffer, 16, m_file), 8u);
    EXPECT_EQ(std::u16string(buffer, 9), std::u16string(u"one\0two\0\0", 9));
    EXPECT_EQ(GetPrivateProfileString(u"s", nullptr, u"", buffer, 9, m_file), 8u); // exactly fits
    EXPECT_EQ(GetPrivateProfileString(u"s", nullptr, u"", buffer, 8, m_file), 6u);
    EXPECT_EQ(std::u16string(buffer, 8), std::u16string(u"one\0tw\0\0", 8));
    EXPECT_EQ(GetPrivateProfileString(u"s", nullptr, u"", buffer, 2, m_file), 0u);
    EXPECT_EQ(std::u16string(buffer, 2), std::u16string(u"\0\0", 2));
    EXPECT_EQ(GetPrivateProfileString(u"empty", nullptr, u"", buffer, 16, m_file), 0u);
    EXPECT_EQ(GetPrivateProfileString(nullptr, nullptr, u"", buffer, 16, m_file), 0u);
}

TEST_F(Profile, DefaultLosesTrailingBlanksAndStandsForWhatIsMissing)
{
    EXPECT_EQ(Read(u"s", u"k", m_file, u" dflt \t "), u" dflt");
    ASSERT_TRUE(WriteFileText(m_file, "[s]\nk=1\n"));
    EXPECT_EQ(Read(u"s", u"j", m_file, u"d"), u"d");
    EXPECT_EQ(Read(u"s", u"j", m_file, nullptr), u"");
}

TEST_F(Profile, TheFourWriteCases)
{
    EXPECT_TRUE(WritePrivateProfileString(u"one", u"a", u"1", m_file));
    EXPECT_TRUE(WritePrivateProfileString(u"one", u"b", u"2", m_file));
    EXPECT_TRUE(WritePrivateProfileString(u"two", u"c", u"3", m_file));
    EXPECT_EQ(ReadFileText(m_file), "[one]\na=1\nb=2\n[two]\nc=3\n");
    EXPECT_TRUE(WritePrivateProfileString(u"ONE", u"A", nullptr, m_file));
    EXPECT_EQ(Read(u"one", u"a", m_file, u"gone"), u"gone");
    EXPECT_TRUE(WritePrivateProfileString(u"Two", nullptr, nullptr, m_file));
    EXPECT_EQ(ReadFileText(m_file), "[one]\nb=2\n");
    EXPECT_TRUE(WritePrivateProfileString(nullptr, nullptr, nullptr, m_file));
    EXPECT_EQ(Read(u"one", u"b", m_file), u"2");
    // Deleting what is absent writes nothing.
    std::string absent = m_dir.File("absent.ini");
    EXPECT_TRUE(WritePrivateProfileString(u"s", u"k", nullptr, absent));
    EXPECT_EQ(ReadFileText(absent), "<missing>");
}

TEST_F(Profile, NamesAndValuesThatCannotBeStoredAreRefused)
{
    ASSERT_TRUE(WriteFileText(m_file, "[s]\nk=1\n"));
    EXPECT_FALSE(WritePrivateProfileString(u"s", u"a=b", u"1", m_file));
    EXPECT_FALSE(WritePrivateProfileString(u"s", u";k", u"1", m_file));
    EXPECT_FALSE(WritePrivateProfileString(u"s]", u"k", u"1", m_file));
    EXPECT_FALSE(WritePrivateProfileString(u"s", u"k", u"1\n[t]\nk=2", m_file));
    EXPECT_FALSE(WritePrivateProfileString(u"s", u"", u"1", m_file));
    EXPECT_EQ(ReadFileText(m_file), "[s]\nk=1\n");
}

TEST_F(Profile, WideTextIsStoredAsUtf8)
{
    EXPECT_TRUE(WritePrivateProfileString(u"Gr\u00FC\u00DFe", u"\u20AC", u"\U0001D11E x", m_file));
    EXPECT_EQ(ReadFileText(m_file), "[Gr\xC3\xBC\xC3\x9F" "e]\n\xE2\x82\xAC=\xF0\x9D\x84\x9E x\n");
    EXPECT_EQ(Read(u"gr\u00FC\u00DFE", u"\u20AC", m_file), u"\U0001D11E x");
    // Bytes that are not UTF-8 read as the characters U+0080 to U+00FF.
    ASSERT_TRUE(WriteFileText(m_file, "[s]\nk=a\xE9\xC3\n"));
    EXPECT_EQ(Read(u"s", u"k", m_file), u"a\u00E9\u00C3");
}

TEST_F(Profile, ReadsParseAgainOnlyWhenTheFileChanges)
{
    ASSERT_TRUE(WriteFileText(m_file, "[s]\nk=1\n"));
    EXPECT_EQ(Read(u"s", u"k", m_file), u"1");
    struct stat before;
    ASSERT_EQ(::stat(m_file.c_str(), &before), 0);

    // New bytes under the same inode, size and modification time are not looked at.
    ASSERT_TRUE(WriteFileText(m_file, "[s]\nk=2\n"));
    const struct timespec times[2] = {before.st_atim, before.st_mtim};
    ASSERT_EQ(::utimensat(AT_FDCWD, m_file.c_str(), times, 0), 0);
    Settle();
    EXPECT_EQ(Read(u"s", u"k", m_file), u"1");

    // A new modification time or a new inode is.
    const struct timespec later[2] = {before.st_atim, {before.st_mtim.tv_sec + 1, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, m_file.c_str(), later, 0), 0);
    Settle();
    EXPECT_EQ(Read(u"s", u"k", m_file), u"2");
    ASSERT_TRUE(WriteFileText(m_dir.File("other"), "[s]\nk=3\n"));
    ASSERT_EQ(::utimensat(AT_FDCWD, m_dir.File("other").c_str(), later, 0), 0);
    ASSERT_EQ(::rename(m_dir.File("other").c_str(), m_file.c_str()), 0);
    Settle();
    EXPECT_EQ(Read(u"s", u"k", m_file), u"3");
}

TEST_F(Profile, AWriteToALinkReplacesItsTargetAndKeepsItsMode)
{
    std::string target = m_dir.File("target.ini");
    ASSERT_TRUE(WriteFileText(target, "[s]\nk=1\n"));
    ASSERT_EQ(::chmod(target.c_str(), 0640), 0);
    ASSERT_EQ(::symlink("target.ini", m_file.c_str()), 0);
    EXPECT_TRUE(WritePrivateProfileString(u"s", u"k", u"2", m_file));
    struct stat st;
    ASSERT_EQ(::lstat(m_file.c_str(), &st), 0);
    EXPECT_TRUE(S_ISLNK(st.st_mode));
    EXPECT_EQ(ReadFileText(target), "[s]\nk=2\n");
    ASSERT_EQ(::stat(target.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0640u);
}

TEST_F(Profile, AWriteFailsInAReadOnlyFolderOrFileAndLeavesTheFileAlone)
{
    // The modes deny the writer whether it is the owner or, for root, the unprivileged user.
    ASSERT_TRUE(WriteFileText(m_file, "[s]\nk=1\n"));
    auto write = [&] { return RunUnprivileged([&] { return WritePrivateProfileString(u"s", u"k", u"2", m_file); }); };
    ASSERT_EQ(::chmod(m_dir.Path().c_str(), 0777), 0);
    ASSERT_EQ(::chmod(m_file.c_str(), 0444), 0);
    EXPECT_EQ(write(), 0);
    ASSERT_EQ(::chmod(m_dir.Path().c_str(), 0555), 0);
    ASSERT_EQ(::chmod(m_file.c_str(), 0666), 0);
    EXPECT_EQ(write(), 0);
    EXPECT_EQ(ReadFileText(m_file), "[s]\nk=1\n");
    ASSERT_EQ(::chmod(m_dir.Path().c_str(), 0777), 0);
    EXPECT_EQ(write(), 1);
    EXPECT_EQ(ReadFileText(m_file), "[s]\nk=2\n");
}

TEST_F(Profile, AWriteFailsWhenTheDiskIsFullAndLeavesTheFileAlone)
{
    ASSERT_TRUE(WriteFileText(m_file, "[s]\nk=1\n"));
    int result = vesk::test::RunInChild([&] {
        // A file size limit makes writes fail as a full disk does.
        struct rlimit limit = {4096, 4096};
        ::signal(SIGXFSZ, SIG_IGN);
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
            return 2;
        std::u16string big(10000, u'x');
        return WritePrivateProfileString(u"s", u"k", big.c_str(), m_file) ? 1 : 0;
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(ReadFileText(m_file), "[s]\nk=1\n");
    EXPECT_EQ(ReadFileText(m_dir.File(".test.ini.vesk-tmp")), "<missing>");
    EXPECT_EQ(Read(u"s", u"k", m_file), u"1");
}

} // namespace
