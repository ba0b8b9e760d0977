#include <vesk/text.hpp>

#include "text/TranscriptData_p.hpp"

#include <gtest/gtest.h>

#include <cstring>

using vesk::TranscriptData;
using vesk::detail::IsTranscriptText;

namespace {

int CountLetters(const TranscriptData& data)
{
    int count = 0;
    for (int c = 0; c < 256; ++c)
        count += data.IsTranscriptChar(static_cast<unsigned char>(c)) ? 1 : 0;
    return count;
}

bool IsTranscript(const TranscriptData& data, const char* text)
{
    return IsTranscriptText(&data, text, static_cast<uint32_t>(std::strlen(text)));
}

} // namespace

TEST(TranscriptData, LanguagesSetCodePageAndLetters)
{
    TranscriptData data;
    EXPECT_EQ(data.GetLanguage(), 0);
    EXPECT_EQ(data.GetCodePage(), 0u);
    EXPECT_FALSE(data.IsTranscript());
    EXPECT_EQ(CountLetters(data), 0);

    data.SetToLanguage(1);
    EXPECT_TRUE(data.IsCyrillic());
    EXPECT_EQ(data.GetCodePage(), 1251u);
    EXPECT_EQ(CountLetters(data), 66);
    EXPECT_TRUE(data.IsTranscriptChar(0xA8));
    EXPECT_FALSE(data.IsTranscriptChar(0xBF));

    data.SetToLanguage(2);
    EXPECT_TRUE(data.IsGreek());
    EXPECT_TRUE(data.IsTranscript());
    EXPECT_EQ(data.GetCodePage(), 1253u);
    EXPECT_EQ(CountLetters(data), 3 + 1 + 20 + 44);
    EXPECT_FALSE(data.IsTranscriptChar(0xD2));

    data.SetToLanguage(5);
    EXPECT_EQ(data.GetLanguage(), 0);
    EXPECT_EQ(data.GetCodePage(), 0u);
    EXPECT_EQ(data.GetPLanguageTable(), TranscriptData::m_cNullTable.data());
}

TEST(TranscriptText, NeedsMoreThanHalfLettersWithoutRepeats)
{
    TranscriptData cyrillic;
    cyrillic.SetToCyrillic();
    EXPECT_TRUE(IsTranscript(cyrillic, "\xCF\xF0\xE8\xE2\xE5\xF2")); // "Привет"
    EXPECT_TRUE(IsTranscript(cyrillic, "\xC0\xC1x"));                // 2 of 3
    EXPECT_FALSE(IsTranscript(cyrillic, "\xC0\xC1xy"));              // 2 of 4 is not more
    // A repeated letter counts once: 2 letters of 4 characters.
    EXPECT_FALSE(IsTranscript(cyrillic, "\xC0\xC0\xC0\xC1"));
    EXPECT_TRUE(IsTranscript(cyrillic, "\xC0\xC1\xC0\xC1"));
    EXPECT_FALSE(IsTranscript(cyrillic, ""));
    EXPECT_FALSE(IsTranscript(cyrillic, "hello"));

    TranscriptData none;
    EXPECT_FALSE(IsTranscript(none, "\xCF\xF0\xE8"));
    EXPECT_FALSE(IsTranscriptText(nullptr, "\xCF\xF0\xE8", 3));
    // Without the library state no text is transcript.
    EXPECT_EQ(vesk::detail::CurrentTranscriptData(), nullptr);
}
