// Config: the value escapes, reading and its repairs, key enumeration with its cached key
// list, copies and the default file.
#include "files/Config_p.hpp"

#include <vesk/files.hpp>

#include "support/ConfigHomeGuard.hpp"
#include "support/FileText.hpp"

#include <gtest/gtest.h>

using vesk::Config;
using vesk::SString;
using vesk::test::ReadFileText;
using vesk::test::WriteFileText;

namespace {

std::string Bytes(const SString& s)
{
    return std::string(static_cast<const char*>(s), s.Len());
}

class ConfigTest : public ::testing::Test {
protected:
    Config Open(const char* group = "g")
    {
        Config config(SString(m_file.c_str()));
        config.SetGroup(group);
        return config;
    }

    vesk::test::ConfigHomeGuard m_home;
    std::string m_file = m_home.File("test.ini");
};

TEST_F(ConfigTest, ValuesAreEscapedInTheFileAndReadBackUnchanged)
{
    Config config = Open();
    EXPECT_TRUE(config.WriteKey("k", "a/\xC3\xBC"));
    EXPECT_TRUE(config.WriteKey("all", std::string("\x01 ~\x7F\x80\xFF").c_str()));
    EXPECT_EQ(ReadFileText(m_file), "[g]\nk=a/2F/C3/BC\nall=\x01 ~\x7F/80/FF\n");
    SString value = config.ReadKey("k");
    EXPECT_EQ(Bytes(value), "a/\xC3\xBC");
    EXPECT_TRUE(value.IsUTF8());
    EXPECT_EQ(Bytes(config.ReadKey("all")), "\x01 ~\x7F\x80\xFF");
    EXPECT_FALSE(config.ReadKey("all").IsUTF8());
}

TEST_F(ConfigTest, OnlyWellFormedUpperCaseEscapesAreDecoded)
{
    ASSERT_TRUE(WriteFileText(m_file, "[g]\nlower=x/2fy\nbad=/G1/2G\nend=a/\nlast=/41\n"));
    Config config = Open();
    EXPECT_EQ(Bytes(config.ReadKey("lower")), "x/2fy");
    EXPECT_EQ(Bytes(config.ReadKey("bad")), "/G1/2G");
    EXPECT_EQ(Bytes(config.ReadKey("end")), "a/");
    EXPECT_EQ(Bytes(config.ReadKey("last")), "A");
}

TEST_F(ConfigTest, CharactersOfTheFileGiveTheirLowEightBits)
{
    // U+0178 after U+00C3 is the byte 0x9F that an 8-bit code page turned into a letter; any
    // other character gives its low eight bits, and a unit ending in 0x2F starts an escape.
    ASSERT_TRUE(WriteFileText(m_file, "[g]\nrepair=\xC3\x83\xC5\xB8\nalone=\xC5\xB8\nlatin=\xC3\xA9\n"
                                      "slash=\xC4\xAF" "41\n"));
    Config config = Open();
    SString repaired = config.ReadKey("repair");
    EXPECT_EQ(Bytes(repaired), "\xC3\x9F");
    EXPECT_TRUE(repaired.IsUTF8());
    EXPECT_EQ(Bytes(config.ReadKey("alone")), "\x78");
    EXPECT_EQ(Bytes(config.ReadKey("latin")), "\xE9");
    EXPECT_FALSE(config.ReadKey("latin").IsUTF8());
    EXPECT_EQ(Bytes(config.ReadKey("slash")), "A");
}

TEST_F(ConfigTest, TheDefaultStandsForAMissingFileGroupOrKey)
{
    EXPECT_EQ(Bytes(Open().ReadKey("k", "a/2F \xC3\xBC")), "a/2F \xC3\xBC");
    ASSERT_TRUE(WriteFileText(m_file, "[g]\nk=1\n"));
    EXPECT_EQ(Bytes(Open("other").ReadKey("k", "d")), "d");
    EXPECT_EQ(Bytes(Open().ReadKey("j", "d")), "d");
    // As the profile reader does, it loses trailing blanks.
    EXPECT_EQ(Bytes(Open().ReadKey("j", " d  ")), " d");
}

TEST_F(ConfigTest, LongValuesAreReadInFull)
{
    Config config = Open();
    for (unsigned length : {1022u, 1023u, 3071u, 100000u}) {
        std::string value(length, 'v');
        ASSERT_TRUE(config.WriteKey("k", value.c_str()));
        EXPECT_EQ(config.ReadKey("k").Len(), length);
    }
    std::string escaped(2000, '\xE9'); // 6000 characters in the file
    ASSERT_TRUE(config.WriteKey("k", escaped.c_str()));
    EXPECT_EQ(Bytes(config.ReadKey("k")), escaped);
}

TEST_F(ConfigTest, KeysAreEnumeratedByIndex)
{
    ASSERT_TRUE(WriteFileText(m_file, "[g]\nfirst=1\nZwei=/32\n\xC3\xBC=3\n[h]\nx=1\n"));
    Config config = Open();
    EXPECT_EQ(config.GetKeyCount(), 3);
    EXPECT_EQ(Bytes(config.GetKeyName(1)), "Zwei");
    EXPECT_EQ(Bytes(config.ReadKey(static_cast<unsigned short>(1))), "2");
    EXPECT_EQ(Bytes(config.GetKeyName(2)), "\xC3\xBC");
    EXPECT_TRUE(config.GetKeyName(2).IsUTF8());
    EXPECT_EQ(Bytes(config.ReadKey(static_cast<unsigned short>(2))), "3");
    EXPECT_EQ(Bytes(config.GetKeyName(3)), "");
    config.SetGroup("absent");
    EXPECT_EQ(config.GetKeyCount(), 0);
}

TEST_F(ConfigTest, EveryChangeOfGroupOrFileDiscardsTheKeyList)
{
    Config config = Open(), other = Open();
    EXPECT_EQ(config.GetKeyCount(), 0);
    ASSERT_TRUE(config.WriteKey("a", "1"));
    EXPECT_EQ(config.GetKeyCount(), 1);

    // A change behind the object's back shows only once the list is discarded.
    ASSERT_TRUE(other.WriteKey("b", "2"));
    EXPECT_EQ(config.GetKeyCount(), 1);
    config.DeleteGroup("unrelated");
    EXPECT_EQ(config.GetKeyCount(), 2);
    ASSERT_TRUE(other.WriteKey("c", "3"));
    config.SetGroup("g");
    EXPECT_EQ(config.GetKeyCount(), 3);
    config.DeleteKey("a");
    EXPECT_EQ(config.GetKeyCount(), 2);
    ASSERT_TRUE(other.WriteKey("d", "4"));
    config = other;
    EXPECT_EQ(config.GetKeyCount(), 3);
    EXPECT_EQ(Bytes(config.GetKeyName(0)), "b");
    config.DeleteGroup("G");
    config.Flush();
    EXPECT_EQ(ReadFileText(m_file), "");
}

TEST_F(ConfigTest, WritesThatCannotBeStoredReportFalse)
{
    Config config = Open();
    EXPECT_FALSE(config.WriteKey("k", "two\nlines"));
    EXPECT_FALSE(config.WriteKey("a=b", "1"));
    Config nowhere(SString(m_home.File("no/such/folder/x.ini").c_str()));
    EXPECT_FALSE(nowhere.WriteKey("k", "1"));
    EXPECT_EQ(ReadFileText(m_file), "<missing>");
}

TEST_F(ConfigTest, TheDefaultFileIsNamedAfterTheProgramInTheConfigDirectory)
{
    // The test program vesk_files_tests has no ".exe" ending: ".ini" is appended.
    Config config;
    EXPECT_EQ(Bytes(config.GetPathName()), m_home.File("vesk_files_tests.ini"));
    EXPECT_EQ(Bytes(config.GetGroup()), "");
    EXPECT_TRUE(config.WriteKey("k", "v"));
    EXPECT_EQ(ReadFileText(m_home.File("vesk_files_tests.ini")), "[]\nk=v\n");
}

TEST(ConfigDefaultName, ExeNamesLoseTheirEndingOthersKeepTheirWholeName)
{
    EXPECT_EQ(vesk::ImpProfileNameOfModule("/opt/app/Tool.EXE"), "Tool.ini");
    EXPECT_EQ(vesk::ImpProfileNameOfModule("/usr/bin/app.exe"), "app.ini");
    EXPECT_EQ(vesk::ImpProfileNameOfModule("/usr/bin/gedit"), "gedit.ini");
    EXPECT_EQ(vesk::ImpProfileNameOfModule("/usr/bin/exe"), "exe.ini");
    EXPECT_EQ(vesk::ImpProfileNameOfModule("/usr/lib/my.app.bin"), "my.app.bin.ini");
}

TEST_F(ConfigTest, ABareFileNameIsInTheConfigDirectory)
{
    Config config(SString("bare.ini"));
    EXPECT_TRUE(config.WriteKey("k", "v"));
    EXPECT_EQ(ReadFileText(m_home.File("bare.ini")), "[]\nk=v\n");
}

} // namespace
