#include "SStringTestUtil.hpp"

#include "support/OwnedLocale.hpp"

#include <vesk/text.hpp>

using namespace vesk;
using namespace vesk::test;

namespace {

// Sets a locale with SString::SetLocale for the object's lifetime.
struct StringLocale : OwnedLocale {
    explicit StringLocale(const char* name) : OwnedLocale(name) { SString::SetLocale(Get()); }
    ~StringLocale() { SString::SetLocale(nullptr); }
};

} // namespace

TEST(SStringCase, ConversionFollowsTheLocaleOfSetLocale)
{
    SString s("\xC4pfel Bl\xFCte");
    EXPECT_EQ(s.Lower(), "\xC4pfel bl\xFCte"); // the "C" locale folds ASCII only
    StringLocale latin1("de_DE.ISO-8859-1");
    if (!latin1.Get())
        GTEST_SKIP() << "de_DE.ISO-8859-1 is not installed";
    EXPECT_EQ(s.Lower(), "\xE4pfel bl\xFCte");
    EXPECT_EQ(s.Upper(), "\xC4PFEL BL\xDCTE");
    EXPECT_EQ(s.ICompare("\xE4PFEL BL\xDCTE"), COMPARE_EQUAL);
    EXPECT_EQ(s.NoCaseSearch("BL\xDC"), 6u);
    // UTF-8 text folds ASCII letters only.
    SString utf8("\xC3\x84" "B");
    utf8.SetIsUTF8();
    EXPECT_EQ(utf8.Lower(), "\xC3\x84" "b");
    EXPECT_EQ(utf8.ICompare("\xE3\x84" "b"), COMPARE_LESS);
}

TEST(SStringCase, ConversionStepsOverMultibyteCharacters)
{
    StringLocale gbk("zh_CN.GBK");
    if (!gbk.Get())
        GTEST_SKIP() << "zh_CN.GBK is not installed";
    // 0x81 0x41 is one GBK character whose second byte looks like "A".
    SString s("\x81" "AbC");
    s.ToLower();
    EXPECT_EQ(s, "\x81" "Abc");
}

TEST(SStringCase, ConversionStopsAtTheFirstZeroAndUsesTheCurrentLocale)
{
    SString s("AB\0CD", 0, 5, true);
    s.ToLower();
    EXPECT_EQ(Bytes(s), std::string("ab\0CD", 5));
    GlobalLocaleGuard latin1(LC_CTYPE, "de_DE.ISO-8859-1");
    if (!latin1.Active())
        GTEST_SKIP() << "de_DE.ISO-8859-1 is not installed";
    SString umlaut("\xC4");
    umlaut.ToLower();
    EXPECT_EQ(umlaut, "\xE4");
}
