#include "text/TranscriptData_p.hpp"

#include "common/LibrarySlots.hpp"

#include "platform/codepage.hpp"

#include <initializer_list>
#include <string>
#include <utility>

namespace vesk {

namespace {

using Ranges = std::initializer_list<std::pair<int, int>>;

constexpr TranscriptData::LanguageTable MakeTable(Ranges letters)
{
    TranscriptData::LanguageTable table{};
    for (const auto& [first, last] : letters)
        for (int c = first; c <= last; ++c)
            table[c] = true;
    return table;
}

} // namespace

const TranscriptData::LanguageTable TranscriptData::m_cNullTable{};
// Ё, ё and the 64 letters А-я.
const TranscriptData::LanguageTable TranscriptData::m_cCyrillicTable =
    MakeTable({{0xA8, 0xA8}, {0xB8, 0xB8}, {0xC0, 0xFF}});
// The accented capitals, ΐ, Α-Ω (0xD2 is unassigned) and ά-ώ.
const TranscriptData::LanguageTable TranscriptData::m_cGreekTable =
    MakeTable({{0xB8, 0xBA}, {0xBC, 0xBC}, {0xBE, 0xD1}, {0xD3, 0xFE}});

TranscriptData::TranscriptData()
{
    Disable();
}

void TranscriptData::Set(const LanguageTable& table, int language, unsigned int codePage)
{
    m_pLanguageTable = &table;
    m_nLanguage = language;
    m_nCodePage = codePage;
}

void TranscriptData::Disable()
{
    Set(m_cNullTable, LANGUAGE_NONE, 0);
}

void TranscriptData::SetToCyrillic()
{
    Set(m_cCyrillicTable, LANGUAGE_CYRILLIC, 1251);
}

void TranscriptData::SetToGreek()
{
    Set(m_cGreekTable, LANGUAGE_GREEK, 1253);
}

void TranscriptData::SetToLanguage(int language)
{
    switch (language) {
    case LANGUAGE_CYRILLIC: SetToCyrillic(); break;
    case LANGUAGE_GREEK: SetToGreek(); break;
    default: Disable(); break;
    }
}

} // namespace vesk

namespace vesk::detail {

const TranscriptData* CurrentTranscriptData()
{
    // The transcript settings live in the library state; without it no text is transcript.
    return PublishedTranscriptData();
}

bool IsTranscriptText(const TranscriptData* data, const char* text, uint32_t length)
{
    if (data == nullptr || !data->IsTranscript() || text == nullptr)
        return false;
    uint32_t letters = 0;
    int previous = -1;
    for (uint32_t i = 0; i < length; ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (data->IsTranscriptChar(c) && c != previous)
            ++letters;
        previous = c;
    }
    return letters != 0 && letters > length / 2;
}

bool IsTranscriptWide(const TranscriptData* data, std::u16string_view text)
{
    if (data == nullptr || !data->IsTranscript() || text.empty())
        return false;
    // The transcript code pages are single-byte: one byte per unit.
    std::string bytes(text.size(), '\0');
    const int n = platform::WideToMultiByte(data->GetCodePage(), text.data(),
        static_cast<int>(text.size()), bytes.data(), static_cast<int>(bytes.size()));
    return n != 0 && IsTranscriptText(data, bytes.data(), static_cast<uint32_t>(n));
}

} // namespace vesk::detail
