// Listing all faces of the machine, and what a list costs as it grows; beside what an application would do instead: a
// vector of the same records, filled by the same enumeration.
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include <morvl15/font.h>

namespace {

HDC Screen() {
    static const HDC dc = CreateICA("DISPLAY", nullptr, nullptr, nullptr);
    return dc;
}

INT CALLBACK Keep(const LOGFONTA* font, const TEXTMETRICA* metric, DWORD type, LPARAM value) {
    FonMetricsRecord record;
    record.logFont = *font;
    std::memcpy(&record.textMetric, metric, sizeof record.textMetric);
    record.fontType = static_cast<uint16_t>(type);
    reinterpret_cast<std::vector<FonMetricsRecord>*>(value)->push_back(record);
    return 1;
}

void ListFaceMetrics(benchmark::State& state) {
    for (auto _ : state) GlobalFree(FonGetFontFaceMetrics(Screen()));
}
BENCHMARK(ListFaceMetrics);

void ListFaceMetricsInVector(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<FonMetricsRecord> records;
        EnumFontsA(Screen(), nullptr, Keep, reinterpret_cast<LPARAM>(&records));
        benchmark::DoNotOptimize(records.data());
    }
}
BENCHMARK(ListFaceMetricsInVector);

void GrowList(benchmark::State& state) {
    LOGFONTA font = {};
    TEXTMETRICA metric = {};
    for (auto _ : state) {
        FonEnumState list = {};
        for (int64_t n = 0; n < state.range(0); ++n) FontEnumSizes(&font, &metric, 4, reinterpret_cast<LPARAM>(&list));
        GlobalFree(list.block);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(GrowList)->RangeMultiplier(8)->Range(8, 32767);

}  // namespace

BENCHMARK_MAIN();
