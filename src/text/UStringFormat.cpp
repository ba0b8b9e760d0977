#include "text/UString_p.hpp"

#include <algorithm>
#include <cstdarg>
#include <cstddef>
#include <cstdlib>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>

namespace vesk {

namespace {

// Formats printf-style with the conventions of Windows' wide printf: %s and %c (and %ls, %ws,
// %lc, %S with l or w) take char16_t text, %hs, %S, %hc and %C take char text (decoded as a
// UString decodes bytes). Numbers go through the C library's narrow printf. %n and unknown
// conversions fail the whole call.
class WideFormatter {
public:
    explicit WideFormatter(va_list args) { va_copy(m_args, args); }
    ~WideFormatter() { va_end(m_args); }
    WideFormatter(const WideFormatter&) = delete;
    WideFormatter& operator=(const WideFormatter&) = delete;

    std::optional<std::u16string> Run(const char16_t* format);

private:
    struct Field {
        std::string flags;
        int width = -1;
        int precision = -1;
        std::string length;
        char conversion = 0;
    };

    bool ParseField(const char16_t*& p, Field& field);
    bool Convert(const Field& field);
    bool Number(const Field& field);
    void Text(const Field& field, std::u16string_view text);
    void CutToLimit()
    {
        if (m_out.size() > USTRING_MAXLEN)
            m_out.resize(USTRING_MAXLEN);
    }

