#include "text/SStringCase_p.hpp"
#include "text/SStringFind_p.hpp"
#include "text/SString_p.hpp"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace vesk {
namespace {

// One replacement: the match's start in the original text and how much of `with` it writes
// (less than all only where the text reached STRING_MAXLEN).
struct Replacement {
    uint32_t at;
    uint32_t written;
};

// The outcome of a replace-all: the replacements, how much of the original text is left at
// its end once the cut at STRING_MAXLEN has taken its share, and the length of the result
// that the cut allows.
struct ReplacePlan {
    std::vector<Replacement> replacements;
    uint32_t sourceEnd;
    bool utf8;
    uint32_t limit = UINT32_MAX;
};

// The case rules of one replace-all: the texts searched (folded copies for the I form) and
// the first characters that start a match attempt.
class PhraseFinder {
public:
    PhraseFinder(const SStringData* text, const SStringData* what, bool noCase)
    {
        m_pText = text->Text();
        m_pWhat = what->Text();
        // strncmp compares up to a zero in the pattern.
        m_compared = uint32_t(strnlen(m_pWhat, what->nLen - 1) + 1);
        m_first[0] = m_first[1] = what->Text()[0];
        if (!noCase)
            return;
        // The first character is tried after folding A-Z only; the match itself follows the
        // locale's rules, as NoCaseSearch does.
        const char c = m_first[0];
        if (c >= 'A' && c <= 'Z')
            m_first[1] = char(c + 32);
        else if (c >= 'a' && c <= 'z')
            m_first[1] = char(c - 32);
        const unsigned char* fold = CaseMap(text->IsUTF8() || what->IsUTF8()).Lower();
        m_foldedText = Folded(text, fold);
        m_foldedWhat = Folded(what, fold);
        m_pText = m_foldedText.data();
        m_pWhat = m_foldedWhat.data();
    }

    // First start in from..limit-1 of a first character, or STRING_NOTFOUND.
    uint32_t FirstCandidate(const char* text, uint32_t from, uint32_t limit) const
    {
        if (m_first[0] == m_first[1]) {
            const void* hit = std::memchr(text + from, m_first[0], limit - from);
            return hit ? uint32_t(static_cast<const char*>(hit) - text) : STRING_NOTFOUND;
        }
        for (uint32_t i = from; i < limit; ++i)
            if (text[i] == m_first[0] || text[i] == m_first[1])
                return i;
        return STRING_NOTFOUND;
    }

    // The match from a candidate on; most candidates match where they stand.
    uint32_t Find(uint32_t len, uint32_t wl, uint32_t from) const
    {
        if (uint64_t(from) + wl <= len && std::memcmp(m_pText + from, m_pWhat, m_compared) == 0)
            return from;
        return FindPattern(m_pText, len, m_pWhat, wl, from, SearchDirection::Forward, nullptr);
    }

private:
    static std::vector<char> Folded(const SStringData* rec, const unsigned char* fold)
    {
        std::vector<char> folded(size_t(rec->nLen) + 1);
        for (uint32_t i = 0; i <= rec->nLen; ++i)
            folded[i] = char(fold[static_cast<unsigned char>(rec->Text()[i])]);
        return folded;
    }

