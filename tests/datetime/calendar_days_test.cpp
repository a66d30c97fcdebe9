// Day numbers, days of the week, dates that exist.
#include <gtest/gtest.h>

#include "datetime/calendar.h"

namespace {

struct DayCase {
    int line;
    int32_t month, day, year;
    int32_t dayNumber;
    int32_t code;  // 1 Saturday
};
// clang-format off
constexpr DayCase kDays[] = {
    //          month day  year  day number  code
    {__LINE__,  1,    1,   2000, 2451545,    1},
    {__LINE__,  12,   31,  1999, 2451544,    7},
    {__LINE__,  2,    29,  2000, 2451604,    4},
    {__LINE__,  1,    2,   2003, 2452642,    6},
    {__LINE__,  3,    1,   1900, 2415080,    6},  // behind a February of 28 days
    {__LINE__,  1,    1,   1,    1721426,    3},
    {__LINE__,  1,    1,   0,    1721060,    1},
    {__LINE__,  12,   31,  9999, 5373484,    7},
    {__LINE__,  9,    29,  1868, 2403605,    4},  // the first days of the eras
    {__LINE__,  7,    30,  1912, 2419614,    4},
    {__LINE__,  12,   25,  1926, 2424875,    1},
    {__LINE__,  1,    8,   1989, 2447535,    2},
};
// clang-format on

TEST(CalendarDays, KnownDays) {
    for (const DayCase& c : kDays) {
        const testing::ScopedTrace row(__FILE__, c.line, "");
        EXPECT_EQ(FMTDateToDayNumber(c.month, c.day, c.year), c.dayNumber);
        EXPECT_EQ(FMTDayOfWeek(c.month, c.day, c.year), c.code);
        DatDef date = {-1, -1, -1, 4, 5, 6, 7};
        FMTDayNumberToDate(c.dayNumber, &date);
        EXPECT_EQ(+date.Month, c.month);
        EXPECT_EQ(+date.Day, c.day);
        EXPECT_EQ(+date.Year, c.year);
        EXPECT_EQ(+date.Hour * 1000 + date.Minute * 100 + date.Second * 10 + date.Microsecond, 4567);
    }
}

bool SameDate(const DatDef& first, const DatDef& second) {
    return first.Month == second.Month && first.Day == second.Day && first.Year == second.Year;
}

// Every day of the years 1 to 9999, and a year at either end: the numbers go up by one from date to date, and both
// methods lead back.
TEST(CalendarDays, DayNumberAndDateAreInverse) {
    const int32_t first = FMTDateToDayNumber(1, 1, 0);
    const int32_t last = FMTDateToDayNumber(12, 31, 10000);
    int32_t wrong = 0;
    for (int32_t dayNumber = first; dayNumber <= last; ++dayNumber) {
        DatDef date = {};
        DatDef byDefinition = {};
        FMTDayNumberToDate(dayNumber, &date);
        FMTDayNumberToDateByDefinition(dayNumber, &byDefinition);
        const bool back = FMTDateToDayNumber(date.Month, date.Day, date.Year) == dayNumber;
        if (!back || !SameDate(date, byDefinition)) ++wrong;
    }
    EXPECT_EQ(wrong, 0);
}

TEST(CalendarDays, ExtremesHaveSomeResult) {
    for (const int32_t extreme : {INT32_MIN, INT32_MAX}) {
        DatDef date = {};
        FMTDayNumberToDate(extreme, &date);
        FMTDateToDayNumber(extreme, extreme, extreme);
        FMTDayOfWeek(extreme, extreme, extreme);
        EXPECT_EQ(FMTIsValidDate(extreme, 1, 2000, nullptr), 0);
        EXPECT_EQ(FMTIsValidDate(1, extreme, 2000, nullptr), 0);
        EXPECT_EQ(FMTIsValidDate(1, 31, extreme, nullptr), 1);
    }
}

struct ValidCase {
    int line;
    int32_t month, day, year;
    const char* dayName;
    int32_t valid;
};
// clang-format off
constexpr ValidCase kValid[] = {
    //          month day  year  day name     valid
    {__LINE__,  2,    29,  1900, nullptr,     0},  // leap years
    {__LINE__,  2,    29,  2000, nullptr,     1},
    {__LINE__,  2,    29,  2003, nullptr,     0},
    {__LINE__,  2,    29,  2004, nullptr,     1},
    {__LINE__,  2,    28,  1900, "",          1},
    {__LINE__,  4,    31,  2003, nullptr,     0},
    {__LINE__,  4,    30,  2003, nullptr,     1},
    {__LINE__,  12,   31,  2003, nullptr,     1},
    {__LINE__,  12,   32,  2003, nullptr,     0},
    {__LINE__,  12,   0,   2003, nullptr,     0},
    {__LINE__,  0,    1,   2003, nullptr,     0},
    {__LINE__,  13,   1,   2003, nullptr,     0},
    {__LINE__,  1,    6,   2003, "Mon",       1},  // 6 January 2003 is a Monday
    {__LINE__,  1,    6,   2003, "monday",    1},
    {__LINE__,  1,    7,   2003, "monday",    0},
    {__LINE__,  1,    7,   2003, "Mon",       0},
    {__LINE__,  1,    6,   2003, "Mo",        0},  // no day name at all
    {__LINE__,  1,    6,   2003, "January",   0},
};
// clang-format on

TEST(CalendarDays, IsValidDate) {
    for (const ValidCase& c : kValid) {
        const testing::ScopedTrace row(__FILE__, c.line, "");
        EXPECT_EQ(FMTIsValidDate(c.month, c.day, c.year, c.dayName), c.valid);
    }
}

}  // namespace
