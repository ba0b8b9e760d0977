#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>

#include <cstdint>

namespace vesk {

// A language identifier: a Windows locale identifier (LCID), such as 1031 for German (Germany).
using LanguageType = uint32_t;

// The user's own language, resolved from the system locale.
inline constexpr LanguageType LANGUAGE_SYSTEM = 0;
// The type of a default record and of an out-of-range registry index.
inline constexpr LanguageType LANGUAGE_DONTKNOW = 255;

// The texts of one language, as International keeps them and as an application registers
// them. Built-in texts are 8-bit strings in the Windows-1252 code page.
struct VESK_API LanguageTable {
    LanguageType m_eType = LANGUAGE_DONTKNOW;
    SString m_sDayText[7]{};         // indexed by DayOfWeek, Monday first
    SString m_sAbbrevDayText[7]{};
    SString m_sMonthText[12]{};      // January first
    SString m_sAbbrevMonthText[12]{};
    SString m_sOKButtonText{};
    SString m_sCancelButtonText{};
    SString m_sHelpButtonText{};

    // Field-wise equality, texts compared byte by byte.
    friend bool operator==(const LanguageTable&, const LanguageTable&) = default;
};

} // namespace vesk
