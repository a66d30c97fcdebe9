// Names of months and days.
#include <gtest/gtest.h>

#include <cctype>
#include <random>
#include <string>

#include "datetime/calendar.h"

namespace {

constexpr const char* kMonths[12] = {"January", "February", "March",     "April",   "May",      "June",
                                     "July",    "August",   "September", "October", "November", "December"};
constexpr const char* kDays[7] = {"Saturday", "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday"};

std::string InUpperCase(std::string text) {
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

struct NameTable {
    const char* (*full)(int32_t);
    const char* (*abbreviated)(int32_t);
    int32_t (*find)(const char*);
    int32_t (*findOther)(const char*);
};

template <size_t kNames>
void ExpectBothWays(const char* const (&names)[kNames], const NameTable& table) {
    for (size_t i = 0; i < kNames; ++i) {
        const auto number = static_cast<int32_t>(i + 1);
        const std::string full = names[i];
        const std::string abbreviated = full.substr(0, 3);
        EXPECT_EQ(table.full(number), full);
        EXPECT_EQ(table.abbreviated(number), abbreviated);
        for (const std::string& text : {full, abbreviated, InUpperCase(full), InUpperCase(abbreviated)}) {
            EXPECT_EQ(table.find(text.c_str()), number) << text;
            EXPECT_EQ(table.findOther(text.c_str()), 0) << text;
        }
    }
}

TEST(CalendarNames, BothWays) {
    ExpectBothWays(kMonths, {FMTMonthFull, FMTMonthAbbrev, FMTFindMonthName, FMTFindDayName});
    ExpectBothWays(kDays, {FMTDayFull, FMTDayAbbrev, FMTFindDayName, FMTFindMonthName});
}

TEST(CalendarNames, WhatIsNoName) {
    for (const char* text :
         {"", "Janu", "January ", "x", "ZZZ", "AAA", "Sept", "\xFF\xFE", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(FMTFindMonthName(text), 0) << text;
        EXPECT_EQ(FMTFindDayName(text), 0) << text;
    }
    for (const int32_t number : {INT32_MIN, -1, 0, 13, INT32_MAX}) {
        EXPECT_STREQ(FMTMonthAbbrev(number), "");
        EXPECT_STREQ(FMTMonthFull(number), "");
        EXPECT_STREQ(FMTDayAbbrev(number), "");
        EXPECT_STREQ(FMTDayFull(number), "");
    }
    EXPECT_STREQ(FMTDayFull(8), "");
}

// Names with a byte changed, dropped or put in, and mixtures of names: found as the binary search finds them.
TEST(CalendarNames, FoundAsByDefinition) {
    std::mt19937 random(20030102);
    int32_t found = 0;
    for (int32_t round = 0; round < 20000; ++round) {
        const std::string full = random() % 2 == 0 ? kMonths[random() % 12] : kDays[random() % 7];
        std::string text = random() % 2 == 0 ? full : full.substr(0, 3);
        const size_t at = random() % text.size();
        switch (random() % 6) {
            case 0: text[at] = static_cast<char>(random()); break;
            case 1: text.erase(at, 1); break;
            case 2: text.insert(at, 1, static_cast<char>(random())); break;
            case 3: text.insert(at, kMonths[random() % 12]); break;
            default: text[at] = static_cast<char>(text[at] ^ 0x20); break;
        }
        const int32_t month = FMTFindMonthName(text.c_str());
        const int32_t day = FMTFindDayName(text.c_str());
        ASSERT_EQ(month, FMTFindMonthNameByDefinition(text.c_str())) << text;
        ASSERT_EQ(day, FMTFindDayNameByDefinition(text.c_str())) << text;
        if (month + day != 0) ++found;
    }
    EXPECT_GT(found, 5000);
}

TEST(CalendarNames, LongestNames) {
    for (int32_t call = 0; call < 2; ++call) {
        EXPECT_EQ(FMTMaxMonthNameLen(), 9);
        EXPECT_EQ(FMTMaxDayNameLen(), 9);
    }
}

}  // namespace
