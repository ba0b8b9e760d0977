// International's formatting against the C library on the same German conventions: GetDate
// against strftime_l, GetNum against snprintf's grouping flag, GetCurr against strfmon_l.
#include <vesk/locale.hpp>

#include <benchmark/benchmark.h>

#include <clocale>
#include <ctime>
#include <locale.h>
#include <monetary.h>
#include <stdio.h>

namespace {

constexpr int kValues = 1000;

// A German-style handle built with the setters, so that no system settings are involved.
vesk::International German()
{
    vesk::International intl(1033, 1031);
    intl.ChangeDateFormat(vesk::DMY);
    intl.ChangeDateSep('.');
    intl.ChangeNumThousandSep('.');
    intl.ChangeNumDecimalSep(',');
    intl.ChangeCurrSymbol("EUR");
    intl.ChangeCurrPositiveFormat(3);
    intl.ChangeCurrNegativeFormat(8);
    return intl;
}

// The C library's German locale; the benchmark is skipped without it.
locale_t GermanLocale()
{
    static locale_t locale = newlocale(LC_ALL_MASK, "de_DE.UTF-8", locale_t(0));
    return locale;
}

int32_t Value(int i)
{
    return (i * 7919 % 20000000) - 10000000;
}

void DateVesk(benchmark::State& state)
{
    vesk::International intl = German();
    for (auto _ : state) {
        for (int i = 0; i < kValues; ++i)
            benchmark::DoNotOptimize(intl.GetDate(vesk::Date(static_cast<uint16_t>(i % 28 + 1), 3, 2024)));
    }
}

void DateStrftime(benchmark::State& state)
{
    if (!GermanLocale())
        return state.SkipWithError("de_DE.UTF-8 is not installed");
    std::tm tm{};
    tm.tm_mon = 2;
    tm.tm_year = 124;
    char buffer[64];
    for (auto _ : state) {
        for (int i = 0; i < kValues; ++i) {
            tm.tm_mday = i % 28 + 1;
            benchmark::DoNotOptimize(strftime_l(buffer, sizeof buffer, "%d.%m.%Y", &tm, GermanLocale()));
        }
    }
}

void NumberVesk(benchmark::State& state)
{
    vesk::International intl = German();
    for (auto _ : state) {
        for (int i = 0; i < kValues; ++i)
            benchmark::DoNotOptimize(intl.GetNum(Value(i), 2));
    }
}

void NumberSnprintf(benchmark::State& state)
{
    if (!GermanLocale())
        return state.SkipWithError("de_DE.UTF-8 is not installed");
    locale_t previous = uselocale(GermanLocale());
    char buffer[64];
    for (auto _ : state) {
        for (int i = 0; i < kValues; ++i)
            benchmark::DoNotOptimize(snprintf(buffer, sizeof buffer, "%'.2f", Value(i) / 100.0));
    }
    uselocale(previous);
}

void CurrencyVesk(benchmark::State& state)
{
    vesk::International intl = German();
    for (auto _ : state) {
        for (int i = 0; i < kValues; ++i)
            benchmark::DoNotOptimize(intl.GetCurr(Value(i)));
    }
}

void CurrencyStrfmon(benchmark::State& state)
{
    if (!GermanLocale())
        return state.SkipWithError("de_DE.UTF-8 is not installed");
    char buffer[64];
    for (auto _ : state) {
        for (int i = 0; i < kValues; ++i)
            benchmark::DoNotOptimize(strfmon_l(buffer, sizeof buffer, GermanLocale(), "%n", Value(i) / 100.0));
    }
}

} // namespace

BENCHMARK(DateVesk);
BENCHMARK(DateStrftime);
BENCHMARK(NumberVesk);
BENCHMARK(NumberSnprintf);
BENCHMARK(CurrencyVesk);
BENCHMARK(CurrencyStrfmon);
