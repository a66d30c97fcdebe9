// Reading a date or time by whatever fits: the order of attempts, free form, the settings.
#include <gtest/gtest.h>

#include <string>

#include "date_block.h"
#include "support/profile.h"

namespace {

struct ReadCase {
    int line;
    const char* text;
    const char* want;
};

template <size_t kRows>
void ExpectRead(const FMTCntlBlock& block, const ReadCase (&rows)[kRows]) {
    for (const ReadCase& c : rows) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        FMTCntlBlock own = block;
        own.Input = c.text;
        EXPECT_EQ(ReadValue(FMTValidateDateTime, own), c.want);
    }
}

// clang-format off

TEST(ValidateDateTime, Dates) {
    FMTCntlBlock block = DateBlock(1, "");
    block.ShortDatePic = "d/M/yyyy";
    block.LongDatePic = "M/d/yyyy";
    static constexpr ReadCase kRows[] = {
        {__LINE__, "2/1/2003",        "2003-01-02 D"},  // the short picture comes first,
        {__LINE__, "2/13/2003",       "2003-02-13 D"},  // the long one where it doesn't fit,
        {__LINE__, "Jan 2, 2003",     "2003-01-02 D"},  // and the free form at last
        {__LINE__, "2-Jan-2003",      "2003-01-02 D"},
        {__LINE__, "2003-01-02",      "2003-01-02 D"},
        {__LINE__, "31/2/2003",       "0"},
        {__LINE__, "Jam 2, 2003",     "0"},
        {__LINE__, "1/2/2003 12:30",  "0"},
        {__LINE__, "12:30",           "0"},
        {__LINE__, "#",               "0"},
        {__LINE__, "",                "0"},
        // the first attempt takes the mark off a year written out, so that the third sees a two-digit year
    };
    ExpectRead(block, kRows);
}

// With a picture that no date of the rows fits, the free form reads them.
TEST(ValidateDateTime, FreeForm) {
    FMTCntlBlock block = DateBlock(1, "");
    block.ShortDatePic = "S";  // words are no pictures here
    block.LongDatePic = nullptr;
    static constexpr ReadCase kRows[] = {
        {__LINE__, "1/2/2003",         "2003-01-02 D"},
        {__LINE__, "1/2/03",           "0"},
        {__LINE__, "January 12, 2003", "2003-01-12 D"},
        {__LINE__, "12 Jan 2003",      "2003-01-12 D"},
        {__LINE__, "  2003-1-2 ",      "2003-01-02 D"},
        {__LINE__, "0003-1-2",         "0003-01-02 D"},
        {__LINE__, "Jan 32, 2003",     "0"},
        {__LINE__, "Jxn 2, 2003",      "0"},
    };
    ExpectRead(block, kRows);
    block.Country = 49;
    EXPECT_EQ(ReadValue(FMTValidateDateTime, (block.Input = "1/2/2003", block)), "0");
    EXPECT_EQ(ReadValue(FMTValidateDateTime, (block.Input = "2003-1-2", block)), "2003-01-02 D");
}

TEST(ValidateDateTime, Times) {
    FMTCntlBlock block = DateBlock(2, "");
    static constexpr ReadCase kByClock[] = {
        {__LINE__, "1:02:03 PM",        "1900-01-01 13:02:03 T"},
        {__LINE__, "1 pm",              "1900-01-01 13:00:00 T"},
        {__LINE__, "1:02:03:000004 AM", "1900-01-01 1:02:03.000004 T"},
        {__LINE__, "13:02",             "1900-01-01 13:02:00 T"},  // in free form
        {__LINE__, "1:02",              "1900-01-01 1:02:00 T"},
        {__LINE__, "25:00",             "0"},
        {__LINE__, "1:02 xx",           "0"},
        {__LINE__, "1/2/2003",          "0"},
    };
    ExpectRead(block, kByClock);

    block.Flags |= 1U << 1;
    static constexpr ReadCase kWithoutFreeForm[] = {
        {__LINE__, "1:02:03 PM", "1900-01-01 13:02:03 T"},
        {__LINE__, "13:02",      "0"},
    };
    ExpectRead(block, kWithoutFreeForm);

    block.Flags &= ~1U;
    block.ShortDatePic = "h-mm";
    static constexpr ReadCase kByOwnPicture[] = {
        {__LINE__, "1:02",       "1900-01-01 1:02:00 TU"},
        {__LINE__, "13:02",      "0"},
    };
    ExpectRead(block, kByOwnPicture);
}

