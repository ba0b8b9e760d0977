#pragma once

// A small reference model of the SString editing and searching members, written directly
// on std::string from their step-by-step rules (quadratic where the rules are), and a driver
// that runs one sequence of operations on both and reports the first disagreement.
#include <vesk/text.hpp>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace sstring_model {

using vesk::SString;
constexpr uint32_t NOTFOUND = vesk::STRING_NOTFOUND;

struct Model {
    std::string text;
    bool utf8 = false;
};

inline char FoldAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c + 32) : c;
}

// strncmp, or strnicmp in the "C" locale, of the text at p with the pattern.
inline bool MatchesAt(const std::string& text, size_t p, const std::string& what, bool noCase)
{
    for (size_t i = 0; i < what.size(); ++i) {
        const char a = noCase ? FoldAscii(text[p + i]) : text[p + i];
        const char b = noCase ? FoldAscii(what[i]) : what[i];
        if (a != b)
            return false;
        if (a == 0)
            return true;
    }
    return true;
}

inline uint32_t Search(const std::string& text, const std::string& what, uint32_t from, bool noCase)
{
    if (what.empty() || from >= text.size())
        return NOTFOUND;
    for (size_t p = from; p + what.size() <= text.size(); ++p)
        if (MatchesAt(text, p, what, noCase))
            return uint32_t(p);
    return NOTFOUND;
}

inline uint32_t SearchBackward(const std::string& text, const std::string& what, size_t from, bool noCase)
{
    if (what.empty() || what.size() > text.size())
        return NOTFOUND;
    for (size_t p = std::min(from, text.size() - what.size()) + 1; p-- > 0;)
        if (MatchesAt(text, p, what, noCase))
            return uint32_t(p);
    return NOTFOUND;
}

inline void Erase(Model& m, size_t index, size_t length)
{
    if (index >= m.text.size() || length == 0)
        return;
    m.text.erase(index, length);
    if (m.text.empty())
        m.utf8 = false;
}

inline void Insert(Model& m, const Model& insert, size_t position)
{
    if (m.text.empty()) {
        m = insert;
        return;
    }
    if (insert.text.empty())
        return;
    m.text.insert(std::min(position, m.text.size()), insert.text);
    m.utf8 = m.utf8 || insert.utf8;
}

// ReplaceAllPhrases and ReplaceAllPhrasesI exactly as their rule is stated: erase and insert
// (or overwrite), searching from each candidate to the end of the text.
inline void ReplaceAllPhrases(Model& m, const Model& what, const Model& with, uint64_t start, uint64_t end, bool noCase)
{
    if (what.text.empty())
        return;
    const size_t wl = what.text.size();
    const size_t withLen = with.text.size();
    for (uint64_t i = start; i < std::min<uint64_t>(end, m.text.size());) {
        if ((noCase ? FoldAscii(m.text[i]) : m.text[i]) != (noCase ? FoldAscii(what.text[0]) : what.text[0])) {
            ++i;
            continue;
        }
        const uint32_t p = Search(m.text, what.text, uint32_t(i), noCase);
        if (p == NOTFOUND)
            return;
        if (noCase ? withLen == wl : withLen <= wl) {
            m.text.replace(p, withLen, with.text);
            Erase(m, p + withLen, wl - withLen);
        } else {
            Erase(m, p, wl);
            if (withLen != 0)
                Insert(m, with, p);
        }
        i = p + withLen;
    }
}

inline std::string Token(const std::string& text, size_t index, char sep)
{
    size_t start = 0;
    for (size_t i = 0; i < index; ++i) {
        start = text.find(sep, start);
        if (start == std::string::npos)
            return "";
        ++start;
    }
    const size_t end = text.find(sep, start);
    return text.substr(start, end == std::string::npos ? std::string::npos : end - start);
}

