// Dates written, beside ICU with its pattern compiled beforehand and beside gmtime_r with strftime.
#include <benchmark/benchmark.h>
#include <unicode/smpdtfmt.h>

#include <ctime>
#include <random>
#include <vector>

#include <morvl15/datetime.h>

namespace {

constexpr size_t kDates = 1024;

struct Moment {
    std::time_t time;
    DatDef date;
};

// Moments of the years 1930 to 2060, the same in every run.
const std::vector<Moment>& Moments() {
    static const std::vector<Moment> moments = [] {
        std::mt19937_64 random(15);
        std::uniform_int_distribution<std::time_t> seconds(-1262304000, 2840140800);
        std::vector<Moment> made(kDates);
        for (Moment& moment : made) {
            moment.time = seconds(random);
            std::tm fields{};
            gmtime_r(&moment.time, &fields);
            moment.date = {fields.tm_mon + 1,
                           fields.tm_mday,
                           fields.tm_year + 1900,
                           fields.tm_hour,
                           fields.tm_min,
                           fields.tm_sec,
                           0};
        }
        return made;
    }();
    return moments;
}

// Walks the moments in an order that differs from pass to pass, so that no branch predictor learns it.
class Walk {
  public:
    const Moment& Next() {
        if (++step_ % kDates == 0) stride_ = random_() | 1;
        at_ = (at_ + stride_) % kDates;
        return Moments()[at_];
    }

  private:
    std::mt19937 random_{7};
    size_t step_ = 0;
    size_t stride_ = 1;
    size_t at_ = 0;
};

void Ours(benchmark::State& state, int32_t type, int32_t form, const char* picture) {
    Walk walk;
    char text[128];
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.Type = type;
    block.DateForm = form;
    block.LongDatePic = picture;
    block.AMString = "AM";
    block.PMString = "PM";
    block.Output = text;
    if (type == 2) block.Flags &= ~1u;  // the picture and not the default time picture
    for (auto _ : state) {
        const DatDef& date = walk.Next().date;
        block.Month = date.Month;
        block.Day = date.Day;
        block.Year = date.Year;
        block.Hour = date.Hour;
        block.Minute = date.Minute;
        block.Second = date.Second;
        FMTFormatDateTime(&block);
        benchmark::DoNotOptimize(text);
    }
}

void Icu(benchmark::State& state, const char* locale, const char16_t* pattern) {
    Walk walk;
    UErrorCode error = U_ZERO_ERROR;
    icu::SimpleDateFormat format(pattern, icu::Locale(locale), error);
    format.setTimeZone(*icu::TimeZone::getGMT());
    if (U_FAILURE(error)) return state.SkipWithError(u_errorName(error));
    icu::UnicodeString text;
    for (auto _ : state) {
        text.remove();
        format.format(1000.0 * static_cast<double>(walk.Next().time), text);
        benchmark::DoNotOptimize(text);
    }
}

void Strftime(benchmark::State& state, const char* pattern) {
    Walk walk;
    char text[128];
    for (auto _ : state) {
        std::tm fields{};
        const std::time_t time = walk.Next().time;
        gmtime_r(&time, &fields);
        benchmark::DoNotOptimize(strftime(text, sizeof text, pattern, &fields));
    }
}

BENCHMARK_CAPTURE(Ours, LongForm, 1, 0, "dddd, MMMM dd, yyyy");
BENCHMARK_CAPTURE(Icu, LongForm, "en_US", u"EEEE, MMMM dd, yyyy");
BENCHMARK_CAPTURE(Strftime, LongForm, "%A, %B %d, %Y");

BENCHMARK_CAPTURE(Ours, ShortForm, 1, 0, "M/d/yyyy");
BENCHMARK_CAPTURE(Icu, ShortForm, "en_US", u"M/d/yyyy");
BENCHMARK_CAPTURE(Strftime, ShortForm, "%m/%d/%Y");

BENCHMARK_CAPTURE(Ours, Time, 2, 0, "hh:mm:ss AMPM");
BENCHMARK_CAPTURE(Icu, Time, "en_US", u"h:mm:ss a");
BENCHMARK_CAPTURE(Strftime, Time, "%I:%M:%S %p");

BENCHMARK_CAPTURE(Ours, EraForm, 1, 3, "");
BENCHMARK_CAPTURE(Icu, EraForm, "ja_JP@calendar=japanese", u"Gyy\u5E74MM\u6708dd\u65E5");

}  // namespace

BENCHMARK_MAIN();
