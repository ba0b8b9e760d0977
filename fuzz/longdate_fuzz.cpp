// The date-picture parsers on arbitrary text, directly and through the conversion of a
// strftime format: no crash, every field in its range, and the separators made only of the
// picture's own characters.
#include "locale/IntlPicture_p.hpp"
#include "platform/locale_formats.hpp"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void Check(std::string_view picture)
{
    vesk::CountryTable table;
    vesk::ReadShortDatePicture(vesk::IntlText(picture), table);
    vesk::ReadLongDatePicture(vesk::IntlText(picture), table);
    if (table.m_eDateFormat < 0 || table.m_eDateFormat > 2 || table.m_eLongDateFormat < 0
        || table.m_eLongDateFormat > 2 || table.m_eLongDateDayOfWeekFormat < 0
        || table.m_eLongDateDayOfWeekFormat > 2 || table.m_eLongDateMonthFormat < 0
        || table.m_eLongDateMonthFormat > 3)
        std::abort();
    size_t separators = table.m_sLongDateDayOfWeekSep.Len() + table.m_sLongDateDaySep.Len()
        + table.m_sLongDateMonthSep.Len() + table.m_sLongDateYearSep.Len();
    if (separators > picture.size())
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::string_view text(reinterpret_cast<const char*>(data), size);
    // A picture reaches the parsers as a zero-terminated string.
    Check(text.substr(0, text.find('\0')));
    Check(vesk::platform::DatePicture(text, true));
    Check(vesk::platform::DatePicture(text, false));
    return 0;
}