inline std::string ConvertLineEnd(const std::string& text, int target)
{
    static const char* const kEnds[] = {"\r", "\n", "\r\n"};
    std::string out;
    bool differs = false;
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c != '\r' && c != '\n') {
            out += c;
            continue;
        }
        const bool pair = i + 1 < text.size() && (text[i + 1] == '\r' || text[i + 1] == '\n') && text[i + 1] != c;
        const std::string end = text.substr(i, pair ? 2 : 1);
        differs = differs || end != kEnds[target];
        out += kEnds[target];
        i += pair ? 1 : 0;
    }
    return differs ? out : text;
}

inline uint32_t TokenPos(const std::string& text, size_t index, char sep)
{
    size_t at = std::string::npos;
    for (size_t i = 0; i < index; ++i) {
        at = text.find(sep, at + 1);
        if (at == std::string::npos)
            return 0;
    }
    return index == 0 || at + 1 == text.size() ? 0 : uint32_t(at + 1);
}

inline std::string Trimmed(std::string s)
{
    s.erase(0, s.find_first_not_of(' '));
    s.erase(s.find_last_not_of(' ') + 1);
    return s;
}

inline uint32_t Match(const std::string& text, const char* s)
{
    for (size_t i = 0; i < text.size(); ++i)
        if (s[i] != text[i] || s[i] == 0)
            return uint32_t(i);
    return vesk::STRING_MATCH;
}

// Reads the operations from fuzz bytes; a pattern or inserted text is a short run of them.
class Reader {
public:
    Reader(const uint8_t* data, size_t size) : m_p(data), m_end(data + size) {}
    bool More() const { return m_p < m_end; }
    uint8_t Byte() { return m_p < m_end ? *m_p++ : 0; }
    std::string Text()
    {
        const size_t wanted = Byte() % 5;
        const size_t n = std::min(wanted, size_t(m_end - m_p));
        std::string s(reinterpret_cast<const char*>(m_p), n);
        m_p += n;
        return s;
    }

private:
    const uint8_t* m_p;
    const uint8_t* m_end;
};

inline std::string Bytes(const SString& s)
{
    return std::string(static_cast<const char*>(s), s.Len());
}

inline SString Make(const Model& m)
{
    SString s(m.text.data(), 0, uint32_t(m.text.size()), true);
    if (m.utf8)
        s.SetIsUTF8();
    return s;
}

