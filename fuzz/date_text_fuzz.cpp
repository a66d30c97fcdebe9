// Raw text read as a date, a time or both, in whatever form it has, under three systems; in Shift-JIS also as a date of
// an era. What is accepted is a moment that exists, and says the same when it is written and read again.
#include <chrono>

#include "../tests/datetime/date_block.h"
#include "datetime/calendar.h"
#include "datetime/era_reader.h"
#include "input.h"

namespace {

void RequireMoment(const FMTCntlBlock& block) {
    using namespace std::chrono;
    const auto aMonth = static_cast<unsigned>(+block.Month);
    const auto aDay = static_cast<unsigned>(+block.Day);
    Require(block.Year >= 0 && block.Year <= 9999 && year_month_day(year(block.Year), month(aMonth), day(aDay)).ok());
    Require(block.Hour >= 0 && block.Hour <= 24 && block.Minute >= 0 && block.Minute <= 59);
    Require(block.Second >= 0 && block.Second <= 59 && block.Microsecond >= 0 && block.Microsecond <= 999999);
}

FMTCntlBlock Block(uint8_t choices, const char* input) {
    FMTCntlBlock block = DateBlock(choices % 4 + 1, input);
    block.Flags |= (choices & 4U) >> 1;  // pictures only
    block.Flags |= (choices & 8U) >> 1;  // microseconds
    block.TimeIs24Hour = (choices >> 4) & 1;
    block.Country = (choices & 0x20) != 0 ? 81 : 1;
    if ((choices & 0x40) != 0) block.ShortDatePic = "yyyy/MM/dd";
    return block;
}

void ReadAgain(FMTCntlBlock block) {
    const DatDef read = {block.Month, block.Day, block.Year, 0, 0, 0, 0};
    block.Type = FMT_TYPE_DATE;
    block.LongDatePic = block.Picture = "yyyy-MM-dd";
    const std::string text = WriteValue(&block);
    block.Input = text.c_str();
    Require(FMTUnformatDateTimeStr(&block) == 1);
    Require(block.Month == read.Month && block.Day == read.Day && block.Year == read.Year);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2 || size > 400) return 0;
    constexpr LANGID kLanguages[] = {0x0409, 0x0411, 0x0407};
    const LANGID language = kLanguages[data[0] % 3];
    SetLanguage(language);
    FMTLoadNames();
    const std::string text(reinterpret_cast<const char*>(data) + 2, size - 2);

    FMTCntlBlock block = Block(data[1], text.c_str());
    if (FMTValidateDateTime(&block) != 0) {
        RequireMoment(block);
        ReadAgain(block);
    }
    if (language != 0x0411) return 0;

    FMTCntlBlock era = Block(data[1], text.c_str());
    const int32_t used = FMTParseEraDate(&era, FMTRegion(&era), (data[1] & 1) != 0);
    Require(used >= -1 && used <= static_cast<int32_t>(std::strlen(text.c_str())));
    if (used >= 0) RequireMoment(era);
    for (const char* word : {"E", "ED"}) {
        era.Picture = word;
        FMTUnformatDateTimeStr(&era);
    }
    return 0;
}
