#include "japan_dates.h"

#include <cstring>

#include "calendar.h"
#include "digits.h"

namespace {

constexpr size_t kMarkLength = 2;
constexpr size_t kEraNameLength = 4;

char* PutBytes(char* out, const char* bytes, size_t length) {
    std::memcpy(out, bytes, length);
    return out + length;
}

// From behind the year on: the year's mark, month and day.
void PutMonthAndDay(char* out, const FMTCntlBlock& block) {
    out = PutBytes(out, kYearMark, kMarkLength);
    out = PutBytes(FMTPutPadded(out, block.Month), kMonthMark, kMarkLength);
    out = PutBytes(FMTPutPadded(out, block.Day), kDayMark, kMarkLength);
    *out = 0;
}

// The era that holds a day, or null before the first one.
const FMTEra* FindEra(int32_t dayNumber) {
    const FMTEra* next = gFMTEraTable;
    while (next->start != 0 && next->start <= dayNumber) ++next;
    return next == gFMTEraTable ? nullptr : next - 1;
}

int32_t EraYear(const FMTEra& era, int32_t year) {
    DatDef first{};
    FMTDayNumberToDate(era.start, &first);
    return year - first.Year + 1;
}

}  // namespace

void FMTFormatJapanDate(FMTCntlBlock* block) {
    PutMonthAndDay(FMTPutFilled(block->Output, block->Year, 4), *block);
}

int32_t FMTFormatEraDate(FMTCntlBlock* block) {
    const FMTEra* era = FindEra(FMTDateToDayNumber(block->Month, block->Day, block->Year));
    if (era == nullptr) return 0;
    char* out = PutBytes(block->Output, era->name, kEraNameLength);
    PutMonthAndDay(FMTPutLastTwo(out, EraYear(*era, block->Year)), *block);
    return 1;
}
