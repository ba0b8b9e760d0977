// SString editing and searching against the natural std::string code for the same work, at
// 100 KB and 1 MB: one match, line end or token every ten characters.
#include "SteadyAllocator.hpp"

#include <vesk/text.hpp>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

using vesk::SString;

namespace {

// "word1 abc," repeated: "abc" and "," every ten characters.
std::string Text(size_t size)
{
    std::string text;
    for (size_t i = 0; text.size() < size; ++i)
        text += "word" + std::to_string(i % 10) + " abc,";
    text.resize(size);
    return text;
}

std::string Lines(size_t size)
{
    std::string text = Text(size);
    std::replace(text.begin(), text.end(), ',', '\n');
    return text;
}

std::string StdReplaceAll(const std::string& text, const std::string& what, const std::string& with)
{
    std::string out;
    out.reserve(text.size());
    size_t from = 0;
    for (size_t at; (at = text.find(what, from)) != std::string::npos; from = at + what.size())
        out.append(text, from, at - from).append(with);
    return out.append(text, from);
}

std::string Lowered(std::string s)
{
    for (char& c : s)
        c = char(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

std::string StdReplaceAllNoCase(const std::string& text, const std::string& what, const std::string& with)
{
    const std::string lower = Lowered(text);
    const std::string lowerWhat = Lowered(what);
    std::string out;
    out.reserve(text.size());
    size_t from = 0;
    for (size_t at; (at = lower.find(lowerWhat, from)) != std::string::npos; from = at + what.size())
        out.append(text, from, at - from).append(with);
    return out.append(text, from);
}

std::string StdToCrLf(const std::string& text)
{
    std::string out;
    out.reserve(text.size() + text.size() / 8);
    for (char c : text) {
        if (c == '\n')
            out += '\r';
        out += c;
    }
    return out;
}

std::vector<std::string> StdTokens(const std::string& text, char sep)
{
    std::vector<std::string> tokens;
    size_t from = 0;
    for (;;) {
        const size_t at = text.find(sep, from);
        std::string token = text.substr(from, at == std::string::npos ? std::string::npos : at - from);
        token.erase(0, token.find_first_not_of(' '));
        token.erase(token.find_last_not_of(' ') + 1);
        tokens.push_back(std::move(token));
        if (at == std::string::npos)
            return tokens;
        from = at + 1;
    }
}

void ReplaceSString(benchmark::State& state)
{
    const SString text(Text(size_t(state.range(0))).c_str());
    for (auto _ : state) {
        SString s(text);
        s.ReplaceAllPhrases("abc", "XY");
        benchmark::DoNotOptimize(s);
    }
}

void ReplaceStd(benchmark::State& state)
{
    const std::string text = Text(size_t(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(StdReplaceAll(text, "abc", "XY"));
}

void ReplaceNoCaseSString(benchmark::State& state)
{
    const SString text(Text(size_t(state.range(0))).c_str());
    for (auto _ : state) {
        SString s(text);
        s.ReplaceAllPhrasesI("ABC", "XY");
        benchmark::DoNotOptimize(s);
    }
}

void ReplaceNoCaseStd(benchmark::State& state)
{
    const std::string text = Text(size_t(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(StdReplaceAllNoCase(text, "ABC", "XY"));
}

void LineEndSString(benchmark::State& state)
{
    const SString text(Lines(size_t(state.range(0))).c_str());
    for (auto _ : state) {
        SString s(text);
        s.ConvertLineEnd(vesk::LINEEND_CRLF);
        benchmark::DoNotOptimize(s);
    }
}

void LineEndStd(benchmark::State& state)
{
    const std::string text = Lines(size_t(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(StdToCrLf(text));
}

void EraseCharsSString(benchmark::State& state)
{
    const SString text(Text(size_t(state.range(0))).c_str());
    for (auto _ : state) {
        SString s(text);
        s.EraseAllChars(',');
        benchmark::DoNotOptimize(s);
    }
}

void EraseCharsStd(benchmark::State& state)
{
    const std::string text = Text(size_t(state.range(0)));
    for (auto _ : state) {
        std::string s(text);
        std::erase(s, ',');
        benchmark::DoNotOptimize(s);
    }
}

void TokensSString(benchmark::State& state)
{
    const SString text(Text(size_t(state.range(0))).c_str());
    for (auto _ : state)
        benchmark::DoNotOptimize(text.GetAllTokens(','));
}

void TokensStd(benchmark::State& state)
{
    const std::string text = Text(size_t(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(StdTokens(text, ','));
}

// A phrase that only occurs at the very end, with common first letters on the way.
const char kNeedle[] = "word7 abd,";

void SearchSString(benchmark::State& state)
{
    const SString text((Text(size_t(state.range(0))) + kNeedle).c_str());
    for (auto _ : state)
        benchmark::DoNotOptimize(text.Search(kNeedle));
}

void SearchStd(benchmark::State& state)
{
    const std::string text = Text(size_t(state.range(0))) + kNeedle;
    for (auto _ : state)
        benchmark::DoNotOptimize(text.find(kNeedle));
}

constexpr int64_t k100K = 100 * 1024;
constexpr int64_t k1M = 1024 * 1024;

} // namespace

#define VESK_PAIR(name)                                                                  \
    BENCHMARK(name##SString)->Arg(k100K)->Arg(k1M)->Unit(benchmark::kMicrosecond); \
    BENCHMARK(name##Std)->Arg(k100K)->Arg(k1M)->Unit(benchmark::kMicrosecond)

VESK_PAIR(Replace);
VESK_PAIR(ReplaceNoCase);
VESK_PAIR(LineEnd);
VESK_PAIR(EraseChars);
VESK_PAIR(Tokens);
VESK_PAIR(Search);
