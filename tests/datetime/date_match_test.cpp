// The matcher: elements of a text beside elements of a picture.
#include <gtest/gtest.h>

#include <initializer_list>
#include <span>
#include <string>

#include "date_block.h"
#include "datetime/date_match.h"

namespace {

std::string Match(int32_t type, const char* text, const char* picture) {
    FMTCntlBlock block = DateBlock(type, text);
    const DatePicList values(text, type);
    const DatePicList elements(picture, kModePicture);
    const FMTRegion region(&block);
    return FMTMatchDatePic(values.First(), elements.First(), &block, region) == 1 ? DescribeValue(block) : "0";
}

struct MatchCase {
    const char *text, *picture, *want;
};

void ExpectMatched(int32_t type, std::span<const MatchCase> rows) {
    for (const MatchCase& c : rows) EXPECT_EQ(Match(type, c.text, c.picture), c.want) << c.text << " by " << c.picture;
}

void ExpectRefused(int32_t type, const char* picture, std::initializer_list<const char*> texts) {
    for (const char* text : texts) EXPECT_EQ(Match(type, text, picture), "0") << text << " by " << picture;
}

TEST(MatchDatePic, Dates) {
    static constexpr MatchCase kRows[] = {
        {"01-02-2003", "MM/dd/yyyy", "2003-01-02 D"},
        {"1 2 2003", "M/d/yy", "2003-01-02 D"},
        {"19991231", "yyyy-MM-dd", "1999-12-31 D"},
        {"2/29/2000", "M/d/yyyy", "2000-02-29 D"},
        {"1/2/9999", "M/d/yyyy", "9999-01-02 D"},
        {"0099-01-02", "yyyy-MM-dd", "0099-01-02 D"},
        {"0000", "yyyy", "0000-01-01 D"},
        {"Jan", "MMMM", "1900-01-01 D"},
        {"Monday", "dddd", "1900-01-01"},  // a name, and no field of a date
        {"Thursday, January 02, 2003", "dddd, MMMM dd, yyyy", "2003-01-02 D"},
        {"thu JAN 2 2003", "dddd, MMMM dd, yyyy", "2003-01-02 D"},
        {"thursday january 2 2003", "ddd MMM d yyyy", "2003-01-02 D"},
    };
    ExpectMatched(FMT_TYPE_DATE, kRows);
    ExpectRefused(FMT_TYPE_DATE, "M/d/yyyy",
                  {"2/30/2003", "2/29/1900", "13/1/2003", "0/1/2003", "1/32/2003", "1/0/2003"});
    ExpectRefused(FMT_TYPE_DATE, "M/d/yyyy", {"1/2/10000", "1/2/99999999999"});
    ExpectRefused(FMT_TYPE_DATE, "M/d/yy", {"1/2", "1/2/2003/4", "1/2/10000", "1/2/0003"});
    ExpectRefused(FMT_TYPE_DATE, "yyyy-MM-dd", {"2003-0001-02"});
    ExpectRefused(FMT_TYPE_DATE, "MMM", {"5"});
    ExpectRefused(FMT_TYPE_DATE, "dddd", {"Thursday"});  // 1 January 1900 was a Monday
    ExpectRefused(FMT_TYPE_DATE, "dddd, MMMM dd, yyyy",
                  {"Friday, January 02, 2003", "Someday, January 02, 2003", "January 02, 2003"});
}

TEST(MatchDatePic, Texts) {
    static constexpr MatchCase kRows[] = {
        {"Week 2 Jan", "'week 'd MMM", "1900-01-02 D"}, {"' week '2 Jan", "'WEEK'd MMM", "1900-01-02 D"},
        {"2 Jan", "' 'd '' MMM", "1900-01-02 D"},  // blank texts count nowhere
        {"'' 2 ' ' Jan", "d MMM", "1900-01-02 D"},      {"Janx 2", "MMM'x' d", "1900-01-02 D"},
        {"Jan x 2", "MMM'x' d", "1900-01-02 D"},        {"4 Marchta", "d MMMM'ta'", "1900-03-04 D"},
        {"4 March", "d MMMM''", "1900-03-04 D"},
    };
    ExpectMatched(FMT_TYPE_DATE, kRows);
    ExpectRefused(FMT_TYPE_DATE, "'week 'd MMM", {"wk 2 Jan", "2 Jan"});
    ExpectRefused(FMT_TYPE_DATE, "d MMM", {"2 Jan x"});
    ExpectRefused(FMT_TYPE_DATE, "MMM'x' d", {"JanuaryX 2", "x 2"});  // glued texts count in their case
    ExpectRefused(FMT_TYPE_DATE, "MMM 'x' d", {"Janx 2"});
    ExpectRefused(FMT_TYPE_DATE, "d MMMM'ta'", {"4 tammita"});
    ExpectRefused(FMT_TYPE_DATE, "d MMMM", {"4 Marchta"});
}

TEST(MatchDatePic, Times) {
    static constexpr MatchCase kRows[] = {
        {"12 PM", "hh:mm:ss AMPM", "1900-01-01 12:00:00 T"},
        {"12:30:15 am", "hh:mm:ss AMPM", "1900-01-01 0:30:15 T"},
        {"12:30", "hh:mm:ss", "1900-01-01 12:30:00 T"},
        {"1 30", "hh:mm:ss", "1900-01-01 1:30:00 T"},
        {"1:30", "h:mm", "1900-01-01 1:30:00 TU"},
        {"1:30", "hhh:mm", "1900-01-01 1:30:00 TU"},
        {"13", "hhhh:mm:ss", "1900-01-01 13:00:00 T"},
        {"1:30 PM", "hhhh:mm AMPM", "1900-01-01 13:30:00 T"},
        {"13:30", "hhhh:mm AMPM", "1900-01-01 13:30:00 T"},
        {"24:00", "hhhh:mm", "1900-01-01 24:00:00 T"},
        {"1:59:59.999999", "hhhh:mm:ss.mmmmmm", "1900-01-01 1:59:59.999999 T"},
        {"1:02:03.5", "hhhh:mm:ss.mmmmmm", "1900-01-01 1:02:03.000005 T"},  // not scaled
    };
    ExpectMatched(FMT_TYPE_TIME, kRows);
    ExpectRefused(FMT_TYPE_TIME, "hh:mm:ss AMPM", {"12:30"});  // morning or afternoon?
    ExpectRefused(FMT_TYPE_TIME, "hh:mm AMPM", {"1:30 XM", "1:30 5", "0:30 AM", "13:30 PM", "PM"});
    ExpectRefused(FMT_TYPE_TIME, "hh:mm", {"x", ":"});
    ExpectRefused(FMT_TYPE_TIME, "hhhh:mm AMPM", {"13:30 PM"});
    ExpectRefused(FMT_TYPE_TIME, "hhhh:mm:ss", {"13 30"});  // separators are needed on the 24-hour clock
    ExpectRefused(FMT_TYPE_TIME, "hhhh:mm:ss.mmmmmm", {"25:00", "1:60", "1:59:60", "1:59:59.1000000"});
    // A year written out is no part of a time.
    ExpectRefused(FMT_TYPE_TIME, "hhhh:mm:ss.mmmmmm", {"0012:30", "12:0030", "12:30:0015", "12:30:15.0015"});
}

TEST(MatchDatePic, DatesAndTimes) {
    static constexpr MatchCase kRows[] = {
        {"1/2/2003", "M/d/yyyy hh:mm AMPM", "2003-01-02 D"},
        {"1/2/2003 5 PM", "M/d/yyyy hh:mm AMPM", "2003-01-02 17:00:00 DT"},
        {"2/30/2003 5 PM", "M/d/yyyy hh:mm AMPM", "0"},
        {"13 1 2003", "hhhh.M/yyyy", "0"},
    };
    ExpectMatched(FMT_TYPE_DATE_TIME, kRows);
    EXPECT_EQ(Match(FMT_TYPE_DATE, "13 1 2003", "hhhh.M/yyyy"), "2003-01-01 13:00:00 DT");
    // A time has no date to test.
    EXPECT_EQ(Match(FMT_TYPE_TIME, "2/30/2003 5 PM", "M/d/yyyy hh:mm AMPM"), "2003-02-30 17:00:00 DT");
}

TEST(MatchDatePic, WhereMorningAndAfternoonAreCalledAlikeItIsMorning) {
    FMTCntlBlock block = DateBlock(FMT_TYPE_TIME, "12:30 x");
    block.AMString = "X";
    block.PMString = "x";
    block.ShortDatePic = "hh:mm AMPM";
    block.Flags &= ~FMT_DEFAULT_TIME;
    EXPECT_EQ(ReadValue(FMTValidateDateTime, block), "1900-01-01 0:30:00 T");
}

TEST(MatchDatePic, NoLists) {
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, "");
    const FMTRegion region(&block);
    const DatePicList list("M", kModePicture);
    EXPECT_EQ(FMTMatchDatePic(nullptr, list.First(), &block, region), 0);
    EXPECT_EQ(FMTMatchDatePic(list.First(), nullptr, &block, region), 0);
}

TEST(FindMonthWithSuffix, Words) {
    EXPECT_EQ(FMTFindMonthWithSuffix("Decemberta", "ta"), 12);
    EXPECT_EQ(FMTFindMonthWithSuffix("ta", "ta"), 0);
    EXPECT_EQ(FMTFindMonthWithSuffix("MayTA", "ta"), 0);
    EXPECT_EQ(FMTFindMonthWithSuffix("May", ""), 5);
    EXPECT_EQ(FMTFindMonthWithSuffix(std::string(150, 'x').c_str(), "x"), 0);
}

}  // namespace
