// The matcher: elements of a text beside elements of a picture.
#include <gtest/gtest.h>

#include "date_block.h"
#include "datetime/date_match.h"

namespace {

struct MatchCase {
    int line;
    const char* text;
    int32_t type;
    const char* picture;
    const char* want;
};

std::string Match(const MatchCase& c) {
    FMTCntlBlock block = DateBlock(c.type, c.text);
    const DatePicList values(c.text, c.type);
    const DatePicList picture(c.picture, kModePicture);
    const FMTRegion region(&block);
    return FMTMatchDatePic(values.First(), picture.First(), &block, region) == 1 ? DescribeValue(block) : "0";
}

template <size_t kRows>
void ExpectMatched(const MatchCase (&rows)[kRows]) {
    for (const MatchCase& c : rows) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        EXPECT_EQ(Match(c), c.want);
    }
}

// clang-format off

TEST(MatchDatePic, Dates) {
    static constexpr MatchCase kRows[] = {
        {__LINE__, "01-02-2003",               1, "MM/dd/yyyy",          "2003-01-02 D"},
        {__LINE__, "1 2 2003",                 1, "M/d/yy",              "2003-01-02 D"},
        {__LINE__, "1/2",                      1, "M/d/yy",              "0"},             // no year
        {__LINE__, "1/2/2003/4",               1, "M/d/yy",              "0"},
        {__LINE__, "19991231",                 1, "yyyy-MM-dd",          "1999-12-31 D"},
        {__LINE__, "2/30/2003",                1, "M/d/yyyy",            "0"},
        {__LINE__, "2/29/1900",                1, "M/d/yyyy",            "0"},
        {__LINE__, "2/29/2000",                1, "M/d/yyyy",            "2000-02-29 D"},
        {__LINE__, "13/1/2003",                1, "M/d/yyyy",            "0"},
        {__LINE__, "0/1/2003",                 1, "M/d/yyyy",            "0"},
        {__LINE__, "1/32/2003",                1, "M/d/yyyy",            "0"},
        {__LINE__, "1/0/2003",                 1, "M/d/yyyy",            "0"},
        {__LINE__, "1/2/10000",                1, "M/d/yyyy",            "0"},
        {__LINE__, "1/2/9999",                 1, "M/d/yyyy",            "9999-01-02 D"},
        {__LINE__, "1/2/99999999999",          1, "M/d/yyyy",            "0"},
        {__LINE__, "1/2/10000",                1, "M/d/yy",              "0"},
        {__LINE__, "1/2/0003",                 1, "M/d/yy",              "0"},             // two digits, or all four
        {__LINE__, "0099-01-02",               1, "yyyy-MM-dd",          "0099-01-02 D"},
        {__LINE__, "0000",                     1, "yyyy",                "0000-01-01 D"},
        {__LINE__, "2003-0001-02",             1, "yyyy-MM-dd",          "0"},
        {__LINE__, "Jan",                      1, "MMMM",                "1900-01-01 D"},
        {__LINE__, "5",                        1, "MMM",                 "0"},
        {__LINE__, "Thursday",                 1, "dddd",                "0"},             // 1 January 1900: a Monday
        {__LINE__, "Monday",                   1, "dddd",                "1900-01-01"},    // and no field of a date
        {__LINE__, "Thursday, January 02, 2003", 1, "dddd, MMMM dd, yyyy", "2003-01-02 D"},
        {__LINE__, "thu JAN 2 2003",           1, "dddd, MMMM dd, yyyy", "2003-01-02 D"},
        {__LINE__, "thursday january 2 2003",  1, "ddd MMM d yyyy",      "2003-01-02 D"},
        {__LINE__, "Friday, January 02, 2003", 1, "dddd, MMMM dd, yyyy", "0"},
        {__LINE__, "Someday, January 02, 2003", 1, "dddd, MMMM dd, yyyy", "0"},
        {__LINE__, "January 02, 2003",         1, "dddd, MMMM dd, yyyy", "0"},
    };
    ExpectMatched(kRows);
}

TEST(MatchDatePic, Texts) {
    static constexpr MatchCase kRows[] = {
        {__LINE__, "Week 2 Jan",    1, "'week 'd MMM",    "1900-01-02 D"},
        {__LINE__, "' week '2 Jan", 1, "'WEEK'd MMM",     "1900-01-02 D"},
        {__LINE__, "wk 2 Jan",      1, "'week 'd MMM",    "0"},
        {__LINE__, "2 Jan",         1, "'week 'd MMM",    "0"},
        {__LINE__, "2 Jan",         1, "' 'd '' MMM",     "1900-01-02 D"},  // blank texts count nowhere
        {__LINE__, "'' 2 ' ' Jan",  1, "d MMM",           "1900-01-02 D"},
        {__LINE__, "2 Jan x",       1, "d MMM",           "0"},
        {__LINE__, "Janx 2",        1, "MMM'x' d",        "1900-01-02 D"},
        {__LINE__, "JanuaryX 2",    1, "MMM'x' d",        "0"},             // glued texts count in their case
        {__LINE__, "Janx 2",        1, "MMM 'x' d",       "0"},
        {__LINE__, "Jan x 2",       1, "MMM'x' d",        "1900-01-02 D"},
        {__LINE__, "x 2",           1, "MMM'x' d",        "0"},
        {__LINE__, "4 tammita",     1, "d MMMM'ta'",      "0"},
        {__LINE__, "4 Marchta",     1, "d MMMM'ta'",      "1900-03-04 D"},
        {__LINE__, "4 Marchta",     1, "d MMMM",          "0"},
        {__LINE__, "4 March",       1, "d MMMM''",        "1900-03-04 D"},
    };
    ExpectMatched(kRows);
}

