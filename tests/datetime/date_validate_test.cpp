// Reading a date or time by whatever fits: the order of attempts, free form, the settings.
#include <gtest/gtest.h>

#include <string>

#include "read_cases.h"
#include "support/profile.h"

namespace {

TEST(ValidateDateTime, Dates) {
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, "");
    block.ShortDatePic = "d/M/yyyy";
    block.LongDatePic = "M/d/yyyy";
    static constexpr ReadCase kRows[] = {
        {"2/1/2003", "2003-01-02 D"},     // the short picture comes first,
        {"2/13/2003", "2003-02-13 D"},    // the long one where it doesn't fit,
        {"Jan 2, 2003", "2003-01-02 D"},  // and the free form at last
        {"2-Jan-2003", "2003-01-02 D"},  {"2003-01-02", "2003-01-02 D"},
    };
    ExpectRead(block, kRows);
    ExpectRefused(block, {"31/2/2003", "Jam 2, 2003", "1/2/2003 12:30", "12:30", "#", "", nullptr});
}

// With a picture that no date of the rows fits, the free form reads them.
TEST(ValidateDateTime, FreeForm) {
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, "");
    block.ShortDatePic = "S";  // words are no pictures here
    block.LongDatePic = nullptr;
    static constexpr ReadCase kRows[] = {
        {"1/2/2003", "2003-01-02 D"},    {"January 12, 2003", "2003-01-12 D"}, {"12 Jan 2003", "2003-01-12 D"},
        {"  2003-1-2 ", "2003-01-02 D"}, {"0003-1-2", "0003-01-02 D"},
    };
    ExpectRead(block, kRows);
    ExpectRefused(block, {"1/2/03", "Jan 32, 2003", "Jxn 2, 2003"});
    block.Country = 49;
    ExpectRefused(block, {"1/2/2003"});
    ExpectRead(block, "2003-1-2", "2003-01-02 D");
}

TEST(ValidateDateTime, Times) {
    FMTCntlBlock block = DateBlock(FMT_TYPE_TIME, "");
    static constexpr ReadCase kByClock[] = {
        {"1:02:03 PM", "1900-01-01 13:02:03 T"},
        {"1 pm", "1900-01-01 13:00:00 T"},
        {"1:02:03:000004 AM", "1900-01-01 1:02:03.000004 T"},
        {"13:02", "1900-01-01 13:02:00 T"},  // in free form
        {"1:02", "1900-01-01 1:02:00 T"},
    };
    ExpectRead(block, kByClock);
    ExpectRefused(block, {"25:00", "1:02 xx", "1/2/2003"});

    block.Flags |= FMT_PICTURES_ONLY;
    ExpectRead(block, "1:02:03 PM", "1900-01-01 13:02:03 T");
    ExpectRefused(block, {"13:02"});

    block.Flags &= ~FMT_DEFAULT_TIME;
    block.ShortDatePic = "h-mm";
    ExpectRead(block, "1:02", "1900-01-01 1:02:00 TU");
    ExpectRefused(block, {"13:02"});
}

TEST(ValidateDateTime, DatesAndTimes) {
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE_TIME, "");
    block.ShortDatePic = "d/M/yyyy";
    static constexpr ReadCase kRows[] = {
        {"2/1/2003 1:02:03 PM", "2003-01-02 13:02:03 DT"},
        {"2/1/2003", "2003-01-02 D"},
        {"2/1/2003 13:02", "2003-02-01 13:02:00 DT"},  // free form, the month first
        {"2/13/2003 1 PM", "2003-02-13 13:00:00 DT"},
        {"22/1/2003 13:02", "2003-01-22 13:02:00 DT"},  // the short picture and a 24-hour time
        {"Thursday, January 2, 2003 13:02", "2003-01-02 13:02:00 DT"},
        {"2003-01-02-13.02.03.000004", "2003-01-02 13:02:03.000004 DT"},
        {"Jan 2, 2003 1:15 AM", "2003-01-02 1:15:00 DT"},
        {"13:02", "0"},
    };
    ExpectRead(block, kRows);

    block.Flags &= ~FMT_DEFAULT_TIME;  // the pictures then stand for themselves
    block.ShortDatePic = "d/M/yyyy h:mm";
    ExpectRead(block, "2/1/2003 1:02", "2003-01-02 1:02:00 DTU");
    const std::string longPicture = "d/M/yyyy " + std::string(300, ' ') + "'" + std::string(90, 'x') + "'";
    block.ShortDatePic = longPicture.c_str();
    ExpectRead(block, "2/1/2003 13:02", "2003-02-01 13:02:00 DT");
}

TEST(ValidateDateTime, BadBlocks) {
    for (const int32_t type : {-1, 0, 4}) ExpectRefused(DateBlock(type, ""), {"1/2/2003"});
    FMTCntlBlock empty = DateBlock(FMT_TYPE_DATE, "");
    empty.ShortDatePic = empty.LongDatePic = nullptr;
    ExpectRefused(empty, {"1/2/03"});
    empty = DateBlock(FMT_TYPE_TIME, "");
    empty.TimeSep = empty.AMString = empty.PMString = nullptr;
    ExpectRefused(empty, {"1 30 pm"});
}

