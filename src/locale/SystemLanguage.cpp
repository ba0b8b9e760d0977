#include "locale/SystemLanguage_p.hpp"

#include "locale/IntlPicture_p.hpp"
#include "locale/LocaleTables_p.hpp"
#include "platform/codepage.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vesk {

namespace {

constexpr LanguageType LANG_GERMAN = 7;
constexpr LanguageType LANG_ENGLISH = 9;
constexpr LanguageType LANG_FRENCH = 12;
constexpr unsigned int CODEPAGE_WESTERN = 1252;

// The UTF-8 text in the Western code page, if it holds every character.
std::optional<std::string> Western(const std::string& utf8)
{
    if (utf8.empty())
        return std::string();
    std::string out(utf8.size(), '\0');
    int n = platform::MultiByteToMultiByte(platform::CODEPAGE_UTF8, utf8.data(), static_cast<int>(utf8.size()),
        CODEPAGE_WESTERN, out.data(), static_cast<int>(out.size()));
    if (n <= 0)
        return std::nullopt;
    out.resize(static_cast<size_t>(n));
    return out;
}

// Converts all texts to the Western code page, or none.
bool AllWestern(std::vector<std::string*>& texts)
{
    std::vector<std::string> converted;
    for (const std::string* text : texts) {
        std::optional<std::string> western = Western(*text);
        if (!western)
            return false;
        converted.push_back(std::move(*western));
    }
    for (size_t i = 0; i < texts.size(); ++i)
        *texts[i] = std::move(converted[i]);
    return true;
}

} // namespace

bool HasBuiltinTexts(LanguageType type)
{
    LanguageType primary = type & 0x3FF;
    return primary == LANG_ENGLISH || primary == LANG_GERMAN || primary == LANG_FRENCH;
}

LanguageTable SystemLanguage(LanguageType type, const platform::LocaleNames& names)
{
    platform::LocaleNames copy = names;
    std::vector<std::string*> texts;
    for (size_t i = 0; i < copy.days.size(); ++i)
        texts.insert(texts.end(), {&copy.days[i], &copy.abbrevDays[i]});
    for (size_t i = 0; i < copy.months.size(); ++i)
        texts.insert(texts.end(), {&copy.months[i], &copy.abbrevMonths[i]});
    const bool western = AllWestern(texts);
    auto text = [western](const std::string& s) {
        return western ? SString(s.data(), 0, static_cast<unsigned int>(s.size()), true) : IntlText(s);
    };

    LanguageTable table = BuiltinLanguage(LANG_ENGLISH);
    table.m_eType = type;
    for (size_t i = 0; i < copy.days.size(); ++i) {
        table.m_sDayText[i] = text(copy.days[i]);
        table.m_sAbbrevDayText[i] = text(copy.abbrevDays[i]);
    }
    for (size_t i = 0; i < copy.months.size(); ++i) {
        table.m_sMonthText[i] = text(copy.months[i]);
        table.m_sAbbrevMonthText[i] = text(copy.abbrevMonths[i]);
    }
    return table;
}

} // namespace vesk
