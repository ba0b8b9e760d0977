#include "locale/IntlBuilder_p.hpp"
#include "locale/International_p.hpp"

#include <algorithm>
#include <string>

namespace vesk {

namespace {

// A separator character; 0 adds nothing, as when appended to a string.
void AddSep(std::string& out, char sep)
{
    if (sep)
        out += sep;
}

bool AllZeros(std::string_view digits)
{
    return std::all_of(digits.begin(), digits.end(), [](char c) { return c == '0'; });
}

std::string FormatNum(const CountryTable& c, int32_t value, uint16_t digits)
{
    std::string out;
    if (value < 0)
        out += '-';
    const std::string s = std::to_string(value < 0 ? 0u - static_cast<uint32_t>(value) : static_cast<uint32_t>(value));
    const size_t n = s.size();
    size_t sepAt = out.size(); // where the decimal separator goes
    std::string fraction;
    if (n > digits) {
        const size_t whole = n - digits;
        for (size_t i = 0; i < whole; ++i) {
            out += s[i];
            size_t toCome = whole - i - 1;
            if (toCome && toCome % 3 == 0 && c.m_bNumThousandSep)
                AddSep(out, c.m_cNumThousandSep);
        }
        sepAt = out.size();
        if (digits > 0) {
            fraction = s.substr(whole);
            AddSep(out, c.m_cNumDecimalSep);
        }
    } else {
        if (c.m_bNumLeadingZero)
            out += '0';
        sepAt = out.size();
        fraction = std::string(digits - n, '0') + s;
        AddSep(out, c.m_cNumDecimalSep);
    }
    out += fraction;
    if (!c.m_bNumTrailingZeros && digits > 0 && AllZeros(fraction)) {
        out.erase(sepAt);
        if (out.empty() || out == "-")
            out += '0';
    }
    return out;
}

// Currency layouts: 'S' stands for the symbol, 't' for the amount, anything else for itself.
constexpr const char* kPositive[] = {"St", "tS", "S t", "t S"};
constexpr const char* kNegative[] = {
    "(St)", "-St", "S-t", "St-", "(tS)", "-tS", "t-S", "tS-", "-t S", "-S t", "t S-", "S -t"};

SString Layout(const char* pattern, const SString& symbol, std::string_view amount)
{
    IntlBuilder out;
    for (const char* p = pattern; *p; ++p) {
        if (*p == 'S')
            out += symbol;
        else if (*p == 't')
            out += amount;
        else
            out += *p;
    }
    return out.Make();
}

} // namespace

SString International::GetNum(int32_t value) const
{
    return GetNum(value, m_pData->aCountry.m_nNumDigits);
}

SString International::GetNum(int32_t value, uint16_t digits) const
{
    return SString(FormatNum(m_pData->aCountry, value, digits).c_str());
}

SString International::GetCurr(int32_t value) const
{
    const CountryTable& c = m_pData->aCountry;
    // The magnitude of INT32_MIN wraps to itself, so that amount keeps its '-'.
    int32_t magnitude = value < 0 ? static_cast<int32_t>(0u - static_cast<uint32_t>(value)) : value;
    std::string text = FormatNum(c, magnitude, c.m_nCurrDigits);
    size_t digits = c.m_nCurrDigits;
    if (c.m_cCurrZeroChar != '0' && digits > 0 && text.size() >= digits
        && AllZeros(std::string_view(text).substr(text.size() - digits)))
        text.replace(text.size() - digits, digits, digits, c.m_cCurrZeroChar);
    // A zero character of 0 ends the amount, as in a zero-terminated buffer.
    std::string_view amount(text.c_str());

    uint16_t format = value < 0 ? c.m_nCurrNegativeFormat : c.m_nCurrPositiveFormat;
    const char* pattern = nullptr;
    if (value < 0 && format < std::size(kNegative))
        pattern = kNegative[format];
    else if (value >= 0 && format < std::size(kPositive))
        pattern = kPositive[format];
    return Layout(pattern ? pattern : "t", c.m_sCurrSymbol, amount);
}

} // namespace vesk