    const char* m_pText;
    const char* m_pWhat;
    uint32_t m_compared;
    char m_first[2];
    std::vector<char> m_foldedText;
    std::vector<char> m_foldedWhat;
};

// Follows the step-by-step rule of ReplaceAllPhrases on the original text: i runs over the
// current text, where everything after the last replacement is the original shifted by
// `delta`, so no intermediate text is ever built.
ReplacePlan PlanReplacements(const SStringData* text, const SStringData* what, const SStringData* with,
                             uint64_t start, uint64_t end, bool noCase)
{
    const PhraseFinder finder(text, what, noCase);
    const uint32_t wl = what->nLen;
    const uint32_t withLen = with->nLen;
    // Replacements that do not overwrite in place erase and insert; an insert ORs the flags
    // (or, into a text the match wholly erased, takes over `with` and its flag) and is cut at
    // STRING_MAXLEN.
    const bool inserts = noCase ? withLen != wl && withLen != 0 : withLen > wl;
    ReplacePlan plan{{}, text->nLen, text->IsUTF8()};
    int64_t delta = 0;
    uint64_t i = start;
    for (;;) {
        const uint64_t limit = std::min<uint64_t>(end, uint64_t(int64_t(plan.sourceEnd) + delta));
        if (i >= limit)
            break;
        const uint32_t from = finder.FirstCandidate(text->Text(), uint32_t(int64_t(i) - delta),
                                                    uint32_t(int64_t(limit) - delta));
        if (from == STRING_NOTFOUND)
            break;
        const uint32_t at = finder.Find(plan.sourceEnd, wl, from);
        if (at == STRING_NOTFOUND)
            break;
        const uint64_t before = uint64_t(int64_t(at) + delta);
        Replacement replacement{at, withLen};
        if (inserts) {
            plan.utf8 = (int64_t(plan.sourceEnd) + delta == wl ? false : plan.utf8) || with->IsUTF8();
            // The insert keeps the first STRING_MAXLEN characters of its result.
            const uint64_t length = uint64_t(int64_t(plan.sourceEnd) + delta) - wl + withLen;
            const uint32_t tail = plan.sourceEnd - (at + wl);
            if (length > STRING_MAXLEN) {
                plan.limit = STRING_MAXLEN;
                if (length - STRING_MAXLEN <= tail) {
                    plan.sourceEnd -= uint32_t(length - STRING_MAXLEN);
                } else {
                    plan.sourceEnd = at + wl;
                    replacement.written = uint32_t(STRING_MAXLEN - std::min<uint64_t>(before, STRING_MAXLEN));
                }
            }
        }
        delta += int64_t(withLen) - int64_t(wl);
        plan.replacements.push_back(replacement);
        i = before + withLen;
    }
    return plan;
}

// Builds the replaced text of a plan.
void ApplyPlan(SStringData*& slot, const ReplacePlan& plan, uint32_t wl, const SStringData* with)
{
    uint64_t length = plan.sourceEnd;
    for (const Replacement& r : plan.replacements)
        length = length - wl + r.written;
    length = std::min<uint64_t>(length, plan.limit);
    SStringData* result = length == 0 ? SStringData::Empty() : SStringData::Make(uint32_t(length));
    char* out = result->Text();
    char* const outEnd = out + length;
    auto put = [&](const char* from, uint32_t n) {
        n = uint32_t(std::min<uint64_t>(n, uint64_t(outEnd - out)));
        std::memcpy(out, from, n);
        out += n;
    };
    const char* text = slot->Text();
    uint32_t copied = 0;
    for (const Replacement& r : plan.replacements) {
        put(text + copied, r.at - copied);
        put(with->Text(), r.written);
        copied = r.at + wl;
    }
    put(text + copied, plan.sourceEnd - std::min(copied, plan.sourceEnd));
    if (length != 0)
        result->SetUTF8(plan.utf8);
    SStringSetRecord(slot, result);
}

void ReplacePhrases(SStringData*& slot, const SStringData* what, const SStringData* with, uint64_t start,
                    uint64_t end, bool noCase)
{
    if (what->nLen == 0)
        return;
    const ReplacePlan plan = PlanReplacements(slot, what, with, start, end, noCase);
    if (!plan.replacements.empty())
        ApplyPlan(slot, plan, what->nLen, with);
}

} // namespace

void SString::ReplaceAllPhrases(const SString& what, const SString& with, int start, int count)
{
    SStringRef pattern(what);
    SStringRef replacement(with);
    if (start < 0 || count <= 0)
        return;
    SStringLock lock(*this);
    const uint64_t first = uint64_t(start);
    ReplacePhrases(m_pData, pattern.Get(), replacement.Get(), first, first + uint64_t(count), false);
}

void SString::ReplaceAllPhrasesI(const SString& what, const SString& with, int start)
{
    SStringRef pattern(what);
    SStringRef replacement(with);
    if (start < 0)
        return;
    SStringLock lock(*this);
    ReplacePhrases(m_pData, pattern.Get(), replacement.Get(), uint64_t(start), UINT64_MAX, true);
}

void SString::ReplaceAllPhrases2(const SString& what, const SString& with)
{
    SStringRef pattern(what);
    SStringRef replacement(with);
    SStringLock lock(*this);
    const uint32_t wl = pattern->nLen;
    if (wl == 0)
        return;
    // Non-overlapping matches left to right; the whole text is rebuilt without the UTF-8
    // flag and cut at STRING_MAXLEN.
    const uint32_t len = m_pData->nLen;
    ReplacePlan plan{{}, len, false, STRING_MAXLEN};
    for (uint32_t at = 0;; at += wl) {
        at = FindPattern(m_pData->Text(), len, pattern->Text(), wl, at, SearchDirection::Forward, nullptr);
        if (at == STRING_NOTFOUND)
            break;
        plan.replacements.push_back({at, replacement->nLen});
    }
    ApplyPlan(m_pData, plan, wl, replacement.Get());
}

} // namespace vesk
