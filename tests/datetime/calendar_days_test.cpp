// Day numbers, days of the week, dates that exist.
#include <gtest/gtest.h>

#include <cstring>

#include "datetime/calendar.h"

namespace {

TEST(CalendarDays, KnownDays) {
    static constexpr int32_t kRows[][5] = {
        // month, day, year, day number, code of the day of the week: 1 Saturday
        {1, 1, 2000, 2451545, 1},  {12, 31, 1999, 2451544, 7}, {2, 29, 2000, 2451604, 4},
        {1, 2, 2003, 2452642, 6},  {3, 1, 1900, 2415080, 6},  // behind a February of 28 days
        {1, 1, 1, 1721426, 3},     {1, 1, 0, 1721060, 1},      {12, 31, 9999, 5373484, 7},
        {9, 29, 1868, 2403605, 4},  // the first days of the eras
        {7, 30, 1912, 2419614, 4}, {12, 25, 1926, 2424875, 1}, {1, 8, 1989, 2447535, 2},
    };
    for (const auto& [month, day, year, dayNumber, code] : kRows) {
        const testing::ScopedTrace row(__FILE__, __LINE__, dayNumber);
        EXPECT_EQ(FMTDateToDayNumber(month, day, year), dayNumber);
        EXPECT_EQ(FMTDayOfWeek(month, day, year), code);
        DatDef date = {-1, -1, -1, 4, 5, 6, 7};
        const DatDef want = {month, day, year, 4, 5, 6, 7};
        FMTDayNumberToDate(dayNumber, &date);
        EXPECT_EQ(std::memcmp(&date, &want, sizeof date), 0);
    }
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
        if (!back || std::memcmp(&date, &byDefinition, sizeof date) != 0) ++wrong;
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

TEST(CalendarDays, IsValidDate) {
    static constexpr int32_t kRows[][4] = {
        {2, 29, 1900, 0},  {2, 29, 2000, 1},  {2, 29, 2003, 0}, {2, 29, 2004, 1}, {4, 31, 2003, 0}, {4, 30, 2003, 1},
        {12, 31, 2003, 1}, {12, 32, 2003, 0}, {12, 0, 2003, 0}, {0, 1, 2003, 0},  {13, 1, 2003, 0},
    };
    for (const auto& [month, day, year, valid] : kRows) {
        for (const char* noName : {"", static_cast<const char*>(nullptr)}) {
            EXPECT_EQ(FMTIsValidDate(month, day, year, noName), valid) << month << '/' << day << '/' << year;
        }
    }
    EXPECT_EQ(FMTIsValidDate(1, 6, 2003, "Mon"), 1);
    EXPECT_EQ(FMTIsValidDate(1, 6, 2003, "monday"), 1);
    EXPECT_EQ(FMTIsValidDate(1, 7, 2003, "Mon"), 0);
    EXPECT_EQ(FMTIsValidDate(1, 7, 2003, "monday"), 0);
    for (const char* noDay : {"Mo", "January"}) EXPECT_EQ(FMTIsValidDate(1, 6, 2003, noDay), 0);
}

}  // namespace
