// The profile file format: what reads as a section, key and value, and that edits rewrite
// only the lines they touch.
#include "platform/profile_document.hpp"

#include <gtest/gtest.h>

#include <string>

using vesk::platform::ProfileDocument;

namespace {

std::string Value(const ProfileDocument& doc, std::string_view section, std::string_view key)
{
    auto value = doc.Find(section, key);
    return value ? std::string(*value) : std::string("<absent>");
}

std::vector<std::string> Keys(const ProfileDocument& doc, std::string_view section)
{
    std::vector<std::string> names;
    for (std::string_view name : doc.KeyNames(section))
        names.emplace_back(name);
    return names;
}

TEST(ProfileDocument, NamesAndValuesAreTrimmedAndCompareWithoutCase)
{
    auto doc = ProfileDocument::Parse("  [ Main Group ]  \n\tName Key =  a value with  inner blanks \t\n"
                                      "quoted=\" kept \"\nempty=\n");
    EXPECT_EQ(Value(doc, "main group", "NAME KEY"), "a value with  inner blanks");
    EXPECT_EQ(Value(doc, " MAIN GROUP ", " name key "), "a value with  inner blanks");
    EXPECT_EQ(Value(doc, "Main Group", "quoted"), "\" kept \"");
    EXPECT_EQ(Value(doc, "Main Group", "empty"), "");
    EXPECT_EQ(Value(doc, "Other", "empty"), "<absent>");
}

TEST(ProfileDocument, OnlyTheFirstKeyLinesOfTheFirstSectionOfANameAreRead)
{
    auto doc = ProfileDocument::Parse("before=1\n[s]\n; a=1\n# b=2\nno equals sign\n=no key\nc=3=4\nC=5\nj=6\n"
                                      "[S]\nc=7\nx=8\n");
    EXPECT_EQ(Value(doc, "", "before"), "<absent>");
    EXPECT_EQ(Keys(doc, "s"), (std::vector<std::string>{"c", "j"}));
    EXPECT_EQ(Value(doc, "s", "c"), "3=4");
    EXPECT_EQ(Value(doc, "s", "x"), "<absent>");
}

TEST(ProfileDocument, EditsKeepEveryOtherLineByteForByte)
{
    const std::string text = "; header comment\r\n[a]\r\nk = old ; not a comment\r\n  odd line\r\n\r\n[b]\r\nx=1";
    auto doc = ProfileDocument::Parse(text);
    EXPECT_EQ(doc.Serialize(), text);

    EXPECT_TRUE(doc.SetValue("A", "K", "new"));
    EXPECT_FALSE(doc.SetValue("a", "k", "new")); // unchanged
    EXPECT_TRUE(doc.SetValue("a", "added", "2"));
    EXPECT_TRUE(doc.SetValue("b", "y", "3"));
    EXPECT_TRUE(doc.SetValue("c", "z", "4"));
    EXPECT_EQ(doc.Serialize(), "; header comment\r\n[a]\r\nk = new\r\n  odd line\r\nadded=2\r\n\r\n[b]\r\nx=1\r\n"
                               "y=3\r\n[c]\r\nz=4\r\n");
}

TEST(ProfileDocument, DeletesRemoveKeysAndWholeSections)
{
    auto doc = ProfileDocument::Parse("[a]\nk=1\nj=2\nk=3\n[b]\n; about b\nx=1\n[A]\nk=9\n[c]\ny=2\n");
    EXPECT_TRUE(doc.DeleteKey("a", "K"));
    EXPECT_FALSE(doc.DeleteKey("a", "k"));
    EXPECT_EQ(Value(doc, "a", "j"), "2");
    EXPECT_TRUE(doc.DeleteSection("a"));
    EXPECT_EQ(doc.Serialize(), "[b]\n; about b\nx=1\n[c]\ny=2\n");
    EXPECT_TRUE(doc.SetValue("a", "k", "again"));
    EXPECT_EQ(Value(doc, "a", "k"), "again");
}

TEST(ProfileDocument, EditsKeepTheIndexesInStep)
{
    ProfileDocument doc = ProfileDocument::Parse("");
    for (int i = 0; i < 50; ++i)
        doc.SetValue("s" + std::to_string(i % 5), "k" + std::to_string(i), std::to_string(i));
    doc.DeleteKey("s3", "k8");
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(Value(doc, "S" + std::to_string(i % 5), "K" + std::to_string(i)), i == 8 ? "<absent>" : std::to_string(i));
}

TEST(ProfileDocument, AFileWithoutFinalLineEndGetsOneBeforeAnAddedLine)
{
    auto doc = ProfileDocument::Parse("[a]\nk=1");
    doc.SetValue("a", "j", "2");
    EXPECT_EQ(doc.Serialize(), "[a]\nk=1\nj=2\n");
    doc = ProfileDocument::Parse("[a]");
    doc.SetValue("b", "j", "2");
    EXPECT_EQ(doc.Serialize(), "[a]\n[b]\nj=2\n");
}

// A CR ending the file is read as a line end, so completing the line changes nothing it means:
// a header without its bracket cut by that CR must not turn into another section on rewrite.
TEST(ProfileDocument, ACarriageReturnEndingTheFileEndsTheLastLine)
{
    const std::string text = "\n[y\n[new\r";
    auto doc = ProfileDocument::Parse(text);
    EXPECT_EQ(doc.Serialize(), text);
    EXPECT_TRUE(doc.SetValue("new", "k", "v"));
    EXPECT_EQ(doc.Serialize(), "\n[y\n[new\r\nk=v\n");
    EXPECT_EQ(Value(ProfileDocument::Parse(doc.Serialize()), "new", "k"), "v");

    doc = ProfileDocument::Parse("[a]\nk=1\r");
    EXPECT_EQ(Value(doc, "a", "k"), "1");
    doc.SetValue("b", "j", "2");
    EXPECT_EQ(doc.Serialize(), "[a]\nk=1\r\n[b]\nj=2\n");
}

TEST(ProfileDocument, ByteOrderMarksAreReadAndKept)
{
    auto doc = ProfileDocument::Parse("\xEF\xBB\xBF[s]\nk=\xC3\xBC\n");
    EXPECT_EQ(Value(doc, "s", "k"), "\xC3\xBC");
    doc.SetValue("s", "j", "1");
    EXPECT_EQ(doc.Serialize(), "\xEF\xBB\xBF[s]\nk=\xC3\xBC\nj=1\n");

    // "[s]\nk=ü€𝄞\n" in UTF-16, little and big endian
    const std::u16string text = u"[s]\nk=\u00FC\u20AC\U0001D11E\n";
    for (bool big : {false, true}) {
        std::string bytes = big ? "\xFE\xFF" : "\xFF\xFE";
        for (char16_t unit : text) {
            char hi = static_cast<char>(unit >> 8), lo = static_cast<char>(unit & 0xFF);
            bytes += big ? hi : lo;
            bytes += big ? lo : hi;
        }
        doc = ProfileDocument::Parse(bytes);
        EXPECT_EQ(Value(doc, "s", "k"), "\xC3\xBC\xE2\x82\xAC\xF0\x9D\x84\x9E") << big;
        EXPECT_EQ(doc.Serialize(), bytes) << big;
    }
}

} // namespace
