// Days: day numbers, days of the week, the lengths of months, the century of a short year.
#include <algorithm>
#include <cstddef>
#include <type_traits>

#include <morvl15/host.h>

#include "calendar.h"

static_assert(sizeof(DatDef) == 28 && std::is_trivially_copyable_v<DatDef>);
static_assert(offsetof(DatDef, Day) == 4 && offsetof(DatDef, Year) == 8 && offsetof(DatDef, Hour) == 12);
static_assert(offsetof(DatDef, Microsecond) == 24);

namespace {

constexpr int32_t kMonths = 12;
constexpr int32_t kMonthLengths[2][kMonths + 1] = {
    {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
    {0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
};

// Between these the integer method of FMTDayNumberToDate is tested to equal the definition.
constexpr int32_t kFirstOfMarchYear0 = 1721120;
constexpr int32_t kLastOfYear9999 = 5373484;

bool IsLeapYear(int32_t year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

// The day number in a wide type, so that fields of any value can be asked for. All divisions truncate towards zero.
int64_t DayNumber(int64_t month, int64_t day, int64_t year) {
    return 367 * year                                      //
           - 7 * (year + (month + 9) / 12) / 4             //
           - 3 * ((year + (month - 9) / 7) / 100 + 1) / 4  //
           + 275 * month / 9                               //
           + day + 1721029;
}

// A name that is found for the day is one of its names; one that isn't may still be, if two days share it.
bool IsNameOfDay(const char* name, int32_t code) {
    if (FMTFindDayName(name) == code) return true;
    return lstrcmpiA(name, FMTDayAbbrev(code)) == 0 || lstrcmpiA(name, FMTDayFull(code)) == 0;
}

}  // namespace

int32_t FMTDateToDayNumber(int32_t month, int32_t day, int32_t year) {
    return static_cast<int32_t>(std::clamp<int64_t>(DayNumber(month, day, year), INT32_MIN, INT32_MAX));
}

int32_t FMTDayOfWeek(int32_t month, int32_t day, int32_t year) {
    return static_cast<int32_t>((DayNumber(month, day, year) + 2) % 7 + 1);
}

void FMTDayNumberToDateByDefinition(int32_t dayNumber, DatDef* datDef) {
    const auto a = static_cast<int64_t>(dayNumber * 2.7379070069885075e-05 - 51.12264);
    const int64_t b = dayNumber + a - a / 4 + 1525;
    const auto c = static_cast<int64_t>(static_cast<double>(b) / 365.25 - 0.3343);
    const auto d = static_cast<int64_t>(static_cast<double>(c) * 365.25);
    const auto e = static_cast<int64_t>(static_cast<double>(b - d) / 30.61);
    datDef->Day = static_cast<int32_t>(b - d - static_cast<int64_t>(static_cast<double>(e) * 30.61));
    datDef->Month = static_cast<int32_t>(e - 1 - (e >= 14 ? 12 : 0));
    datDef->Year = static_cast<int32_t>(c - 4716 + (datDef->Month < 3 ? 1 : 0));
}

// In whole numbers, after C. Neri and L. Schneider, "Euclidean affine functions and their application to calendar
// algorithms": years run from March to February, and each division is a multiplication whose fraction is the remainder.
void FMTDayNumberToDate(int32_t dayNumber, DatDef* datDef) {
    if (dayNumber < kFirstOfMarchYear0 || dayNumber > kLastOfYear9999) {
        FMTDayNumberToDateByDefinition(dayNumber, datDef);
        return;
    }
    const uint32_t quarters = 4 * static_cast<uint32_t>(dayNumber - kFirstOfMarchYear0) + 3;
    const uint32_t century = quarters / 146097;
    const uint32_t quartersInCentury = (quarters % 146097) | 3;
    const uint64_t years = uint64_t{2939745} * quartersInCentury;  // 2^32 / 1461 days to a year
    const auto yearInCentury = static_cast<uint32_t>(years >> 32);
    const uint32_t dayInYear = static_cast<uint32_t>(years) / 2939745 / 4;
    const uint32_t months = 2141 * dayInYear + 197913;  // 2^16 / 30.6 days to a month, March being month 3
    const uint32_t month = months >> 16;
    const bool nextYear = month > kMonths;
    datDef->Day = static_cast<int32_t>((months & 0xFFFF) / 2141 + 1);
    datDef->Month = static_cast<int32_t>(nextYear ? month - kMonths : month);
    datDef->Year = static_cast<int32_t>(100 * century + yearInCentury + (nextYear ? 1 : 0));
}

int32_t FMTIsValidDate(int32_t month, int32_t day, int32_t year, const char* dayName) {
    if (FMTEnsureNames() == 0) return 0;
    if (day < 1 || day > 31 || month < 1 || month > kMonths) return 0;
    if (dayName != nullptr && *dayName != 0 && !IsNameOfDay(dayName, FMTDayOfWeek(month, day, year))) return 0;
    return day <= kMonthLengths[IsLeapYear(year) ? 1 : 0][month] ? 1 : 0;
}

int32_t FMTCenturyFor(int32_t twoDigits) {
    SYSTEMTIME now;
    GetSystemTime(&now);
    const int32_t century = now.wYear / 100;
    const int32_t lateInCentury = now.wYear % 100 >= 50 ? 1 : 0;
    const int32_t lateYear = twoDigits >= 50 ? 1 : 0;
    return (century + lateInCentury - lateYear) * 100;  // without a branch: years come in no order
}