TEST(ValidateDateTime, UnderTheProfile) {
    const TestProfile profile({{"intl", "sShortDate", "dd.MM.yyyy"},
                               {"intl", "sLongDate", "d. MMMM yyyy"},
                               {"intl", "iTime", "1"},
                               {"intl", "sTime", "."},
                               {"intl", "iCountry", "49"}});
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, "2.1.2003 13.02");
    block.UseProfile = 1;
    ExpectRead(block, "2.1.2003", "2003-01-02 D");
    ExpectRead(block, "2. January 2003", "2003-01-02 D");
    ExpectRefused(block, {"1.13.2003"});
    block.Type = FMT_TYPE_DATE_TIME;
    EXPECT_EQ(ReadValue(FMTValidateDateTime, block), "2003-01-02 13:02:00 DT");
    block.Flags &= ~FMT_DEFAULT_TIME;
    for (block.Type = 1; block.Type <= 3; ++block.Type) EXPECT_EQ(FMTValidateDateTime(&block), 0) << block.Type;
    block.Type = FMT_TYPE_DATE;
    block.Picture = "M/d/yyyy";
    EXPECT_EQ(FMTIsValidDateString(&block), 0);
    EXPECT_EQ(FMTUnformatDateTimeStr(&block), 0);
}

std::string ReadBy(ReadOperation operation, int32_t type, const char* text, const char* picture) {
    FMTCntlBlock block = DateBlock(type, text);
    block.Picture = picture;
    return ReadValue(operation, block);
}

std::string IsValid(const char* text, const char* picture, int32_t type = FMT_TYPE_DATE) {
    return ReadBy(FMTIsValidDateString, type, text, picture);
}

TEST(IsValidDateString, Results) {
    EXPECT_EQ(IsValid("1/2/2003", "M/d/yyyy"), "2003-01-02 D");
    EXPECT_EQ(IsValid("Jan 2, 2003", "MMM d, yyyy"), "2003-01-02 D");
    EXPECT_EQ(IsValid("12:30", "hhhh.mm.ss.mmmmmm", FMT_TYPE_TIME), "1900-01-01 12:30:00 T");
    EXPECT_EQ(IsValid("1/2/2003", "M/d/yy"), "4") << "the shape asks for another picture";
    EXPECT_EQ(IsValid("Jan 32, 2003", "MMM dd, yyyy"), "4");
    EXPECT_EQ(IsValid("1/2/03", "M/d/yy"), "2");
    EXPECT_EQ(IsValid("nonsense", "M/d/yyyy"), "2");
    for (const char* bad : {"", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(IsValid(bad, "M/d/yyyy"), "0");
        EXPECT_EQ(IsValid("1/2/2003", bad), "0");
    }
    for (const int32_t type : {0, 4}) EXPECT_EQ(IsValid("1/2/2003", "M/d/yyyy", type), "0");
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, "1/2/2003");
    block.Picture = "M/d/yyyy";
    block.Country = 49;
    EXPECT_EQ(FMTIsValidDateString(&block), 2);
}

std::string Unformat(const char* text, const char* picture) {
    return ReadBy(FMTUnformatDateTimeStr, FMT_TYPE_NONE, text, picture);
}

TEST(UnformatDateTimeStr, Pictures) {
    EXPECT_EQ(Unformat("2.1.2003", "d/M/yyyy"), "2003-01-02 D");
    EXPECT_EQ(Unformat("Jan 2, 2003", "d/M/yyyy"), "0") << "no other attempt";
    EXPECT_EQ(Unformat("2.30.2003", "M/d/yyyy"), "0");
    EXPECT_EQ(Unformat("2.1.2003 13:02", "d/M/yyyy hhhh:mm"), "2003-01-02 13:02:00 DT");
    EXPECT_EQ(Unformat("2.1.2003 13 02", "d/M/yyyy hhhh:mm"), "0");
    EXPECT_EQ(Unformat("13:02 30.2", "hhhh:mm d.M"), "1900-02-30 13:02:00 DT") << "a time, with no date to test";
    EXPECT_EQ(Unformat("13:02", "hhh:mm"), "1900-01-01 13:02:00 TU");
    EXPECT_EQ(Unformat("x", "'x'"), "0") << "no field";
    EXPECT_EQ(Unformat("x", "#"), "0");
    EXPECT_EQ(Unformat("1", nullptr), "0");
    for (const char* bad : {"", "#", static_cast<const char*>(nullptr)}) EXPECT_EQ(Unformat(bad, "M"), "0");
}

TEST(UnformatDateTimeStr, Words) {
    const TestProfile profile({{"intl", "sShortDate", "dd.MM.yyyy"},
                               {"intl", "sLongDate", "yyyy-MM-dd"},
                               {"MORVANEL", "sDateType", "ShortGregorian"}});
    EXPECT_EQ(Unformat("2.1.2003", ""), "2003-01-02 D");
    EXPECT_EQ(Unformat("2.1.2003", "S"), "2003-01-02 D");
    EXPECT_EQ(Unformat("2003.1.2", "L"), "2003-01-02 D");
    EXPECT_EQ(Unformat("1:02:03 PM", "T"), "1900-01-01 13:02:03 T");
    EXPECT_EQ(Unformat("1:02:03:000004 PM", "T"), "0") << "no microseconds";
    EXPECT_EQ(Unformat("2.1.2003", "s"), "0");
}

TEST(UnformatDateTimeStr, WhatItChangesInTheBlock) {
    FMTCntlBlock block = DateBlock(77, "1:02:03 PM");
    block.Picture = "T";
    EXPECT_EQ(FMTUnformatDateTimeStr(&block), 1);
    EXPECT_EQ(block.Type, 77);
    EXPECT_EQ(block.Flags & FMT_MICROSECONDS, 0U) << "the word clears the bit";
    block.Picture = "d";
    EXPECT_EQ(FMTUnformatDateTimeStr(&block), 0);
    EXPECT_EQ(block.Type, 77);
}

}  // namespace
