// Reading dates: ours beside ICU's lenient parser with its pattern compiled beforehand, and strptime with timegm. Each
// pass walks the same texts in another order, so that no order can be learnt.
#include <benchmark/benchmark.h>

#include <unicode/datefmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/unistr.h>

#include <cstdio>
#include <cstring>
#include <ctime>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <morvl15/datetime.h>
#include <morvl15/host_native.h>
#include <morvl15/intl.h>

#include "datetime/calendar.h"

namespace {

constexpr size_t kTexts = 1024;

// Walks an array of kTexts in an order that changes from pass to pass.
class Walk {
  public:
    size_t Next() {
        at_ = (at_ + stride_) % kTexts;
        if (--left_ == 0) {
            left_ = kTexts;
            stride_ = random_() % kTexts | 1;
        }
        return at_;
    }

  private:
    std::minstd_rand random_{1};
    size_t at_ = 0;
    size_t stride_ = 1;
    size_t left_ = kTexts;
};

enum Form { kLong, kShort, kTime, kEra };

std::string TextOf(Form form, const DatDef& date) {
    static constexpr char kHeisei[] = "\x95\xBD\x90\xAC";
    char text[80];
    switch (form) {
        case kLong:
            std::snprintf(text, sizeof text, "%s, %s %02d, %d",
                          FMTDayFull(FMTDayOfWeek(date.Month, date.Day, date.Year)), FMTMonthFull(date.Month), date.Day,
                          date.Year);
            break;
        case kShort: std::snprintf(text, sizeof text, "%d/%d/%02d", date.Month, date.Day, date.Year % 100); break;
        case kTime: std::snprintf(text, sizeof text, "%d:%02d:%02d PM", date.Month, date.Day, date.Day + 20); break;
        case kEra:
            std::snprintf(text, sizeof text, "%s%02d%s%02d%s%02d%s", kHeisei, date.Year - 1988, kYearMark, date.Month,
                          kMonthMark, date.Day, kDayMark);
            break;
    }
    return text;
}

// Random days of 1990 to 2018 in a form.
std::vector<std::string> Texts(Form form) {
    std::mt19937 random(7);
    std::vector<std::string> texts;
    for (size_t i = 0; i < kTexts; ++i) {
        DatDef date = {};
        FMTDayNumberToDate(FMTDateToDayNumber(1, 1, 1990) + static_cast<int32_t>(random() % 10500), &date);
        texts.push_back(TextOf(form, date));
    }
    return texts;
}

FMTCntlBlock Block(int32_t type) {
    FMTCntlBlock block;
    std::memset(&block, 0, sizeof block);
    FMTInitCntlBlock(&block);
    block.Type = type;
    block.ShortDatePic = "M/d/yy";
    block.LongDatePic = "dddd, MMMM dd, yyyy";
    block.TimeSep = ":";
    block.AMString = "AM";
    block.PMString = "PM";
    return block;
}

void UseLanguage(uint16_t language) {
    HostSetLanguages(language, language);
    IntlInit();
}

template <typename Read>
void Run(benchmark::State& state, Read read) {
    Walk walk;
    for (auto _ : state) {
        if (!read(walk.Next())) {
            state.SkipWithError("a text was not read");
            break;
        }
    }
}

void OurValidate(benchmark::State& state, Form form, int32_t type) {
    UseLanguage(form == kEra ? 0x0411 : 0x0409);
    const std::vector<std::string> texts = Texts(form);
    FMTCntlBlock block = Block(type);
    Run(state, [&](size_t i) {
        block.Input = texts[i].c_str();
        return FMTValidateDateTime(&block) == 1;
    });
}

void OurUnformat(benchmark::State& state, Form form, const char* picture) {
    UseLanguage(form == kEra ? 0x0411 : 0x0409);
    const std::vector<std::string> texts = Texts(form);
    FMTCntlBlock block = Block(1);
    block.Picture = picture;
    Run(state, [&](size_t i) {
        block.Input = texts[i].c_str();
        return FMTUnformatDateTimeStr(&block) == 1;
    });
}

void IcuParse(benchmark::State& state, Form form, const char* locale, const char* pattern, const char* charset) {
    const std::vector<std::string> texts = Texts(form);
    std::vector<icu::UnicodeString> wide;
    for (const std::string& text : texts) wide.emplace_back(text.c_str(), charset);
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat format(pattern, icu::Locale(locale), status);
    format.setLenient(true);
    Run(state, [&](size_t i) {
        UErrorCode own = U_ZERO_ERROR;
        benchmark::DoNotOptimize(format.parse(wide[i], own));
        return U_SUCCESS(own);
    });
}

void CParse(benchmark::State& state, Form form, const char* pattern) {
    const std::vector<std::string> texts = Texts(form);
    Run(state, [&](size_t i) {
        std::tm fields = {};
        if (strptime(texts[i].c_str(), pattern, &fields) == nullptr) return false;
        benchmark::DoNotOptimize(timegm(&fields));
        return true;
    });
}

BENCHMARK_CAPTURE(OurValidate, long form, kLong, 1);
BENCHMARK_CAPTURE(OurUnformat, long form, kLong, "dddd, MMMM dd, yyyy");
BENCHMARK_CAPTURE(IcuParse, long form, kLong, "en_US", "EEEE, MMMM dd, yyyy", "US-ASCII");
BENCHMARK_CAPTURE(CParse, long form, kLong, "%A, %B %d, %Y");

BENCHMARK_CAPTURE(OurValidate, short form, kShort, 1);
BENCHMARK_CAPTURE(OurUnformat, short form, kShort, "M/d/yy");
BENCHMARK_CAPTURE(IcuParse, short form, kShort, "en_US", "M/d/yy", "US-ASCII");
BENCHMARK_CAPTURE(CParse, short form, kShort, "%m/%d/%y");

BENCHMARK_CAPTURE(OurValidate, time, kTime, 2);
BENCHMARK_CAPTURE(OurUnformat, time, kTime, "hh:mm:ss AMPM");
BENCHMARK_CAPTURE(IcuParse, time, kTime, "en_US", "h:mm:ss a", "US-ASCII");
BENCHMARK_CAPTURE(CParse, time, kTime, "%I:%M:%S %p");

BENCHMARK_CAPTURE(OurValidate, era date, kEra, 1);
BENCHMARK_CAPTURE(OurUnformat, era date, kEra, "ED");
BENCHMARK_CAPTURE(IcuParse, era date, kEra, "ja_JP@calendar=japanese",
                  "Gyy\xE5\xB9\xB4MM\xE6\x9C\x88"
                  "dd\xE6\x97\xA5",
                  "Shift_JIS");

}  // namespace

BENCHMARK_MAIN();
