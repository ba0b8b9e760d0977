#include "SStringTestUtil.hpp"

#include <vesk/text.hpp>

#include <locale.h>

using namespace vesk;
using namespace vesk::test;

namespace {

// A Latin-1 locale set with SetLocale for the test's lifetime.
class Latin1Locale {
public:
    Latin1Locale() : m_locale(newlocale(LC_ALL_MASK, "de_DE.ISO-8859-1", locale_t(0)))
    {
        SString::SetLocale(m_locale);
    }
    ~Latin1Locale()
    {
        SString::SetLocale(nullptr);
        if (m_locale)
            freelocale(m_locale);
    }
    bool Active() const { return m_locale != locale_t(0); }

private:
    locale_t m_locale;
};

} // namespace

TEST(SStringCase, ConversionFollowsTheLocaleOfSetLocale)
{
    SString s("\xC4pfel Bl\xFCte");
    EXPECT_EQ(s.Lower(), "\xC4pfel bl\xFCte"); // the "C" locale folds ASCII only
    Latin1Locale latin1;
    if (!latin1.Active())
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
    locale_t gbk = newlocale(LC_ALL_MASK, "zh_CN.GBK", locale_t(0));
    if (!gbk)
        GTEST_SKIP() << "zh_CN.GBK is not installed";
    SString::SetLocale(gbk);
    // 0x81 0x41 is one GBK character whose second byte looks like "A".
    SString s("\x81" "AbC");
    s.ToLower();
    SString::SetLocale(nullptr);
    freelocale(gbk);
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
