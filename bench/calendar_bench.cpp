// The calendar: day numbers and dates beside std::chrono, names and fixed columns beside strptime.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "datetime/calendar.h"

namespace {

constexpr size_t kDays = 4096;
constexpr int32_t kUnixEpoch = 2440588;  // day number of 1 January 1970

struct Day {
    int32_t dayNumber;
    DatDef date;
    char text[32];
};

// Days of the years 1900 to 2100 in no order, the same in every run.
const std::vector<Day>& Days() {
    static const std::vector<Day> days = [] {
        std::mt19937 random(15);
        std::uniform_int_distribution<int32_t> dayNumbers(2415021, 2488434);
        std::vector<Day> made(kDays);
        for (Day& day : made) {
            day.dayNumber = dayNumbers(random);
            FMTDayNumberToDate(day.dayNumber, &day.date);
            std::snprintf(day.text, sizeof day.text, "%04d-%02d-%02d-06.07.08.123456", +day.date.Year, +day.date.Month,
                          +day.date.Day);
        }
        return made;
    }();
    return days;
}

// Walks them by a stride that differs from pass to pass.
class Walk {
  public:
    const Day& Next() {
        if (++step_ % kDays == 0) stride_ = random_() | 1;
        at_ = (at_ + stride_) % kDays;
        return days_[at_];
    }

  private:
    const std::vector<Day>& days_ = Days();
    std::mt19937 random_{7};
    size_t step_ = 0;
    size_t stride_ = 1;
    size_t at_ = 0;
};

void DayNumberOurs(benchmark::State& state) {
    Walk walk;
    for (auto _ : state) {
        const DatDef& date = walk.Next().date;
        benchmark::DoNotOptimize(FMTDateToDayNumber(date.Month, date.Day, date.Year));
    }
}
BENCHMARK(DayNumberOurs);

void DayNumberChrono(benchmark::State& state) {
    Walk walk;
    for (auto _ : state) {
        const DatDef& date = walk.Next().date;
        const std::chrono::year_month_day fields{std::chrono::year{date.Year},
                                                 std::chrono::month{static_cast<unsigned>(date.Month)},
                                                 std::chrono::day{static_cast<unsigned>(date.Day)}};
        benchmark::DoNotOptimize(std::chrono::sys_days(fields).time_since_epoch().count() + kUnixEpoch);
    }
}
BENCHMARK(DayNumberChrono);

void DateOurs(benchmark::State& state) {
    Walk walk;
    DatDef date{};
    for (auto _ : state) {
        FMTDayNumberToDate(walk.Next().dayNumber, &date);
        benchmark::DoNotOptimize(date);
    }
}
BENCHMARK(DateOurs);

void DateByDefinition(benchmark::State& state) {
    Walk walk;
    DatDef date{};
    for (auto _ : state) {
        FMTDayNumberToDateByDefinition(walk.Next().dayNumber, &date);
        benchmark::DoNotOptimize(date);
    }
}
BENCHMARK(DateByDefinition);

void DateChrono(benchmark::State& state) {
    Walk walk;
    for (auto _ : state) {
        const std::chrono::sys_days day{std::chrono::days{walk.Next().dayNumber - kUnixEpoch}};
        benchmark::DoNotOptimize(std::chrono::year_month_day{day});
    }
}
BENCHMARK(DateChrono);

void MonthNameOurs(benchmark::State& state) {
    Walk walk;
    for (auto _ : state) benchmark::DoNotOptimize(FMTFindMonthName(FMTMonthFull(walk.Next().date.Month)));
}
BENCHMARK(MonthNameOurs);

void MonthNameStrptime(benchmark::State& state) {
    Walk walk;
    std::tm fields{};
    for (auto _ : state) {
        strptime(FMTMonthFull(walk.Next().date.Month), "%B", &fields);
        benchmark::DoNotOptimize(fields);
    }
}
BENCHMARK(MonthNameStrptime);

void FixedColumnsOurs(benchmark::State& state) {
    Walk walk;
    DatDef date{};
    for (auto _ : state) {
        FMTIsoToDatDef(walk.Next().text, &date);
        benchmark::DoNotOptimize(date);
    }
}
BENCHMARK(FixedColumnsOurs);

void FixedColumnsStrptime(benchmark::State& state) {
    Walk walk;
    std::tm fields{};
    for (auto _ : state) {
        strptime(walk.Next().text, "%Y-%m-%d-%H.%M.%S", &fields);
        benchmark::DoNotOptimize(fields);
    }
}
BENCHMARK(FixedColumnsStrptime);

void CenturyOurs(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(FMTCenturyFor(49));
}
BENCHMARK(CenturyOurs);

}  // namespace

BENCHMARK_MAIN();