TEST(ValidateDateTime, DatesAndTimes) {
    FMTCntlBlock block = DateBlock(3, "");
    block.ShortDatePic = "d/M/yyyy";
    static constexpr ReadCase kRows[] = {
        {__LINE__, "2/1/2003 1:02:03 PM",  "2003-01-02 13:02:03 DT"},
        {__LINE__, "2/1/2003",             "2003-01-02 D"},
        {__LINE__, "2/1/2003 13:02",       "2003-02-01 13:02:00 DT"},  // free form, the month first
        {__LINE__, "2/13/2003 1 PM",       "2003-02-13 13:00:00 DT"},
        {__LINE__, "22/1/2003 13:02",      "2003-01-22 13:02:00 DT"},  // the short picture and a 24-hour time
        {__LINE__, "Thursday, January 2, 2003 13:02", "2003-01-02 13:02:00 DT"},
        {__LINE__, "2003-01-02-13.02.03.000004", "2003-01-02 13:02:03.000004 DT"},
        {__LINE__, "Jan 2, 2003 1:15 AM",  "2003-01-02 1:15:00 DT"},
        {__LINE__, "13:02",                "0"},
    };
    ExpectRead(block, kRows);

    block.Flags &= ~1U;  // the pictures then stand for themselves
    block.ShortDatePic = "d/M/yyyy h:mm";
    EXPECT_EQ(ReadValue(FMTValidateDateTime, (block.Input = "2/1/2003 1:02", block)), "2003-01-02 1:02:00 DTU");
    const std::string longPicture = "d/M/yyyy " + std::string(300, ' ') + "'" + std::string(90, 'x') + "'";
    block.ShortDatePic = longPicture.c_str();
    EXPECT_EQ(ReadValue(FMTValidateDateTime, (block.Input = "2/1/2003 13:02", block)), "2003-02-01 13:02:00 DT");
}

// clang-format on

TEST(ValidateDateTime, BadBlocks) {
    for (const int32_t type : {-1, 0, 4}) EXPECT_EQ(ReadValue(FMTValidateDateTime, DateBlock(type, "1/2/2003")), "0");
    EXPECT_EQ(ReadValue(FMTValidateDateTime, DateBlock(1, nullptr)), "0");
    FMTCntlBlock empty = DateBlock(1, "1/2/03");
    empty.ShortDatePic = empty.LongDatePic = nullptr;
    EXPECT_EQ(ReadValue(FMTValidateDateTime, empty), "0");
    empty = DateBlock(2, "1 30 pm");
    empty.TimeSep = empty.AMString = empty.PMString = nullptr;
    EXPECT_EQ(ReadValue(FMTValidateDateTime, empty), "0");
}

TEST(ValidateDateTime, UnderTheProfile) {
    const TestProfile profile({{"intl", "sShortDate", "dd.MM.yyyy"},
                               {"intl", "sLongDate", "d. MMMM yyyy"},
                               {"intl", "iTime", "1"},
                               {"intl", "sTime", "."},
                               {"intl", "iCountry", "49"}});
    FMTCntlBlock block = DateBlock(1, "2.1.2003");
    block.UseProfile = 1;
    EXPECT_EQ(ReadValue(FMTValidateDateTime, block), "2003-01-02 D");
    EXPECT_EQ(ReadValue(FMTValidateDateTime, (block.Input = "2. January 2003", block)), "2003-01-02 D");
    EXPECT_EQ(ReadValue(FMTValidateDateTime, (block.Input = "1.13.2003", block)), "0");
    block.Type = 3;
    EXPECT_EQ(ReadValue(FMTValidateDateTime, (block.Input = "2.1.2003 13.02", block)), "2003-01-02 13:02:00 DT");
    block.Flags &= ~1U;
    for (block.Type = 1; block.Type <= 3; ++block.Type) EXPECT_EQ(FMTValidateDateTime(&block), 0) << block.Type;
    block.Type = 1;
    block.Picture = "M/d/yyyy";
    EXPECT_EQ(FMTIsValidDateString(&block), 0);
    EXPECT_EQ(FMTUnformatDateTimeStr(&block), 0);
}

