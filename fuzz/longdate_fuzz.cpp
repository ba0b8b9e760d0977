// The date-picture parsers on arbitrary text, directly and through the conversion of a
// locale's strftime formats: no crash, every field in its range, and the separators made only of the
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
    // The locale's formats, one a line: D_FMT, D_T_FMT, _DATE_FMT, T_FMT, T_FMT_AMPM.
    vesk::platform::TimeFormats formats;
    std::string* fields[] = {&formats.date, &formats.dateTime, &formats.dateLong, &formats.time, &formats.time12};
    for (std::string* field : fields) {
        size_t end = text.find('\n');
        *field = std::string(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    Check(vesk::platform::ShortDatePicture(formats));
    Check(vesk::platform::LongDatePicture(formats));
    vesk::platform::ClockFromTimeFormat(formats);
    return 0;
}
