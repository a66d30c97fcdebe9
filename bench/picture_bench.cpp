// Number pictures between their forms, beside ICU, whose counterpart is a localised pattern applied and read back
// plain; and what the settings in force cost.
#include <benchmark/benchmark.h>
#include <unicode/decimfmt.h>

#include <morvl15/format.h>

#include "format/settings.h"

namespace {

constexpr char kPicture[] = "#.##0,00 DM;-#.##0,00 DM";

FMTCntlBlock German(char* output) {
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.ThousandSep = '.';
    block.DecimalSep = ',';
    block.Currency = "DM";
    block.CurrencyPos = 3;
    block.NegCurrency = 8;
    block.Output = output;
    return block;
}

void TokenizeOurs(benchmark::State& state) {
    char output[64];
    FMTCntlBlock block = German(output);
    block.Picture = kPicture;
    for (auto _ : state) {
        FMTTokenizeNumberPic(&block);
        benchmark::DoNotOptimize(output);
    }
}
BENCHMARK(TokenizeOurs);

void UnTokenizeOurs(benchmark::State& state) {
    char tokens[64];
    FMTCntlBlock block = German(tokens);
    block.Picture = kPicture;
    FMTTokenizeNumberPic(&block);
    char output[64];
    block.Picture = tokens;
    block.Output = output;
    for (auto _ : state) {
        FMTUnTokenizeNumberPic(&block);
        benchmark::DoNotOptimize(output);
    }
}
BENCHMARK(UnTokenizeOurs);

void ValidOurs(benchmark::State& state) {
    FMTCntlBlock block = German(nullptr);
    block.Picture = kPicture;
    for (auto _ : state) benchmark::DoNotOptimize(FMTIsNumberPicValid(&block));
}
BENCHMARK(ValidOurs);

void LocalisedPatternIcu(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    icu::DecimalFormat format("#,##0.00", icu::DecimalFormatSymbols(icu::Locale::getGermany(), status), status);
    const icu::UnicodeString pattern(u"#.##0,00 DM;-#.##0,00 DM");
    icu::UnicodeString plain;
    for (auto _ : state) {
        format.applyLocalizedPattern(pattern, status);
        benchmark::DoNotOptimize(format.toPattern(plain.remove()));
    }
}
BENCHMARK(LocalisedPatternIcu);

void SettingsInForce(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(FMTCurrentSettings().iDigits);
}
BENCHMARK(SettingsInForce)->ThreadRange(1, 2);

}  // namespace

BENCHMARK_MAIN();