TEST(IsValidDateString, Results) {
    struct Case {
        int line;
        const char* text;
        int32_t type;
        const char* picture;
        const char* want;
    };
    // clang-format off
    static constexpr Case kRows[] = {
        {__LINE__, "1/2/2003",     1, "M/d/yyyy",     "2003-01-02 D"},
        {__LINE__, "1/2/2003",     1, "M/d/yy",       "4"},  // the shape asks for another picture
        {__LINE__, "1/2/03",       1, "M/d/yy",       "2"},
        {__LINE__, "Jan 32, 2003", 1, "MMM dd, yyyy", "4"},
        {__LINE__, "Jan 2, 2003",  1, "MMM d, yyyy",  "2003-01-02 D"},
        {__LINE__, "12:30",        2, "hhhh.mm.ss.mmmmmm", "1900-01-01 12:30:00 T"},
        {__LINE__, "nonsense",     1, "M/d/yyyy",     "2"},
        {__LINE__, "",             1, "M/d/yyyy",     "0"},
        {__LINE__, nullptr,        1, "M/d/yyyy",     "0"},
        {__LINE__, "1/2/2003",     1, "",             "0"},
        {__LINE__, "1/2/2003",     1, nullptr,        "0"},
        {__LINE__, "1/2/2003",     0, "M/d/yyyy",     "0"},
        {__LINE__, "1/2/2003",     4, "M/d/yyyy",     "0"},
    };
    // clang-format on
    for (const Case& c : kRows) {
        const testing::ScopedTrace row(__FILE__, c.line, "");
        FMTCntlBlock block = DateBlock(c.type, c.text);
        block.Picture = c.picture;
        EXPECT_EQ(ReadValue(FMTIsValidDateString, block), c.want);
    }
    FMTCntlBlock block = DateBlock(1, "1/2/2003");
    block.Picture = "M/d/yyyy";
    block.Country = 49;
    EXPECT_EQ(FMTIsValidDateString(&block), 2);
}

TEST(UnformatDateTimeStr, Pictures) {
    const TestProfile profile({{"intl", "sShortDate", "dd.MM.yyyy"},
                               {"intl", "sLongDate", "yyyy-MM-dd"},
                               {"MORVANEL", "sDateType", "ShortGregorian"}});
    struct Case {
        int line;
        const char* text;
        const char* picture;
        const char* want;
    };
    // clang-format off
    static constexpr Case kRows[] = {
        {__LINE__, "2.1.2003",            "d/M/yyyy",         "2003-01-02 D"},
        {__LINE__, "Jan 2, 2003",         "d/M/yyyy",         "0"},           // no other attempt
        {__LINE__, "2.1.2003 13:02",      "d/M/yyyy hhhh:mm", "2003-01-02 13:02:00 DT"},
        {__LINE__, "2.30.2003",           "M/d/yyyy",         "0"},
        {__LINE__, "13:02 30.2",          "hhhh:mm d.M",      "1900-02-30 13:02:00 DT"},  // a time, with no date to test
        {__LINE__, "13:02",               "hhh:mm",           "1900-01-01 13:02:00 TU"},
        {__LINE__, "2.1.2003",            "",                 "2003-01-02 D"},
        {__LINE__, "2.1.2003",            "S",                "2003-01-02 D"},
        {__LINE__, "2003.1.2",            "L",                "2003-01-02 D"},
        {__LINE__, "1:02:03 PM",          "T",                "1900-01-01 13:02:03 T"},
        {__LINE__, "1:02:03:000004 PM",   "T",                "0"},           // no microseconds
        {__LINE__, "2.1.2003",            "s",                "0"},
        {__LINE__, "x",                   "'x'",              "0"},           // no field
        {__LINE__, "x",                   "#",                "0"},
        {__LINE__, "",                    "M",                "0"},
        {__LINE__, nullptr,               "M",                "0"},
        {__LINE__, "1",                   nullptr,            "0"},
        {__LINE__, "#",                   "M",                "0"},
    };
    // clang-format on
    for (const Case& c : kRows) {
        const testing::ScopedTrace row(__FILE__, c.line, c.picture);
        FMTCntlBlock block = DateBlock(-1, c.text);
        block.Picture = c.picture;
        EXPECT_EQ(ReadValue(FMTUnformatDateTimeStr, block), c.want);
    }
}

TEST(UnformatDateTimeStr, WhatItChangesInTheBlock) {
    FMTCntlBlock block = DateBlock(77, "1:02:03 PM");
    block.Picture = "T";
    EXPECT_EQ(FMTUnformatDateTimeStr(&block), 1);
    EXPECT_EQ(block.Type, 77);
    EXPECT_EQ(block.Flags & 1U << 2, 0U) << "the word clears the bit";
    block.Picture = "d";
    EXPECT_EQ(FMTUnformatDateTimeStr(&block), 0);
    EXPECT_EQ(block.Type, 77);
}

}  // namespace
