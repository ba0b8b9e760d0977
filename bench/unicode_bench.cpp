// Character-set and UTF-8 conversions of 1 MB of text against iconv doing the same work.

#include <vesk/text.hpp>

#include <benchmark/benchmark.h>

#include <iconv.h>

#include <cstring>
#include <string>

namespace {

constexpr size_t kTextBytes = 1000000;

// Western text in Windows-1252 whose every character also exists in DOS code page 437, so that
// iconv converts it without failing.
std::string AnsiText()
{
    static const char* const kWords[] = {"caf\xE9 ", "na\xEFve ", "se\xF1or ", "\xFC" "ber ",
        "gar\xE7on ", "\xC4rger ", "the ", "quick ", "brown ", "fox ", "\xA3" "5 ", "\xE0 la "};
    std::string text;
    for (size_t i = 0; text.size() < kTextBytes; ++i)
        text += kWords[(i * 7) % (sizeof kWords / sizeof kWords[0])];
    text.resize(kTextBytes);
    return text;
}

// Runs iconv over the whole input once; the descriptor is opened outside the timed loop.
void IconvLoop(benchmark::State& state, const char* to, const char* from, const std::string& in,
    size_t outBytes)
{
    iconv_t cd = iconv_open(to, from);
    std::string out(outBytes, '\0');
    for (auto _ : state) {
        iconv(cd, nullptr, nullptr, nullptr, nullptr);
        char* inp = const_cast<char*>(in.data());
        size_t inLeft = in.size();
        char* outp = out.data();
        size_t outLeft = out.size();
        if (iconv(cd, &inp, &inLeft, &outp, &outLeft) == static_cast<size_t>(-1))
            state.SkipWithError("iconv failed");
        benchmark::DoNotOptimize(out.data());
    }
    iconv_close(cd);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * in.size()));
}

void BM_TableConvert_Vesk(benchmark::State& state)
{
    const std::string text = AnsiText();
    std::string work(text.size() + 1, '\0');
    for (auto _ : state) {
        std::memcpy(work.data(), text.c_str(), text.size() + 1);
        vesk::ImpStringConvert(work.data(), vesk::CHARSET_ANSI, vesk::CHARSET_IBMPC_437);
        benchmark::DoNotOptimize(work.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_TableConvert_Vesk)->Unit(benchmark::kMicrosecond);

void BM_TableConvert_Iconv(benchmark::State& state)
{
    const std::string text = AnsiText();
    IconvLoop(state, "IBM437", "WINDOWS-1252", text, text.size());
}
BENCHMARK(BM_TableConvert_Iconv)->Unit(benchmark::kMicrosecond);

// Mixed UTF-8: ASCII, Latin, Cyrillic and a character outside the basic plane, cut at a word.
std::string Utf8Text()
{
    static const char* const kWords[] = {"caf\xC3\xA9 ",
        "\xD0\x9C\xD0\xBE\xD1\x81\xD0\xBA\xD0\xB2\xD0\xB0 ", "the ", "quick ", "\xF0\x9F\x98\x80 ",
        "na\xC3\xAFve ", "brown ", "fox "};
    std::string text;
    for (size_t i = 0; text.size() < kTextBytes - 16; ++i)
        text += kWords[(i * 5) % (sizeof kWords / sizeof kWords[0])];
    return text;
}

// Times convert(text), which must give a non-empty string.
template <typename Convert>
void VeskLoop(benchmark::State& state, const std::string& bytes, Convert convert)
{
    const vesk::SString text(bytes.c_str());
    for (auto _ : state) {
        const auto result = convert(text);
        if (result.Len() == 0)
            state.SkipWithError("conversion failed");
        benchmark::DoNotOptimize(result.Len());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.Len()));
}

void BM_UStringFromUTF8_Vesk(benchmark::State& state)
{
    VeskLoop(state, Utf8Text(), [](const vesk::SString& text) { return vesk::UString(text); });
}
BENCHMARK(BM_UStringFromUTF8_Vesk)->Unit(benchmark::kMicrosecond);

void BM_UStringFromUTF8_Iconv(benchmark::State& state)
{
    const std::string text = Utf8Text();
    IconvLoop(state, "UTF-16LE", "UTF-8", text, 2 * text.size());
}
BENCHMARK(BM_UStringFromUTF8_Iconv)->Unit(benchmark::kMicrosecond);

void BM_AnsiToUTF8_Vesk(benchmark::State& state)
{
    VeskLoop(state, AnsiText(), [](const vesk::SString& text) { return text.AnsiToUTF8(1252); });
}
BENCHMARK(BM_AnsiToUTF8_Vesk)->Unit(benchmark::kMicrosecond);

void BM_AnsiToUTF8_Iconv(benchmark::State& state)
{
    const std::string text = AnsiText();
    IconvLoop(state, "UTF-8", "WINDOWS-1252", text, 4 * text.size());
}
BENCHMARK(BM_AnsiToUTF8_Iconv)->Unit(benchmark::kMicrosecond);

} // namespace