// Runs one sequence of operations on an SString and on the model; false at the first
// result that differs, with `failed` naming the operation.
inline bool Run(const uint8_t* data, size_t size, std::string& failed)
{
    Reader in(data, size);
    Model model{in.Text() + in.Text() + in.Text(), false};
    SString s = Make(model);
    const auto check = [&](bool ok, const char* name) {
        if (!ok && failed.empty())
            failed = name;
        return ok;
    };
    // Replacements may double the text at every step; the model is quadratic, so it stops
    // growing texts early.
    while (in.More() && failed.empty() && model.text.size() < 4096) {
        const uint8_t op = in.Byte();
        const uint32_t a = in.Byte() % 24;
        const uint32_t b = in.Byte() % 24;
        Model arg{in.Text(), (op & 0x80) != 0};
        Model arg2{in.Text(), (op & 0x40) != 0};
        // The empty string is never flagged.
        arg.utf8 = arg.utf8 && !arg.text.empty();
        arg2.utf8 = arg2.utf8 && !arg2.text.empty();
        const SString sArg = Make(arg);
        const SString sArg2 = Make(arg2);
        const std::string& t = model.text;
        const char c = char(b % 3 == 0 ? ',' : t.empty() ? ' ' : t[b % t.size()]);
        switch (op % 14) {
        case 0:
            check(s.Search(sArg, a) == Search(t, arg.text, a, false), "Search");
            check(s.Search(c, a) == Search(t, std::string(1, c), a, false), "Search(char)");
            check(s.Search(arg.text.c_str(), a) == Search(t, arg.text.c_str(), a, false), "Search(text)");
            check(s.NoCaseSearch(sArg, a) == Search(t, arg.text, a, true), "NoCaseSearch");
            break;
        case 1:
            check(s.SearchBackward(sArg, a) == (a < t.size() ? SearchBackward(t, arg.text, a, false) : NOTFOUND),
                  "SearchBackward");
            check(s.SearchFromEnd(sArg, true) == SearchBackward(t, arg.text, t.size(), arg.text.size() != 1),
                  "SearchFromEnd");
            break;
        case 2: {
            check(s.GetTokenCount(c) == (t.empty() ? 0 : 1 + std::count(t.begin(), t.end(), c)), "GetTokenCount");
            check(Bytes(s.GetToken(a % 5, c)) == Token(t, a % 5, c), "GetToken");
            check(s.GetTokenPos(a % 5, c) == TokenPos(t, a % 5, c), "GetTokenPos");
            const std::vector<SString> tokens = s.GetAllTokens(c);
            for (size_t i = 0; i < tokens.size(); ++i)
                check(Bytes(tokens[i]) == Trimmed(Token(t, i, c)), "GetAllTokens");
            check(tokens.size() == (t.empty() ? 0 : 1 + size_t(std::count(t.begin(), t.end(), c))), "GetAllTokens");
            break;
        }
        case 3:
            Insert(model, arg, a);
            s.Insert(sArg, a);
            break;
        case 4:
            if (a < arg.text.size() && b != 0)
                Insert(model, Model{arg.text.substr(a, b), arg.utf8}, b);
            s.Insert(sArg, a, b, b);
            break;
        case 5:
            if (c != 0) {
                model.text.insert(std::min<size_t>(a, t.size()), 1, c);
                s.Insert(c, a);
            }
            if (const size_t n = strlen(arg.text.c_str()); n != 0) {
                model.text.insert(std::min<size_t>(b, t.size()), arg.text.c_str(), n);
                s.Insert(arg.text.c_str(), b);
            }
            break;
        case 6:
            Erase(model, a, b);
            s.Erase(a, b);
            break;
        case 7:
            model.text.erase(std::remove(model.text.begin(), model.text.end(), c), model.text.end());
            model.text = b % 2 ? model.text : Trimmed(model.text);
            model.utf8 = model.utf8 && !model.text.empty();
            s.EraseAllChars(c);
            if (b % 2 == 0)
                s.Trim(' ');
            break;
        case 8:
            ReplaceAllPhrases(model, arg, arg2, a, uint64_t(a) + b, false);
            s.ReplaceAllPhrases(sArg, sArg2, int(a), int(b));
            break;
        case 9:
            ReplaceAllPhrases(model, arg, arg2, a, UINT64_MAX, true);
            s.ReplaceAllPhrasesI(sArg, sArg2, int(a));
            break;
        case 10:
            if (!arg.text.empty()) {
                std::string out;
                for (size_t p = 0; p < t.size();) {
                    const uint32_t q = Search(t, arg.text, uint32_t(p), false);
                    out += t.substr(p, q == NOTFOUND ? std::string::npos : q - p);
                    if (q == NOTFOUND)
                        break;
                    out += arg2.text;
                    p = q + arg.text.size();
                }
                model = Model{out, false};
            }
            s.ReplaceAllPhrases2(sArg, sArg2);
            break;
        case 11:
            model.text = ConvertLineEnd(t, int(a % 3));
            s.ConvertLineEnd(vesk::LineEnd(a % 3));
            break;
        case 12: {
            const std::string part = a < t.size() && b != 0 ? t.substr(a, b) : std::string();
            check(Bytes(s.Copy(a, b)) == part, "Copy");
            check(Bytes(s.Cut(a, b)) == part, "Cut");
            Erase(model, a, b);
            break;
        }
        default:
            check(s.Match(sArg) == Match(t, arg.text.c_str()), "Match");
            check(s.EndsOn(sArg) == (!arg.text.empty() && t.size() >= arg.text.size()
                                     && t.compare(t.size() - arg.text.size(), arg.text.size(), arg.text) == 0),
                  "EndsOn");
            break;
        }
        check(Bytes(s) == model.text, "text");
        check(static_cast<const char*>(s)[s.Len()] == 0, "terminating zero");
        check(s.IsUTF8() == model.utf8, "UTF-8 flag");
    }
    return failed.empty();
}

} // namespace sstring_model
