// Dialog helpers: distinct strings into a sorted list, beside adding without the look for doubles, and beside a set of the
// language's library, which keeps no list. Time is that of the whole list.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <morvl15/dialog.h>

namespace {

// Names of which none begins with another, or as many that share their first five letters with hundreds of others and
// begin in part with one another.
std::vector<std::string> Names(size_t count, bool alike) {
    std::mt19937 random(7);
    std::set<std::string> names;
    while (names.size() < count) {
        if (alike) {
            names.insert("entry " + std::to_string(random() % (count * 4)));
        } else {
            std::string name(10, ' ');
            for (char& c : name) c = static_cast<char>('a' + random() % 26);
            names.insert(name);
        }
    }
    return {names.begin(), names.end()};
}

class Operands {
  public:
    explicit Operands(const benchmark::State& state)
        : names_(Names(static_cast<size_t>(state.range(0)), state.range(1) != 0)) {}
    // The names in an order that changes from pass to pass.
    const std::vector<std::string>& Next() {
        std::shuffle(names_.begin(), names_.end(), random_);
        return names_;
    }

  private:
    std::vector<std::string> names_;
    std::mt19937 random_{11};
};

template <class Add>
void FillList(benchmark::State& state, Add add) {
    Operands operands(state);
    const HWND frame = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    const HWND list =
        CreateWindowExA(0, "LISTBOX", "", WS_CHILD | LBS_SORT, 0, 0, 9, 9, frame, nullptr, nullptr, nullptr);
    for (auto _ : state) {
        state.PauseTiming();
        SendMessageA(list, LB_RESETCONTENT, 0, 0);
        const auto& names = operands.Next();
        state.ResumeTiming();
        for (const std::string& name : names) add(list, name.c_str());
    }
    if (SendMessageA(list, LB_GETCOUNT, 0, 0) != state.range(0)) state.SkipWithError("entries are missing");
    DestroyWindow(frame);
}

void AddDistinct(benchmark::State& state) {
    FillList(state, DlgAddDistinctStringIntoListbox);
}

void AddWithoutLooking(benchmark::State& state) {
    FillList(state,
             [](HWND list, const char* name) { SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name)); });
}

void InsertIntoASet(benchmark::State& state) {
    Operands operands(state);
    for (auto _ : state) {
        state.PauseTiming();
        const auto& names = operands.Next();
        std::set<std::string> set;
        state.ResumeTiming();
        for (const std::string& name : names) set.insert(name);
        benchmark::DoNotOptimize(set.size());
    }
}

void Sizes(benchmark::internal::Benchmark* family) {
    family->ArgNames({"entries", "alike"})->Unit(benchmark::kMillisecond);
    for (const int64_t alike : {0, 1}) {
        for (const int64_t entries : {1000, 10000}) family->Args({entries, alike});
    }
}

BENCHMARK(AddDistinct)->Apply(Sizes);
BENCHMARK(AddWithoutLooking)->Apply(Sizes);
BENCHMARK(InsertIntoASet)->Apply(Sizes);

}  // namespace

BENCHMARK_MAIN();
