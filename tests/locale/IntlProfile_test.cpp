#include "platform/intl_profile.hpp"

#include "support/ConfigHomeGuard.hpp"
#include "support/FileText.hpp"
#include "support/LocaleGuard.hpp"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace vesk::platform {
namespace {

class IntlProfile : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_locale.Available()); }

    // Writes the user's profile file.
    void Profile(const std::string& text)
    {
        mkdir((m_home.Path() + "/vesk").c_str(), 0700);
        ASSERT_TRUE(test::WriteFileText(UserProfilePath(), text));
    }

    test::LocaleGuard m_locale{"de_DE.UTF-8"};
    test::ConfigHomeGuard m_home;
};

TEST_F(IntlProfile, SectionOverridesSingleKeys)
{
    Profile("[other]\nsDecimal=!\n"
            "[INTL]\nsshortdate = yyyy-MM-dd\nsThousand=\nsCurrency=\xE2\x82\xAC uro\niDigits=3\n");
    IntlKeys expected = IntlKeysFromLocale();
    expected["sShortDate"] = "yyyy-MM-dd";
    expected["sThousand"] = "";
    expected["sCurrency"] = "\xE2\x82\xAC uro";
    expected["iDigits"] = "3"; // a key the locale does not give
    EXPECT_EQ(ReadIntlKeys(), expected);
    EXPECT_EQ(UserProfilePath(), m_home.Path() + "/vesk/profile.ini");
}

TEST_F(IntlProfile, LongValuesAndManyKeysAreReadWhole)
{
    std::string text = "[intl]\nsLongDate=" + std::string(600, 'd') + "\n";
    for (int i = 0; i < 100; ++i)
        text += "extra" + std::to_string(i) + "=" + std::to_string(i) + "\n";
    Profile(text);
    IntlKeys keys = ReadIntlKeys();
    EXPECT_EQ(keys["sLongDate"], std::string(600, 'd'));
    EXPECT_EQ(keys["extra99"], "99");
}

TEST_F(IntlProfile, MissingEmptyOrDamagedFilesChangeNothing)
{
    EXPECT_EQ(ReadIntlKeys(), IntlKeysFromLocale());
    Profile("[intl]\n");
    EXPECT_EQ(ReadIntlKeys(), IntlKeysFromLocale());
    Profile(std::string("\0\xFF\xFE[intl\n=\n\x80\x81", 13));
    EXPECT_EQ(ReadIntlKeys(), IntlKeysFromLocale());
}

} // namespace
} // namespace vesk::platform