TEST(MatchDatePic, Times) {
    static constexpr MatchCase kRows[] = {
        {__LINE__, "12 PM",           2, "hh:mm:ss AMPM",    "1900-01-01 12:00:00 T"},
        {__LINE__, "12:30:15 am",     2, "hh:mm:ss AMPM",    "1900-01-01 0:30:15 T"},
        {__LINE__, "12:30",           2, "hh:mm:ss AMPM",    "0"},    // morning or afternoon?
        {__LINE__, "12:30",           2, "hh:mm:ss",         "1900-01-01 12:30:00 T"},
        {__LINE__, "1:30 XM",         2, "hh:mm AMPM",       "0"},
        {__LINE__, "1:30 5",          2, "hh:mm AMPM",       "0"},
        {__LINE__, "0:30 AM",         2, "hh:mm AMPM",       "0"},
        {__LINE__, "13:30 PM",        2, "hh:mm AMPM",       "0"},
        {__LINE__, "13",              2, "hhhh:mm:ss",       "1900-01-01 13:00:00 T"},
        {__LINE__, "13 30",           2, "hhhh:mm:ss",       "0"},    // separators are needed on the 24-hour clock,
        {__LINE__, "1 30",            2, "hh:mm:ss",         "1900-01-01 1:30:00 T"},  // though not on the 12-hour one
        {__LINE__, "1:30 PM",         2, "hhhh:mm AMPM",     "1900-01-01 13:30:00 T"},
        {__LINE__, "13:30 PM",        2, "hhhh:mm AMPM",     "0"},
        {__LINE__, "13:30",           2, "hhhh:mm AMPM",     "1900-01-01 13:30:00 T"},
        {__LINE__, "24:00",           2, "hhhh:mm",          "1900-01-01 24:00:00 T"},
        {__LINE__, "25:00",           2, "hhhh:mm",          "0"},
        {__LINE__, "1:60",            2, "hhhh:mm",          "0"},
        {__LINE__, "1:59:60",         2, "hhhh:mm:ss",       "0"},
        {__LINE__, "1:59:59.1000000", 2, "hhhh:mm:ss.mmmmmm", "0"},
        {__LINE__, "1:59:59.999999",  2, "hhhh:mm:ss.mmmmmm", "1900-01-01 1:59:59.999999 T"},
        {__LINE__, "1:02:03.5",       2, "hhhh:mm:ss.mmmmmm", "1900-01-01 1:02:03.000005 T"},  // not scaled
        {__LINE__, "0012:30",         2, "hhhh:mm",          "0"},    // a year written out is no hour,
        {__LINE__, "12:0030",         2, "hhhh:mm",          "0"},    // no minute,
        {__LINE__, "12:30:0015",      2, "hhhh:mm:ss",       "0"},    // no second
        {__LINE__, "12:30:15.0015",   2, "hhhh:mm:ss.mmmmmm", "0"},
        {__LINE__, "1:30",            2, "h:mm",             "1900-01-01 1:30:00 TU"},
        {__LINE__, "1:30",            2, "hhh:mm",           "1900-01-01 1:30:00 TU"},
        {__LINE__, "PM",              2, "hh:mm AMPM",       "0"},    // no hour
        {__LINE__, "x",               2, "hh:mm",            "0"},
        {__LINE__, ":",               2, "hh:mm",            "0"},
        {__LINE__, "1/2/2003",        3, "M/d/yyyy hh:mm AMPM", "2003-01-02 D"},
        {__LINE__, "1/2/2003 5 PM",   3, "M/d/yyyy hh:mm AMPM", "2003-01-02 17:00:00 DT"},
        {__LINE__, "2/30/2003 5 PM",  3, "M/d/yyyy hh:mm AMPM", "0"},
        {__LINE__, "2/30/2003 5 PM",  2, "M/d/yyyy hh:mm AMPM", "2003-02-30 17:00:00 DT"},  // a time has no date to test
        {__LINE__, "13 1 2003",       1, "hhhh.M/yyyy",      "2003-01-01 13:00:00 DT"},
        {__LINE__, "13 1 2003",       3, "hhhh.M/yyyy",      "0"},
    };
    ExpectMatched(kRows);
}

// clang-format on

TEST(MatchDatePic, WhereMorningAndAfternoonAreCalledAlikeItIsMorning) {
    FMTCntlBlock block = DateBlock(2, "12:30 x");
    block.AMString = "X";
    block.PMString = "x";
    block.ShortDatePic = "hh:mm AMPM";
    block.Flags &= ~1U;
    EXPECT_EQ(ReadValue(FMTValidateDateTime, block), "1900-01-01 0:30:00 T");
}

TEST(MatchDatePic, NoLists) {
    FMTCntlBlock block = DateBlock(1, "");
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
