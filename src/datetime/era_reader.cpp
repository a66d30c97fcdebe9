#include "era_reader.h"

#include <cstring>

#include <morvl15/datetime.h>
#include <morvl15/host.h>
#include <morvl15/intl.h>

#include "calendar.h"
#include "date_block.h"

namespace {

constexpr int32_t kEraNameBytes = 4;
constexpr int32_t kBoundaryCheckOn = 1;

// Takes a number off the front of a text. It has to have something behind it. Its bytes, or 0 where there is none.
int32_t TakeNumber(const char** text, int32_t* number) {
    const int32_t bytes = IntlFetchNextNumLong(number, *text);
    if (bytes <= 0 || (*text)[bytes] == 0) return 0;
    *text += bytes;
    return bytes;
}

bool TakeMark(const char** text, const char* mark) {
    if (IntlIsDBChar(*text) == 0 || std::memcmp(*text, mark, 2) != 0) return false;
    *text += 2;
    return true;
}

// Takes an era's name off the front of a text. Null where there is none.
const FMTEra* TakeEra(const char** text) {
    for (int32_t i = 0; i < kEras; ++i) {
        if (std::strncmp(*text, gFMTEraTable[i].name, kEraNameBytes) != 0) continue;
        *text += kEraNameBytes;
        return &gFMTEraTable[i];
    }
    return nullptr;
}

// Era year 1 is the calendar year of the era's first day.
bool TakeEraYear(const char** text, const FMTEra& era, int64_t* year) {
    DatDef firstDay = {};
    FMTDayNumberToDate(era.start, &firstDay);
    int32_t eraYear = 0;
    if (TakeNumber(text, &eraYear) == 0 || eraYear <= 0) return false;
    *year = int64_t{firstDay.Year} + eraYear - 1;
    return true;
}

// A year of one or two digits lies in the 20th century, wherever the clock stands.
bool TakePlainYear(const char** text, int64_t* year) {
    int32_t number = 0;
    const int32_t bytes = TakeNumber(text, &number);
    const bool isShort = bytes < 3 && number >= 0 && number <= 99;
    *year = isShort ? 1900 + number : number;
    return bytes > 0;
}

bool LiesInEra(const FMTEra& era, int32_t dayNumber, bool endsWithNext) {
    const int32_t end = (&era)[1].start;
    if (endsWithNext && end != 0 && dayNumber >= end) return false;
    return dayNumber >= era.start;
}

// Takes a whole date off the front of a text.
bool TakeDate(const char** text, const FMTRegion& region, bool needEra, DatDef* date) {
    const FMTEra* era = nullptr;
    int64_t year = 0;
    if (IntlIsDBChar(*text) != 0) {
        era = TakeEra(text);
        if (era == nullptr || !TakeEraYear(text, *era, &year)) return false;
    } else if (needEra || IsCharAlphaA(**text) != 0 || !TakePlainYear(text, &year)) {
        return false;
    }
    if (year < 0 || year > 9999 || !TakeMark(text, kYearMark)) return false;
    date->Year = static_cast<int32_t>(year);

    int32_t month = 0;
    if (TakeNumber(text, &month) == 0 || !TakeMark(text, kMonthMark)) return false;
    int32_t day = 0;
    if (TakeNumber(text, &day) == 0 || !TakeMark(text, kDayMark)) return false;
    date->Month = month;
    date->Day = day;
    if (FMTIsValidDate(month, day, date->Year, nullptr) == 0) return false;
    if (era == nullptr) return true;
    const bool endsWithNext = region.EmpDateBoundryCheck() == kBoundaryCheckOn;
    return LiesInEra(*era, FMTDateToDayNumber(month, day, date->Year), endsWithNext);
}

void StoreDate(FMTCntlBlock* block, const DatDef& date) {
    block->Month = date.Month;
    block->Day = date.Day;
    block->Year = date.Year;
    block->Hour = 0;
    block->Minute = 0;
    block->Second = 0;
    block->Microsecond = 0;
}

// Reads a text as a time, on a copy of the block, and takes the time over.
int32_t ReadTime(FMTCntlBlock* block, const char* text) {
    FMTCntlBlock time = *block;
    time.Type = kTypeTime;
    time.Input = text;
    if (FMTValidateDateTime(&time) == 0) return 0;
    block->Hour = time.Hour;
    block->Minute = time.Minute;
    block->Second = time.Second;
    block->Microsecond = time.Microsecond;
    return 1;
}

}  // namespace

int32_t FMTParseEraDate(FMTCntlBlock* block, const FMTRegion& region, bool needEra) {
    const char* text = IntlStripStartSpace(block->Input);
    DatDef date = {};
    if (!TakeDate(&text, region, needEra, &date)) return -1;
    StoreDate(block, date);
    return static_cast<int32_t>(text - block->Input);
}

int32_t ReadEraText(FMTCntlBlock* block, const FMTRegion& region, bool needEra, bool mayHaveTime) {
    const int32_t used = FMTParseEraDate(block, region, needEra);
    if (used <= 0) return 0;
    const char* rest = IntlStripStartSpace(block->Input + used);
    const bool hasTime = *rest != 0;
    if (hasTime && (!mayHaveTime || ReadTime(block, rest) == 0)) return 0;
    SetFlag(block, kFlagDateSeen, true);
    SetFlag(block, kFlagTimeSeen, hasTime);
    return 1;
}