    va_list m_args;
    std::u16string m_out;
};

// Widths and precisions beyond the length limit only add text that is cut off, so they are
// held just past it.
constexpr int kLargestField = static_cast<int>(USTRING_MAXLEN) + 1;

int ParseNumber(const char16_t*& p)
{
    int n = 0;
    while (*p >= u'0' && *p <= u'9')
        n = std::min(n * 10 + (*p++ - u'0'), kLargestField);
    return n;
}

bool IsFlag(char16_t c)
{
    return c == u'-' || c == u'+' || c == u' ' || c == u'#' || c == u'0';
}

bool TakesWideText(const std::string& length, bool upper)
{
    // Lower case takes wide text unless h says narrow; upper case the other way round.
    if (length == "l" || length == "w")
        return true;
    if (length == "h")
        return false;
    return !upper;
}

std::optional<std::u16string> WideFormatter::Run(const char16_t* format)
{
    for (const char16_t* p = format; *p != 0; ++p) {
        if (*p != u'%') {
            m_out += *p;
            continue;
        }
        ++p;
        if (*p == u'%') {
            m_out += u'%';
            continue;
        }
        Field field;
        if (!ParseField(p, field) || !Convert(field))
            return std::nullopt;
        // Cut as it goes, so that many wide fields cannot pile up.
        CutToLimit();
    }
    CutToLimit();
    return std::move(m_out);
}

// Reads flags, width, precision and length up to the conversion character, which p then
// points at.
bool WideFormatter::ParseField(const char16_t*& p, Field& field)
{
    while (IsFlag(*p))
        field.flags += static_cast<char>(*p++);
    if (*p == u'*') {
        ++p;
        // A negative width asks for left alignment.
        const int width = va_arg(m_args, int);
        if (width < 0)
            field.flags += '-';
        field.width = static_cast<int>(std::min<int64_t>(std::abs(int64_t(width)), kLargestField));
    } else if (*p >= u'0' && *p <= u'9') {
        field.width = ParseNumber(p);
    }
    if (*p == u'.') {
        ++p;
        if (*p == u'*') {
            ++p;
            // A negative precision counts as none.
            field.precision = std::clamp(va_arg(m_args, int), -1, kLargestField);
        } else {
            field.precision = ParseNumber(p);
        }
    }
    static const char* const kLengths[] = {"hh", "h", "ll", "l", "L", "j", "z", "t", "I64", "I32",
        "I", "w"};
    for (const char* length : kLengths) {
        const size_t n = std::strlen(length);
        size_t i = 0;
        while (i < n && p[i] == static_cast<unsigned char>(length[i]))
            ++i;
        if (i == n) {
            field.length = length;
            p += n;
            break;
        }
    }
    if (*p == 0 || *p >= 0x80)
        return false;
    field.conversion = static_cast<char>(*p);
    return true;
}

bool WideFormatter::Convert(const Field& field)
{
    switch (field.conversion) {
    case 's':
    case 'S':
        if (TakesWideText(field.length, field.conversion == 'S')) {
            const auto* text = va_arg(m_args, const char16_t*);
            Text(field, text != nullptr ? std::u16string_view(text) : u"(null)");
        } else {
            const auto* text = va_arg(m_args, const char*);
            const UString decoded(text != nullptr ? text : "(null)");
            Text(field, static_cast<const char16_t*>(decoded));
        }
        return true;
    case 'c':
    case 'C': {
        const int c = va_arg(m_args, int);
        if (TakesWideText(field.length, field.conversion == 'C')) {
            const char16_t unit = static_cast<char16_t>(c);
            Text(field, std::u16string_view(&unit, 1));
        } else {
            const UString decoded(static_cast<char>(c));
            Text(field, static_cast<const char16_t*>(decoded));
        }
        return true;
    }
    default:
        return Number(field);
    }
}

// Pads text to the width; the precision limits the characters taken.
void WideFormatter::Text(const Field& field, std::u16string_view text)
{
    if (field.precision >= 0)
        text = text.substr(0, static_cast<size_t>(field.precision));
    const size_t pad = field.width > 0 && static_cast<size_t>(field.width) > text.size()
        ? static_cast<size_t>(field.width) - text.size() : 0;
    const bool left = field.flags.find('-') != std::string::npos;
    if (!left)
        m_out.append(pad, u' ');
    m_out.append(text);
    if (left)
        m_out.append(pad, u' ');
}

bool WideFormatter::Number(const Field& field)
{
    std::string format(1, '%');
    format += field.flags;
    if (field.width >= 0)
        format += std::to_string(field.width);
    if (field.precision >= 0) {
        format += '.';
        format += std::to_string(field.precision);
    }
    const std::string& length = field.length;
    const char c = field.conversion;
    bool printed = false;
    auto print = [&](const char* lengthModifier, auto value) {
        const std::string full = format + lengthModifier + c;
        const int n = std::snprintf(nullptr, 0, full.c_str(), value);
        if (n < 0)
            return;
        std::string text(static_cast<size_t>(n) + 1, '\0');
        std::snprintf(text.data(), text.size(), full.c_str(), value);
        m_out.append(text.begin(), text.end() - 1);
        printed = true;
    };
    if (std::strchr("di", c) != nullptr) {
        if (length == "ll" || length == "I64" || length == "j")
            print("ll", va_arg(m_args, long long));
        else if (length == "l" || length == "z" || length == "t" || length == "I")
            print("l", va_arg(m_args, long));
        else
            print(length == "hh" ? "hh" : length == "h" ? "h" : "", va_arg(m_args, int));
    } else if (std::strchr("ouxX", c) != nullptr) {
        if (length == "ll" || length == "I64" || length == "j")
            print("ll", va_arg(m_args, unsigned long long));
        else if (length == "l" || length == "z" || length == "t" || length == "I")
            print("l", va_arg(m_args, unsigned long));
        else
            print(length == "hh" ? "hh" : length == "h" ? "h" : "", va_arg(m_args, unsigned int));
    } else if (std::strchr("eEfFgGaA", c) != nullptr) {
        if (length == "L")
            print("L", va_arg(m_args, long double));
        else
            print("", va_arg(m_args, double));
    } else if (c == 'p') {
        print("", va_arg(m_args, void*));
    } else {
        return false;
    }
    return printed;
}

std::optional<std::u16string> FormatText(const char16_t* format, va_list args) noexcept
{
    if (format == nullptr)
        return std::nullopt;
    try {
        return WideFormatter(args).Run(format);
    } catch (...) {
        return std::nullopt;
    }
}

} // namespace

UString UString::F(const char16_t* format, ...)
{
    va_list args;
    va_start(args, format);
    const std::optional<std::u16string> text = FormatText(format, args);
    va_end(args);
    return text ? UString(*text) : UString();
}

void UString::Format(const char16_t* format, ...)
{
    va_list args;
    va_start(args, format);
    // Formatted apart first, so the arguments may point into this string.
    const std::optional<std::u16string> text = FormatText(format, args);
    va_end(args);
    if (text)
        Locked(*this).Assign(*text);
}

} // namespace vesk
